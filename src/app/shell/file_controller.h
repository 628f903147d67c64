#pragma once
// CFileController: everything about problem files: the first one at the start, read while the window is
// on screen already, the commands of the menu File, changes by others, and work saved from a crash.

#include <QObject>
#include <atomic>
#include <thread>

#include "app/document/crash_journal.h"
#include "app/shell/command_dispatcher.h"
#include "app/shell/file_saver.h"
#include "app/shell/workbench.h"

namespace tarnwick {

class CSolveController;

class CFileController : public QObject {
    Q_OBJECT

  public:
    CFileController(CWorkbench& workbench, CSolveController& solving);
    ~CFileController() override;
    void AddCommands(CCommandDispatcher& dispatcher);

    /// Reads the file, or the default file for an empty path, on a thread of its own. Its first problem is
    /// shown as soon as it is known, the rest when all is read.
    void OpenAtStart(const std::filesystem::path& path);
    bool IsReading() const { return m_bReading; }
    /// A big file is read on the same thread, and is on show later; a small one is when this returns.
    void Open(const std::filesystem::path& path);
    void Save();
    /// The number of problems as the status text.
    void ShowCount();
    /// Asks about unsaved changes. True: the window may close, nothing is left to save. While a file is
    /// being saved it may not, and mayCloseNow follows.
    bool MayClose();
    /// Four times a second: the crash journal, and changes of the file by others.
    void Tick();

  signals:
    /// The first problem of the file that is still being read.
    void firstBoard(const tarnwick::TChessboard& board);
    /// So many problems have been read so far.
    void countGrew(int nProblems);
    /// The first file is on show.
    void ready();
    void fileChanged();
    void mayCloseNow();

  private:
    TFileHost Host();
    void ReadInBackground(const std::filesystem::path& path);
    void NoteRead(const TChessProblem& problem);
    void FinishReading(const std::filesystem::path& path, TReadFile file, const std::string& error);
    void SaveAs();
    void SaveUnder(const std::filesystem::path& path);
    void NoteSaved(bool bSaved);
    void ShowFile();
    void New();
    void WithFile(TCommand command, TFileUse use,
                  const std::function<void(const std::filesystem::path&)>& action);
    std::filesystem::path Sample() const;

    CWorkbench& m_workbench;
    CSolveController& m_solving;
    CCrashJournal m_journal;
    CFileSaver m_saver;
    bool m_bCloseWhenSaved = false;
    std::thread m_reader;
    bool m_bReading = false;
    bool m_bStarting = false;  ///< It is the first file.
    std::atomic<bool> m_bGiveUp{false};
    int m_nRead = 0;  ///< The reader's own.
};

}  // namespace tarnwick
