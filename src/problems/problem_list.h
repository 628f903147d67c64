#pragma once
// TProblemList: the problems of the open file, by number, and the set of all tags that the file has.
//
// A solving job reads the list while the user's commands change it, so every operation takes the list's
// one lock. The records themselves are not guarded: a pointer that the list gave is good until its
// problem is removed or replaced, and who does that must know that nobody uses it.

#include <map>
#include <memory>
#include <mutex>
#include <set>
#include <string>
#include <vector>

#include "problems/chess_problem.h"

namespace tarnwick {

class TProblemList {
  public:
    /// Takes the problem over under its m_id, in place of one that had the number. True if there was
    /// one. Adds the problem's tags to the list's.
    bool Insert(std::unique_ptr<TChessProblem> pProblem);

    /// Takes the problem out and gives it to the caller; null if there is none of that number. Its tags
    /// stay in the list's.
    std::unique_ptr<TChessProblem> Remove(int id);

    /// Null if there is no problem of that number.
    TChessProblem* Find(int id) const;

    /// All problems by rising number.
    std::vector<TChessProblem*> Problems() const;

    std::size_t Size() const;

    /// Every tag that a problem had when it was inserted.
    std::set<std::wstring> Tags() const;

    /// Frees all problems and forgets the tags.
    void Clear();

  private:
    mutable std::mutex m_lock;
    std::map<int, std::unique_ptr<TChessProblem>> m_problems;  ///< Guarded by m_lock.
    std::set<std::wstring> m_tags;                             ///< Guarded by m_lock.
};

}  // namespace tarnwick
