#include "app/shell/file_controller.h"

#include <QApplication>
#include <QFile>
#include <utility>

#include "base/chess_exception.h"
#include "base/filled_text.h"

#include "app/commands/command_table.h"
#include "app/document/document_texts.h"
#include "app/document/problem_merge.h"
#include "app/shell/solve_controller.h"
#include "app/shell/window_texts.h"
#include "problems/file_text.h"

namespace tarnwick {
namespace {

namespace fs = std::filesystem;

/// Messages about the growing count come at this distance of problems.
constexpr int CountStep = 500;
/// A bigger file is read in the background: some thousand problems.
constexpr std::uintmax_t BigFileBytes = std::uintmax_t{512} << 10;

}  // namespace

CFileController::CFileController(CWorkbench& workbench, CSolveController& solving)
    : m_workbench(workbench),
      m_solving(solving),
      m_journal(workbench.Folders().data, workbench.Folders().LogFile()),
      m_saver(workbench.Document()) {
    connect(&m_saver, &CFileSaver::finished, this, &CFileController::NoteSaved);
    m_workbench.AddFacts([this](TWindowState& state) {
        state.bInitialising = m_bReading;
        state.bSaving = m_saver.IsSaving();
        std::error_code error;
        const auto status = fs::status(m_workbench.Document().Path(), error);
        state.bReadOnlyFile = !error && fs::exists(status) &&
                              (status.permissions() & fs::perms::owner_write) == fs::perms::none;
    });
}

CFileController::~CFileController() {
    m_bGiveUp = true;
    if (m_reader.joinable()) {
        m_reader.join();
    }
}

void CFileController::AddCommands(CCommandDispatcher& dispatcher) {
    dispatcher.Add(TCommand::NewFile, [this] { New(); });
    dispatcher.Add(TCommand::OpenDefaultFile, [this] {
        const fs::path path = m_workbench.Folders().ProblemFile();
        MakePrivateFolder(path.parent_path());
        std::error_code error;
        if (fs::exists(path, error) || error || NewProblemFile(path, Host())) {
            Open(path);  // says what is wrong with a folder that cannot be looked into
        }
    });
    dispatcher.Add(TCommand::OpenSampleFile, [this] { Open(Sample()); });
    dispatcher.Add(TCommand::OpenFile, [this] {
        WithFile(TCommand::OpenFile, TFileUse::Open, [this](const fs::path& path) { Open(path); });
    });
    dispatcher.Add(TCommand::SaveFile, [this] { Save(); });
    dispatcher.Add(TCommand::SaveFileAs, [this] { SaveAs(); });
    dispatcher.Add(TCommand::AppendProblems, [this] {
        WithFile(TCommand::AppendProblems, TFileUse::Open, [this](const fs::path& path) {
            AppendProblems(m_workbench.Document(), path, Host());
        });
    });
    dispatcher.Add(TCommand::RemoveProblems, [this] {
        WithFile(TCommand::RemoveProblems, TFileUse::Open, [this](const fs::path& path) {
            RemoveProblems(m_workbench.Document(), path, Host());
        });
    });
    dispatcher.Add(TCommand::AppendTagsOfFile, [this] {
        WithFile(TCommand::AppendTagsOfFile, TFileUse::Open, [this](const fs::path& path) {
            AppendKnownTags(m_workbench.Document(), path, Host());
        });
    });
    dispatcher.Add(TCommand::CheckFenCodes, [this] {
        WithFile(TCommand::CheckFenCodes, TFileUse::OpenText, [this](const fs::path& path) {
            CheckFenCodes(m_workbench.Document(), path, Host());
        });
    });
}

TFileHost CFileController::Host() {
    return {
        .dialog = m_workbench.Dialog(),
        .bCommentCompatibilityMode = m_workbench.Options().commentCompatibilityMode,
        .isSolving = [this] { return m_solving.IsRunning(); },
        .stopSolving = [this] { m_solving.StopAndForget(); },
        .askToSave =
            [this](std::string_view text) {
                const std::optional<bool> yes = m_workbench.Dialog().AskOrCancel(text);
                return !yes ? TSaveAnswer::Cancel : *yes ? TSaveAnswer::Save : TSaveAnswer::Discard;
            }};
}

// The start.

void CFileController::OpenAtStart(const fs::path& path) {
    m_bReading = m_bStarting = true;
    fs::path wanted = path;
    if (wanted.empty()) {
        wanted = m_workbench.Folders().ProblemFile();
        try {
            MakePrivateFolder(wanted.parent_path());
            std::error_code error;
            if (!fs::exists(wanted, error) && !error) {
                NewProblemFile(wanted, Host());
            }
        } catch (const ChessException& error) {
            m_workbench.Dialog().Tell(error.what());
        }
    }
    m_reader = std::thread([this, wanted] { ReadInBackground(wanted); });
}

void CFileController::ReadInBackground(const fs::path& path) {
    auto pFile = std::make_shared<TReadFile>();
    std::string failure;
    try {
        *pFile = ReadForDocument(path, m_workbench.Options().commentCompatibilityMode,
                                 [this](const TChessProblem& problem) { NoteRead(problem); });
    } catch (const std::exception& error) {
        failure = error.what();
    }
    if (!m_bGiveUp) {
        QMetaObject::invokeMethod(
            this, [this, path, pFile, failure] { FinishReading(path, std::move(*pFile), failure); },
            Qt::QueuedConnection);
    }
}

void CFileController::NoteRead(const TChessProblem& problem) {
    if (m_bGiveUp) {
        throw ChessException("");  // the window has closed
    }
    if (++m_nRead == 1) {
        QMetaObject::invokeMethod(
            this, [this, board = *problem.m_pBoard] { emit firstBoard(board); },
            Qt::QueuedConnection);
    }
    if (m_nRead % CountStep == 0) {
        QMetaObject::invokeMethod(
            this, [this, nRead = m_nRead] { emit countGrew(nRead); }, Qt::QueuedConnection);
    }
}

void CFileController::FinishReading(const fs::path& path, TReadFile file,
                                    const std::string& failure) {
    m_reader.join();
    m_bReading = false;
    CDocument& document = m_workbench.Document();
    if (file.pList != nullptr && failure.empty()) {
        TakeIntoDocument(document, path, std::move(file), Host());
    } else {
        m_workbench.Dialog().Tell(failure);
    }
    ShowFile();
    if (std::exchange(m_bStarting, false)) {
        if (m_journal.OfferLostWork(document, Host())) {
            ShowFile();
        }
        emit ready();
    }
    // Folds all texts once the window has been painted, so that the first filter is as quick as the next.
    QMetaObject::invokeMethod(
        this, [this] { m_workbench.Document().Filtered(L"x"); }, Qt::QueuedConnection);
}

void CFileController::ShowFile() {
    emit fileChanged();
    m_workbench.ShowProblem();
    ShowCount();
}

void CFileController::ShowCount() {
    m_workbench.SetStatus(m_workbench.StatusHead() + UserText(NumberOfProblemsText) +
                          std::to_string(m_workbench.Document().Count()));
}

// Commands.

void CFileController::Open(const fs::path& path) {
    CDocument& document = m_workbench.Document();
    std::error_code ignored;
    const std::uintmax_t size =
        fs::is_regular_file(path, ignored) ? fs::file_size(path, ignored) : 0;
    if (size < BigFileBytes) {
        if (OpenProblemFile(document, path, Host())) {
            ShowFile();
        }
        return;
    }
    if (!StopSolvingOnRequest(Host()) || !SettleUnsavedChanges(document, Host())) {
        return;
    }
    m_bReading = true;
    m_nRead = 0;
    m_workbench.SetStatus(UserText(OpeningFileText));
    m_workbench.StateChanged();
    m_reader = std::thread([this, path] { ReadInBackground(path); });
}

/// Beside the program when it is installed, in the project's folder while it is being developed.
fs::path CFileController::Sample() const {
    const fs::path program =
        QFile::encodeName(QCoreApplication::applicationDirPath()).toStdString();
    const char* const name = "sample_problems.cp";
    std::error_code ignored;
    for (const fs::path& folder :
         {m_workbench.Folders().data, program, program / "../share/tarnwick",
          program / "../../../../../problems"}) {
        if (fs::exists(folder / name, ignored)) {
            return fs::canonical(folder / name, ignored);
        }
    }
    throw ChessException(UserText(NoSamplesText));
}

void CFileController::WithFile(TCommand command, TFileUse use,
                               const std::function<void(const fs::path&)>& action) {
    const auto path = m_workbench.Dialog().ChooseFile(*TextOfCommand(command), use,
                                                      m_workbench.Document().Path());
    if (!path) {
        return;
    }
    const TChessProblem* const pBefore = m_workbench.Document().Current();
    action(*path);
    if (m_workbench.Document().Current() != pBefore) {
        m_workbench.ShowProblem();
    }
    emit fileChanged();
}

void CFileController::New() {
    const auto path = m_workbench.Dialog().ChooseFile(
        *TextOfCommand(TCommand::NewFile), TFileUse::Save, m_workbench.Document().Path());
    if (!path) {
        return;
    }
    // Settled before the new file takes the place of the open one.
    CDocument& document = m_workbench.Document();
    const bool bReplacesOpenFile = *path == document.Path();
    if ((!bReplacesOpenFile || SettleUnsavedChanges(document, Host())) &&
        NewProblemFile(*path, Host())) {
        Open(*path);
    }
}

void CFileController::Save() {
    const fs::path path = m_workbench.Document().Path();
    if (path.empty()) {  // the file of the command line did not exist
        SaveAs();
    } else {
        SaveUnder(path);
    }
}

void CFileController::SaveAs() {
    const auto path = m_workbench.Dialog().ChooseFile(
        *TextOfCommand(TCommand::SaveFileAs), TFileUse::Save, m_workbench.Document().Path());
    if (path) {
        SaveUnder(*path);
    }
}

void CFileController::SaveUnder(const fs::path& path) {
    CDocument& document = m_workbench.Document();
    if (document.Count() < CFileSaver::ManyProblems || IsEpdName(path)) {
        NoteSaved(SaveProblemFile(document, path, Host()));
    } else if (m_saver.Start(path, Host())) {
        m_workbench.SetStatus(UserText(SavingFileText));
        m_workbench.StateChanged();
    }
}

void CFileController::NoteSaved(bool bSaved) {
    CDocument& document = m_workbench.Document();
    if (bSaved) {
        m_journal.WriteNow(document);
        m_workbench.SetStatus(FilledText(
            SavedText, {FileNameForMessage(document.Path()), std::to_string(document.Count())}));
        emit fileChanged();
    }
    m_workbench.StateChanged();
    if (std::exchange(m_bCloseWhenSaved, false) && bSaved) {
        emit mayCloseNow();
    }
}

bool CFileController::MayClose() {
    if (m_bStarting) {
        return true;
    }
    if (m_saver.IsSaving()) {
        m_bCloseWhenSaved = true;
        m_workbench.SetStatus(UserText(ClosesWhenSavedText));
        return false;
    }
    if (!SettleUnsavedChanges(m_workbench.Document(), Host())) {
        return false;
    }
    m_journal.Close();
    return true;
}

void CFileController::Tick() {
    if (m_bReading) {
        return;
    }
    if (m_saver.IsSaving()) {
        return;
    }
    CDocument& document = m_workbench.Document();
    m_journal.Update(document);
    // An open box or menu may hold on to the problem that is shown: the file is reloaded behind it.
    const bool bBusy = m_workbench.Dialog().IsAsking() ||
                       QApplication::activeModalWidget() != nullptr ||
                       QApplication::activePopupWidget() != nullptr;
    if (!bBusy && !m_solving.IsRunning() && HandleForeignChange(document, Host())) {
        emit fileChanged();
        m_workbench.ShowProblem();
    }
}

}  // namespace tarnwick
