#pragma once
// The commands on whole problem files that open and save them. problem_merge.h has those on two files.
//
// No command loses work silently: what would be overwritten, left out or stopped is asked about, and a
// save leaves the old file or the new one, whole, whatever happens in between (platform/atomic_file.h).
// A command tells the user itself what went wrong; false means that it did not happen.
//
// Window thread.

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "base/user_dialog.h"

#include "app/document/document.h"
#include "app/document/problem_reading.h"

namespace tarnwick {

enum class TSaveAnswer {
    Save,
    Discard,
    Cancel
};

/// What a command needs of the program around it.
struct TFileHost {
    TUserDialog& dialog;
    /// A .cp file has a twin .cpx, which is read and written with the comments of variants; the .cp
    /// file itself is written without them, for readers that do not know comments.
    bool bCommentCompatibilityMode = false;
    /// Whether a job is running, and its end. Null: there is never one.
    std::function<bool()> isSolving = {};
    std::function<void()> stopSolving = {};
    /// A question with three answers. Null: two questions of the dialog do.
    std::function<TSaveAnswer(std::string_view text)> askToSave = {};
};

/// Makes a file with one fresh problem, asking before it replaces one. Does not open it.
bool NewProblemFile(const std::filesystem::path& path, const TFileHost& host);

/// Opens a .cp file, or an .epd file, in place of what is open. Stops a running job and asks about
/// unsaved changes first. False: what was open still is. A file with a fault is opened with what can be
/// read in front of it, and the user is told.
bool OpenProblemFile(CDocument& document, const std::filesystem::path& path, const TFileHost& host);

/// OpenProblemFile in its two halves, for a program whose window is on screen while its first file is
/// still being read. Any thread; throws ChessException if the file cannot be opened.
TReadFile ReadForDocument(const std::filesystem::path& path, bool bCommentCompatibilityMode,
                          const TOnProblemRead& onProblem = {});
/// The other half, for the window's thread: what was open is gone. Asks whether to read the file itself
/// where its twin with the comments is older and has other problems.
void TakeIntoDocument(CDocument& document, const std::filesystem::path& path, TReadFile read,
                      const TFileHost& host);

/// Saves all problems under the path, which becomes the document's, and keeps the old content as .BAK.
/// Asks before it saves a position twice, loses problems that were not read, or overwrites what
/// somebody else wrote. False: nothing was saved and the changes stay unsaved.
bool SaveProblemFile(CDocument& document, const std::filesystem::path& path, const TFileHost& host);

/// A file with the content that it got, or shall get.
struct TFileContent {
    std::filesystem::path path;
    std::string text;
};

/// SaveProblemFile in its steps, for a window that must not stand still while a big file is saved.
struct TSaveJob {
    std::filesystem::path path;   ///< Absolute.
    std::string text;             ///< All problems, as ProblemListToText writes them.
    std::uint64_t nRevision = 0;  ///< Of the document that the text was made of.
    CFileWatch watch;             ///< What is known of the files; the job notes what it writes.
    std::vector<TFileContent> contents;  ///< Made of the text if there are none.
};

/// The first step, on the window's thread: the questions about what is saved. False: the user gives up.
bool ConfirmSave(const CDocument& document, const std::filesystem::path& path,
                 const TFileHost& host);
/// The second, on any thread: reads the text again, asks about other people's files, writes. False:
/// nothing, or not everything, was saved, and the user knows.
bool RunSave(TSaveJob& job, const TFileHost& host);
/// The third, on the window's thread, whatever came of the second. A document that has changed since its
/// text was made stays unsaved.
void FinishSave(CDocument& document, TSaveJob job, bool bSaved);

/// Before something that would lose unsaved changes, like closing the window: asks, and saves if the
/// user wants. True: go on.
bool SettleUnsavedChanges(CDocument& document, const TFileHost& host);

/// Stops a running job if the user agrees. True: go on.
bool StopSolvingOnRequest(const TFileHost& host);

/// For the window's timer while nothing is solved: tells of a change by another program, and reloads
/// the file if the user wants. True: the file was reloaded. With unsaved changes it only warns.
bool HandleForeignChange(CDocument& document, const TFileHost& host);

/// Reads the file again and shows the problem that was shown, if it still exists.
bool ReloadProblemFile(CDocument& document, const TFileHost& host);

/// Keeps the file's present content as PATH.BAK. False if there is no such file. Throws ChessException.
bool MakeBackup(const std::filesystem::path& path);

/// Writes the problem as a file of its own, for another instance of the program, into the folder "tmp"
/// below the given one. Returns its path. Throws ChessException if it cannot.
std::filesystem::path WriteTemporaryProblem(const TChessProblem& problem,
                                            const std::filesystem::path& homeFolder);

}  // namespace tarnwick
