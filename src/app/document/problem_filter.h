#pragma once
// CProblemFilter: the problems whose number, description or tags hold all the words of a filter box.
//
// The folded text of each problem is made when a filter first needs it and kept, so that the list
// follows the typing also in a file of 100,000 problems.

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "problems/chess_problem.h"

namespace tarnwick {

class CProblemFilter {
  public:
    /// Of the given problems those that match, in the given order. Words are parted by blanks and may
    /// stand anywhere, also inside longer words. No word: all problems.
    std::vector<int> Matching(const std::vector<TChessProblem*>& problems, std::wstring_view words);

    /// The problem was changed or is gone.
    void Forget(int id) { m_foldedTexts.erase(id); }
    void ForgetAll() { m_foldedTexts.clear(); }

  private:
    const std::string& FoldedTextOf(const TChessProblem& problem);

    std::unordered_map<int, std::string> m_foldedTexts;  ///< By number of the problem.
};

}  // namespace tarnwick
