#include "app/shell/table_controller.h"

#include <QClipboard>
#include <QGuiApplication>
#include <algorithm>

#include "base/chess_exception.h"
#include "base/filled_text.h"

#include "app/settings/application_log.h"
#include "app/shell/window_texts.h"
#include "app/tables/table_tasks_texts.h"
#include "engine/search/node_hooks.h"
#include "tables/register/register_reports.h"

namespace tarnwick {
namespace {

TTableOptions TablesOf(CWorkbench& workbench) {
    const TOptions& options = workbench.Options();
    return {.maxMemRatioForPrecalculatedData = options.maxMemRatioForPrecalculatedData,
            .useDataPackedForRandomAccess = options.useDataPackedForRandomAccess,
            .bGlobalRegisterForceDiskAccess = options.globalRegisterForceDiskAccess,
            .askForGlobalRegisterRecompression = options.askForGlobalRegisterRecompression,
            .bAskIfSaveAfterDecompressAllToMem = options.askIfSaveAfterDecompressAllToMem,
            .bKeepExpandedCopies = false,
            .programFolder = workbench.Folders().data,
            .precalcPath = std::filesystem::path(options.precalcPath)};
}

int MenBesideKings(const TChessboard& board) {
    return static_cast<int>(std::ranges::count_if(
               board.m_fields, [](TFigureCode code) { return code != EmptyField; })) -
           2;
}

/// The board's type, for which there can be a table. Throws ChessException if there is none.
std::string TypeWithTable(const TChessboard& board) {
    std::string type = PositionTypeOf(board);
    if (type.empty()) {
        throw ChessException(
            FilledText(NoTypeOfBoardText, {std::to_string(MenBesideKings(board))}));
    }
    return type;
}

}  // namespace

CTableController::CTableController(CWorkbench& workbench, CSolveController& solving)
    : m_workbench(workbench), m_solving(solving), m_run(Events()) {
    OpenTables();
    m_workbench.AddFacts([this](TWindowState& state) {
        state.bTableRun = m_run.IsRunning();
        state.bPaused = state.bTableRun ? m_run.IsPaused() : state.bPaused;
    });
}

/// The run calls these on its own threads: each only leaves a message for the window's thread.
TTableRunEvents CTableController::Events() {
    const auto post = [this](auto call) {
        QMetaObject::invokeMethod(this, call, Qt::QueuedConnection);
    };
    return {.onQuestion = [=, this] { post([this] { AskQuestion(); }); },
            .onTell =
                [=, this](const std::string& text) {
                    post([this, text] {
                        m_workbench.Dialog().TellLater(UserText(InformationTitle), text);
                    });
                },
            .onEnd = [=, this] { post([this] { Ended(); }); }};
}

void CTableController::AddCommands(CCommandDispatcher& dispatcher) {
    // The news of a run that has just ended may still be on its way, and its position is the one to go on from.
    const auto add = [&](TCommand command, auto action) {
        dispatcher.Add(command, [this, action] {
            Ended();
            action();
        });
    };
    add(TCommand::GlobalRegisterStatus,
        [this] { m_workbench.Dialog().Tell(RegisterStatusText(*m_workbench.Tables())); });
    add(TCommand::InformationAboutPosition, [this] { ShowInformation(); });
    add(TCommand::NextPositionOfType, [this] { StepToNeighbour(1); });
    add(TCommand::PreviousPositionOfType, [this] { StepToNeighbour(-1); });
    add(TCommand::PastePositionByIndex, [this] { PasteIndex(); });
    add(TCommand::ShowMaxMate, [this] { StepToLongestMate(true); });
    add(TCommand::ShowPreviousMaxMate, [this] { StepToLongestMate(false); });
    add(TCommand::GenerateTable, [this] { Generate(); });
    add(TCommand::VerifyTable, [this] { Verify(false); });
    add(TCommand::VerifyPartialTable, [this] { Verify(true); });
    add(TCommand::VerifyAllTables, [this] { VerifyAll(false); });
    add(TCommand::ResumeVerification, [this] { VerifyAll(true); });
    dispatcher.AddToo(TCommand::StopSolving, [this] { m_run.Stop(); });
    dispatcher.AddToo(TCommand::PauseSolving, [this] { m_run.Pause(); });
    dispatcher.AddToo(TCommand::ResumeSolving, [this] { m_run.Resume(); });
}

void CTableController::StopAndForget() {
    m_bForget = true;
    m_run.Stop();
}

TChessboard CTableController::BoardOnShow() const {
    TChessboard board = m_workbench.Line().Board();
    board.m_pPrevious = nullptr;
    board.m_pThread = nullptr;
    return board;
}

// Runs.

void CTableController::Start(CTableRun::TWork work) {
    const TChessProblem* const pProblem = m_workbench.Document().Current();
    m_nProblem = pProblem != nullptr ? pProblem->m_id : -1;
    m_board = BoardOnShow();
    m_run.Start(std::move(work));
    emit runningChanged();
}

void CTableController::Ended() {
    const std::optional<TTableRunEnd> end = m_run.TakeEnd();
    if (!end || m_bForget) {
        return;
    }
    emit runningChanged();
    if (!end->error.empty()) {
        m_workbench.SetStatus(end->error);
        m_workbench.Dialog().TellLater(UserText(InformationTitle), end->error);
    } else if (end->finish) {
        end->finish();
    }
    m_workbench.StateChanged();
}

void CTableController::AskQuestion() {
    const std::optional<TTableRunQuestion> question = m_run.Question();
    if (question) {
        m_workbench.Dialog().AskLater(question->text, [this, number = question->number](bool bYes) {
            m_run.Answer(number, bYes);
        });
    }
}

void CTableController::StartForPosition(std::function<TTablePosition()> find) {
    Start([this, find = std::move(find)](const CRunControl&) -> TTableRunFinish {
        return [this, position = find()] { ShowPosition(position); };
    });
}

/// The user may have gone on to another board meanwhile.
void CTableController::ShowPosition(const TTablePosition& position) {
    const TChessProblem* const pProblem = m_workbench.Document().Current();
    const bool bSameBoard =
        (pProblem != nullptr ? pProblem->m_id : -1) == m_nProblem &&
        std::ranges::equal(m_workbench.Line().Board().m_fields, m_board.m_fields);
    if (!position.fields) {
        m_workbench.SetStatus(position.text);
    } else if (bSameBoard) {
        emit positionFound(position);
    }
}

/// The memory of the last solve is given up for the tables; what they come to be is read anew.
void CTableController::StartLongWork(TMakeText makeText) {
    m_pLongest.reset();
    OpenTables();
    Start([this, makeText = std::move(makeText), pTables = m_workbench.Tables(),
           pMemory = m_solving.GiveUpRegister(), threads = m_workbench.Threads(),
           logFolder =
               m_workbench.Folders().data](const CRunControl& control) mutable -> TTableRunFinish {
        pMemory.reset();
        const std::string end = makeText({.folders = pTables->Folders(),
                                          .threads = threads,
                                          .control = control,
                                          .dialog = m_run,
                                          .logFolder = logFolder});
        return [this, end] {
            OpenTables();
            if (!end.empty()) {
                m_workbench.SetStatus(end);
                m_workbench.Dialog().TellLater(UserText(InformationTitle), end);
            }
        };
    });
}

/// As they lie on the disk now, none of them loaded.
void CTableController::OpenTables() {
    m_workbench.Tables() =
        std::make_shared<TGlobalRegisterSet>(TablesOf(m_workbench), &m_run.LoadDialog());
}

// Positions.

void CTableController::ShowInformation() {
    if (!HasNoCastlingRights(m_workbench.Line().Board())) {
        m_workbench.SetStatus(UserText(TablesKnowNoCastlingText));
        return;
    }
    Start([this, pTables = m_workbench.Tables(),
           board = BoardOnShow()](const CRunControl&) -> TTableRunFinish {
        return [this, text = PositionInformation(*pTables, board)] { m_workbench.SetStatus(text); };
    });
}

void CTableController::StepToNeighbour(int direction) {
    StartForPosition([pTables = m_workbench.Tables(), board = BoardOnShow(), direction] {
        return NeighbourOfType(*pTables, board, direction);
    });
}

void CTableController::PasteIndex() {
    StartForPosition([pTables = m_workbench.Tables(), board = BoardOnShow(),
                      text = QGuiApplication::clipboard()->text().trimmed().toStdString()] {
        return PositionByIndex(*pTables, board, text);
    });
}

void CTableController::StepToLongestMate(bool bForward) {
    if (m_pLongest == nullptr) {
        m_pLongest = std::make_unique<CLongestMates>(m_workbench.Tables());
    }
    StartForPosition([this, board = BoardOnShow(), bForward] {
        return m_pLongest->Step(board, bForward, m_run);
    });
}

// Whole tables.

/// Tables of another folder are used without a further sign.
bool CTableController::MayUseOtherFolder() {
    const std::string& path = m_workbench.Options().precalcPath;
    return path.empty() || m_workbench.Dialog().Ask(FilledText(AdditionalPrecalcPathText, {path}));
}

void CTableController::Generate() {
    const std::string type = TypeWithTable(m_workbench.Line().Board());
    if (MayUseOtherFolder()) {
        StartLongWork([type](const TTableTask& task) { return GenerateTable(task, type); });
    }
}

void CTableController::Verify(bool bPartial) {
    const std::string type = TypeWithTable(m_workbench.Line().Board());
    if (!MayUseOtherFolder()) {
        return;
    }
    const std::optional<bool> fix = m_workbench.Dialog().AskOrCancel(UserText(AskTryToFixText));
    const TRepair repair = !fix ? TRepair::Ask : *fix ? TRepair::Yes : TRepair::No;
    StartLongWork([type, repair, bPartial](const TTableTask& task) {
        return VerifyTable(task, type, repair, bPartial);
    });
}

void CTableController::VerifyAll(bool bFromTypeOfBoard) {
    const std::string first =
        bFromTypeOfBoard ? TypeWithTable(m_workbench.Line().Board()) : std::string();
    if (!MayUseOtherFolder()) {
        return;
    }
    StartLongWork([first, logFile = m_workbench.Folders().LogFile()](const TTableTask& task) {
        return VerifyAllTables(task, first, [&](const std::string& line) {
            LogApplicationEvent(logFile, "%s", line);
            task.dialog.Progress(line);
        });
    });
}

}  // namespace tarnwick
