#pragma once
// CCrashJournal: unsaved edits survive the end of the program, however it ends.
//
// The problems that were changed since the last save stand, as text of a problem file, in a file of this
// process beside the settings. The window's timer keeps it up to date and it goes away when everything
// is saved or given up. A journal whose process is dead was left by a crash and is offered at the next
// start.
//
// Several instances share the folder, perhaps on several machines: a file's name tells its process, and
// who takes over a dead one's renames it first, which only one can. A journal of a process that cannot
// be looked for from here is left alone.

#include <cstdint>
#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "app/document/document.h"
#include "app/document/problem_files.h"

namespace tarnwick {

class CCrashJournal {
  public:
    /// The journal is written at most so often.
    static constexpr std::int64_t IntervalMs = 2000;

    /// Nothing is written before something is unsaved. The folder need not exist yet. log: for what the
    /// user need not be asked about; empty: no log.
    explicit CCrashJournal(std::filesystem::path folder, std::filesystem::path log = {});

    /// For the window's timer: writes if the document has changed and the interval is over. A journal
    /// that cannot be written never stops the user: false, and it is tried again after the interval.
    bool Update(const CDocument& document);
    /// The same at once, before something risky.
    bool WriteNow(const CDocument& document);

    /// The user has seen all to its end (saved, or rejected the changes): the file goes away.
    void Close();

    /// At the start: asks about the work of each dead process; what the user wants back is opened with
    /// its file and put into the document as unsaved edits, the rest is removed. True if anything was
    /// recovered. Saves the rest of the work for the next start if the user cancels opening.
    bool OfferLostWork(CDocument& document, const TFileHost& host);

    /// The file of this process, whether it exists or not.
    const std::filesystem::path& Path() const { return m_path; }

  private:
    bool Recover(const std::filesystem::path& journal, CDocument& document, const TFileHost& host);

    std::vector<std::filesystem::path> JournalsOfTheDead() const;

    std::filesystem::path m_folder;
    std::filesystem::path m_log;
    std::filesystem::path m_path;
    std::uint64_t m_nWrittenRevision = 0;
    std::int64_t m_nLastTryMs;
};

/// Numbers of problems, and the placements as FEN by which they are known again: somebody else may have
/// written the file since, with other problems under these numbers.
using TPlacements = std::map<int, std::string>;

/// What a journal holds.
struct TLostWork {
    std::filesystem::path problemFile;  ///< The file that was open.
    TPlacements removed;                ///< Problems that had been removed from it.
    std::unique_ptr<TProblemList> pChanged;
    /// What the changed ones were in the file; the others of pChanged are new.
    TPlacements before;
    bool bDamaged = false;  ///< Only what stands in front of the damage could be read.
};

/// The text of a journal: a problem file with a line of comment for the rest.
std::string JournalText(const CDocument& document);

/// Nothing if the text is no journal or is damaged.
std::optional<TLostWork> ReadJournal(const std::string& text);

/// Puts the work into the document as unsaved edits: changed problems take the place of what they were,
/// new ones are added, removed ones are taken. No other problem is touched: where the number has
/// another one now, the changed problem is added, and the removed one counts as gone. Returns the numbers
/// of those changed problems, old and new.
std::map<int, int> ApplyLostWork(CDocument& document, TLostWork work);

}  // namespace tarnwick
