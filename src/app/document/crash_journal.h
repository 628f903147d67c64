#pragma once
// CCrashJournal: unsaved edits survive the end of the program, however it ends.
//
// The problems that were changed since the last save stand, as text of a problem file, in a file of this
// process beside the settings. The window's timer keeps it up to date and it goes away when everything
// is saved or given up. A journal whose process is dead was left by a crash and is offered at the next
// start.
//
// Several instances share the folder: a file's name tells its process, and who takes over a dead one's
// renames it first, which only one can.

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "app/document/document.h"
#include "app/document/problem_files.h"

namespace tarnwick {

class CCrashJournal {
  public:
    /// The journal is written at most so often.
    static constexpr std::int64_t IntervalMs = 2000;

    /// Nothing is written before something is unsaved. The folder need not exist yet.
    explicit CCrashJournal(std::filesystem::path folder);

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

    std::filesystem::path m_folder;
    std::filesystem::path m_path;
    std::uint64_t m_nWrittenRevision = 0;
    std::int64_t m_nLastTryMs;
};

/// What a journal holds.
struct TLostWork {
    std::filesystem::path problemFile;  ///< The file that was open.
    std::set<int> removed;              ///< Numbers of problems that had been removed from it.
    std::unique_ptr<TProblemList> pChanged;
    bool bDamaged = false;  ///< Only what stands in front of the damage could be read.
};

/// The text of a journal: a problem file with a line of comment for the rest.
std::string JournalText(const CDocument& document);

/// Nothing if the text is no journal or is damaged.
std::optional<TLostWork> ReadJournal(const std::string& text);

/// Puts the work into the document as unsaved edits: changed problems take the place of those of their
/// number, new ones are added, removed ones are taken.
void ApplyLostWork(CDocument& document, TLostWork work);

}  // namespace tarnwick
