#pragma once
// CDocument: the open problem file as the window works on it.
//
// It owns the problems, knows which one is shown, which were shown before, and what has been changed
// since the file was read or saved. Every change goes through here, so that undo, "unsaved", the filter
// and the crash journal cannot miss one. Reading and writing files is problem_files.h.
//
// Belongs to the window's thread; nothing may solve a problem while it is changed.

#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "app/document/edit_history.h"
#include "app/document/file_watch.h"
#include "app/document/problem_filter.h"
#include "app/document/viewed_history.h"
#include "problems/problem_list.h"

namespace tarnwick {

/// What reading a file left out, and saving would therefore lose.
struct TReadLosses {
    int problems = 0;   ///< About so many problems of the file are not in the list.
    int nLine = 0;      ///< From 1: where reading stopped; 0 if it did not.
    std::string fault;  ///< For the user: why it stopped. Empty if it did not.
};

class CDocument {
  public:
    CDocument();

    // The file.

    /// Takes over the problems of a file that was read; the first one is shown. What was open is gone.
    void Replace(std::filesystem::path path, std::unique_ptr<TProblemList> pList,
                 TReadLosses losses);
    const std::filesystem::path& Path() const { return m_path; }
    const TReadLosses& Losses() const { return m_losses; }
    CFileWatch& Watch() { return m_watch; }
    /// All problems are in the file of that path now.
    void MarkSaved(const std::filesystem::path& path);
    bool HasUnsavedChanges() const { return !m_unsaved.empty() || !m_removed.empty(); }
    /// Numbers of the changed and of the new problems.
    const std::set<int>& UnsavedIds() const { return m_unsaved; }
    /// Problems that the file has and the list has no more: numbers and placements of their men, as FEN.
    const std::map<int, std::string>& Removed() const { return m_removed; }
    /// The placement that a problem of the list has in the file, as FEN; nothing for a new one.
    std::optional<std::string> SavedPlacement(int id) const;
    /// Whether the problem's men have been moved, or it is new, since the file was saved.
    bool HasUnsavedPosition(int id) const;
    /// Rises with every change and every save.
    std::uint64_t Revision() const { return m_nRevision; }

    // The problems. References are good until the next Replace; pointers until the problem is taken.

    const TProblemList& Problems() const { return *m_pList; }
    std::size_t Count() const { return m_ids.size(); }
    /// Numbers of all problems, rising.
    const std::vector<int>& Ids() const { return m_ids; }
    /// The problem on show; null only if the list is empty.
    TChessProblem* Current() const { return m_pCurrent; }

    // Going through them. False, and nothing changed, where there is no such problem.

    bool GoTo(int id);
    bool GoToFirst();
    bool GoToLast();
    bool GoToNext();
    bool GoToPrevious();
    /// To the problem viewed before this one, and back again.
    bool GoBack();
    bool GoForward();
    bool HasViewedBefore() const { return m_viewed.HasBefore(); }
    bool HasViewedAfter() const { return m_viewed.HasAfter(); }
    /// Numbers of the problems that hold all the words (problem_filter.h), rising.
    std::vector<int> Filtered(std::wstring_view words);
    /// Tags of all problems, and those that were offered by AddKnownTags.
    std::set<std::wstring> KnownTags() const;
    void AddKnownTags(const std::set<std::wstring>& tags);

    // Changes.

    using TChange = std::function<void(TChessProblem&)>;
    /// Changes the problem on show, as one step of undo. True if anything is different then. Must not
    /// change its number. An exception of the change goes on to the caller, the problem as it was.
    bool Edit(const TChange& change);
    /// The same for any problem of the list.
    bool EditProblem(int id, const TChange& change);
    bool CanUndo() const;
    bool CanRedo() const;
    /// Of the problem on show. False if there is nothing to undo or to do again.
    bool Undo();
    bool Redo();

    /// A fresh mate in two with the kings alone behind the last problem; it is shown.
    TChessProblem& AddNewProblem();
    /// Adds a problem under the next free number and returns that. What is shown stays.
    int Add(std::unique_ptr<TChessProblem> pProblem);
    /// Takes a problem out of the list; null for an unknown number. If it was on show, the next one is now.
    std::unique_ptr<TChessProblem> Take(int id);
    /// Puts a problem that was taken back under its number, saved or unsaved as it was.
    void PutBack(std::unique_ptr<TChessProblem> pProblem);
    /// The language has been changed: the main variants get their name in it. No edit.
    void TranslateMainVariants();

  private:
    CEditHistory& HistoryOf(const TChessProblem& problem);
    const CEditHistory* FindHistory(int id) const;
    void Insert(std::unique_ptr<TChessProblem> pProblem);
    void Show(int id);
    /// Index in m_ids of the number or of the next higher one.
    std::size_t IndexOf(int id) const;
    bool GoToIndex(std::size_t index);
    int NextFreeId() const;
    void NoteChange(int id);

    std::filesystem::path m_path;
    std::unique_ptr<TProblemList> m_pList;  ///< Never null.
    TReadLosses m_losses;
    CFileWatch m_watch;
    std::vector<int> m_ids;  ///< Those of m_pList, rising: stepping must not walk 100,000 problems.
    TChessProblem* m_pCurrent = nullptr;
    CViewedHistory m_viewed;
    CProblemFilter m_filter;
    std::unordered_map<int, CEditHistory> m_histories;  ///< Of problems edited, new or taken.
    std::set<int> m_unsaved;
    std::map<int, std::string> m_removed;
    std::set<std::wstring> m_offeredTags;
    std::uint64_t m_nRevision = 0;
};

}  // namespace tarnwick
