#include "app/shell/solve_controller.h"

#include <QApplication>
#include <QClipboard>
#include <QFile>
#include <QProcess>
#include <algorithm>

#include "base/chess_exception.h"
#include "base/filled_text.h"
#include "platform/processors.h"

#include "app/commands/command_table.h"
#include "app/document/problem_files.h"
#include "app/settings/application_log.h"
#include "app/shell/window_texts.h"
#include "app/solving/solving_texts.h"
#include "chess/fen.h"
#include "chess/move_text.h"
#include "problems/cp_writer.h"

namespace tarnwick {
namespace {

constexpr int MaxThreads = 64;

TSolveSettings SettingsOf(CWorkbench& workbench, TPriorityClass priority) {
    const TOptions& options = workbench.Options();
    return {.bQuickMode = options.quickMode,
            .threads = static_cast<std::uint16_t>(workbench.Threads()),
            .multithreadingLevels = static_cast<std::uint8_t>(options.multithreadingLevels),
            .schedulerLevels = static_cast<std::uint8_t>(options.schedulerLevels),
            .bCustomScheduler = options.customScheduler,
            .bMainVariantHints = options.useMainVariantAsSortIndications,
            .bAskAboutThreads = true,
            .memoryPercent = options.maxMemRatioForTempReg,
            .bCheckRegisterCoherency = options.checkTempRegCoherency,
            .pTables = workbench.Tables(),
            .bLogMoves = options.logMoves,
            .bRegisterInfoLog = options.registerInfoLog,
            .bRelaxationLog = options.tryRelaxSpecialHeuristicsLog,
            .logFolder = workbench.Folders().data,
            .priority = PriorityInClass(priority)};
}

std::unique_ptr<TChessProblem> NewProblemOf(const TPositionInHand& position) {
    auto pProblem = std::make_unique<TChessProblem>();
    pProblem->m_id = 1;
    bool bIgnored = false;
    ReadFen(*pProblem->m_pBoard, position.problemFen, bIgnored, bIgnored);
    SetPlies(*pProblem, PliesOfStipulation(TProblemType::DirectMate, position.problemMoves));
    pProblem->m_originalBoard = *pProblem->m_pBoard;
    return pProblem;
}

bool SameMen(const TChessboard& one, const TChessboard& other) {
    return std::equal(std::begin(one.m_fields), std::end(one.m_fields), std::begin(other.m_fields));
}

}  // namespace

CSolveController::CSolveController(CWorkbench& workbench)
    : m_workbench(workbench), m_session(Events()) {
    m_frames.setInterval(FrameMs);
    connect(&m_frames, &QTimer::timeout, this, [this] {
        m_indicator.Tick();
        emit indicatorChanged();
    });
    m_flashTimer.setSingleShot(true);
    connect(&m_flashTimer, &QTimer::timeout, this, &CSolveController::FlashNext);
    m_workbench.AddFacts([this](TWindowState& state) {
        state.bSolving = m_session.IsRunning();
        state.bPaused |= m_session.IsPaused();
        state.nThreads = state.bSolving ? static_cast<int>(m_session.Progress().threads.size()) : 0;
        state.priority = m_priority;
        state.allowedProcessors = AllowedProcessors();
    });
}

/// The session calls these on its own threads: each only leaves a message for the window's thread, who
/// passes over those of an earlier run.
TSolveEvents CSolveController::Events() {
    const auto post = [this](auto call) {
        QMetaObject::invokeMethod(
            this,
            [this, call, nRun = m_session.RunNumber()] {
                if (nRun == m_session.RunNumber()) {
                    call();
                }
            },
            Qt::QueuedConnection);
    };
    return {.onSolution = [=, this](TMove key) { post([this, key] { KeyFound(key); }); },
            .onThreadAdvice =
                [=, this](int threads) { post([this, threads] { AskAboutThreads(threads); }); },
            .onError =
                [=, this](const std::string& title, const std::string& text) {
                    post([this, title, text] { m_workbench.Dialog().TellLater(title, text); });
                },
            .onEnd = [=, this] { post([this] { Ended(); }); }};
}

void CSolveController::AddCommands(CCommandDispatcher& dispatcher) {
    dispatcher.Add(TCommand::Solve, [this] { Start(false); });
    dispatcher.Add(TCommand::FindAllSolutions, [this] { Start(true); });
    dispatcher.Add(TCommand::StopSolving, [this] {
        m_session.Stop();
        m_workbench.SetStatus(UserText(StoppingText));
    });
    dispatcher.Add(TCommand::PauseSolving, [this] { m_session.Pause(); });
    dispatcher.Add(TCommand::ResumeSolving, [this] { m_session.Resume(); });
    dispatcher.Add(TCommand::PauseOneThread, [this] { StopOneThread(); });
    dispatcher.Add(TCommand::CopyPositionOfThread, [this] {
        CopyPositionInHand(
            [](const TPositionInHand& position) { return ProblemToText(*NewProblemOf(position)); });
    });
    dispatcher.Add(TCommand::CopyFenOfThread, [this] {
        CopyPositionInHand([](const TPositionInHand& position) { return position.fen; });
    });
    dispatcher.Add(TCommand::ShowPositionInNewInstance, [this] { ShowInNewInstance(); });
    for (const TCommand command :
         {TCommand::PriorityHigh, TCommand::PriorityAboveNormal, TCommand::PriorityNormal,
          TCommand::PriorityBelowNormal, TCommand::PriorityLow}) {
        dispatcher.Add(command, [this, command] { SetPriority(PriorityClassOf(command)); });
    }
    for (const int nProcessor : AllowedProcessors()) {
        if (const auto command = CommandOfProcessor(nProcessor)) {
            dispatcher.Add(*command, [this, nProcessor] { ToggleProcessor(nProcessor); });
        }
    }
}

void CSolveController::Start(bool bAllKeys) {
    Ended();  // the news of a solve that has just ended may still be on its way
    const TChessProblem& problem = *m_workbench.Document().Current();
    std::shared_ptr<CKeptRegister> pKept;
    if (!m_workbench.Options().clearRegisterOnStartSolving && IsOfShownProblem()) {
        pKept = m_session.Kept();
    }
    TSolveWish wish;
    wish.bAllKeys = bAllKeys;
    m_session.Start(problem, SettingsOf(m_workbench, m_priority), wish, std::move(pKept));
    m_nProblem = problem.m_id;
    m_board = *problem.m_pBoard;
    m_board.m_pPrevious = nullptr;
    m_bForget = false;
    m_answer.clear();
    m_key.reset();
    m_nPlyAtStart = m_workbench.Line().Ply();
    m_indicator.SolveStarted();
    m_frames.start();
    m_workbench.SetStatus(FilledText(
        UserText(m_nPlyAtStart == 0 ? SolvingProblemText : SolvingFromStartText),
        {std::to_string(m_nProblem), "#" + std::to_string(MovesOfStipulation(problem))}));
    emit indicatorChanged();
    emit runningChanged();
}

void CSolveController::StopAndForget() {
    m_bForget = true;
    m_session.Stop();
}

std::shared_ptr<CKeptRegister> CSolveController::GiveUpRegister() {
    return m_session.TakeKept();
}

void CSolveController::StopOneThread() {
    const TProgress progress = m_session.Progress();
    if (progress.threads.size() > 1) {
        m_session.StopThread(progress.peekedThread.value_or(progress.threads.back()));
    }
}

void CSolveController::CopyPositionInHand(std::string (*makeText)(const TPositionInHand&)) {
    const TPositionInHand position = m_session.PositionInHand();
    if (position.fen.empty()) {
        m_workbench.SetStatus(UserText(NoPositionInHandText));
        return;
    }
    QApplication::clipboard()->setText(QString::fromStdString(makeText(position)));
    m_workbench.SetStatus(UserText(CopiedText));
}

/// The file stays when the other instance ends: its user may have saved what he found.
void CSolveController::ShowInNewInstance() {
    const TPositionInHand position = m_session.PositionInHand();
    if (position.fen.empty()) {
        m_workbench.SetStatus(UserText(NoPositionInHandText));
        return;
    }
    const std::filesystem::path file =
        WriteTemporaryProblem(*NewProblemOf(position), m_workbench.Folders().data);
    const THomeFolders& folders = m_workbench.Folders();
    QStringList arguments = {QFile::decodeName(file.c_str())};
    if (folders.config == folders.data) {  // a home of its own, which the other one shares
        arguments << "--home" << QFile::decodeName(folders.config.c_str());
    }
    const QString program = QFile::decodeName(m_workbench.Program().c_str());
    if (program.isEmpty() || !QProcess::startDetached(program, arguments)) {
        throw ChessException(UserText(NoNewInstanceText));
    }
}

/// Threads may always step back; a system that lets nobody come forward lets a new solve begin there.
void CSolveController::SetPriority(TPriorityClass priority) {
    m_priority = priority;
    const TThreadPriority wanted = PriorityInClass(priority);
    const bool bDone = m_session.SetPriority(wanted);
    if (!IsPriorityAllowed(wanted)) {
        m_workbench.SetStatus(UserText(PriorityRefusedText));
    } else if (!bDone) {
        m_workbench.SetStatus(UserText(CannotSetPriorityText));
    }
}

void CSolveController::ToggleProcessor(int nProcessor) {
    std::vector<int> processors = AllowedProcessors();
    if (std::erase(processors, nProcessor) == 0) {
        processors.push_back(nProcessor);
    }
    if (processors.empty()) {
        m_workbench.SetStatus(UserText(OneProcessorText));
    } else {
        SetAllowedProcessors(processors);
    }
}

void CSolveController::ChangeThreads(int nDelta) {
    const int threads = m_workbench.Threads() + nDelta;
    if (threads < 1 || threads > MaxThreads) {
        m_workbench.SetStatus(UserText(TooManyThreadsText));
        return;
    }
    m_workbench.Threads() = threads;
    m_workbench.SetStatus(UserText(ThreadsNowText) + std::to_string(threads));
    m_workbench.StateChanged();
}

bool CSolveController::IsOfShownProblem() const {
    const TChessProblem* const pProblem = m_workbench.Document().Current();
    return pProblem != nullptr && pProblem->m_id == m_nProblem &&
           SameMen(*pProblem->m_pBoard, m_board) && pProblem->m_shPlies == m_board.m_shPlies;
}

const std::string& CSolveController::LastAnswer() const {
    static const std::string none;
    return IsOfShownProblem() ? m_answer : none;
}

const TAggregatedTemporaryChessboardRegister* CSolveController::Register() const {
    const std::shared_ptr<CKeptRegister> pKept = m_session.Kept();
    return pKept != nullptr && IsOfShownProblem() ? pKept->Register().get() : nullptr;
}

void CSolveController::ResultSeen() {
    const TIndicatorState before = m_indicator.State();
    m_indicator.Seen();
    if (m_indicator.State() != before) {
        emit indicatorChanged();
    }
}

void CSolveController::KeyFound(TMove key) {
    if (!m_bForget && m_session.IsRunning()) {
        m_workbench.SetStatus(
            FilledText(UserText(SolutionFoundText), {MoveToDisplayText(key, m_board)}));
    }
}

void CSolveController::AskAboutThreads(int threads) {
    if (!m_session.ThreadAdvice()) {
        return;  // stopped meanwhile
    }
    const std::string question = FilledText(UserText(ThreadAdviceText), {std::to_string(threads)});
    m_workbench.Dialog().AskLater(question, [this, nRun = m_session.RunNumber()](bool bYes) {
        if (nRun == m_session.RunNumber()) {
            m_session.AnswerAdvice(bYes);
        }
    });
}

void CSolveController::Ended() {
    const std::optional<TSolveOutcome> outcome = m_session.TakeOutcome();
    if (!outcome) {
        return;  // a new solve began before the message came
    }
    const TSolveStatus status = outcome->result.status;
    m_indicator.SolveEnded(status == TSolveStatus::Mate || status == TSolveStatus::NoMate);
    if (!m_indicator.NeedsTimer()) {
        m_frames.stop();
    }
    if (!m_bForget) {
        ShowResult(*outcome);
    }
    emit indicatorChanged();
    emit runningChanged();
    m_workbench.StateChanged();
}

void CSolveController::ShowResult(const TSolveOutcome& outcome) {
    const TResultView view = ResultView(outcome);
    for (const std::string& line : view.logLines) {
        LogApplicationEvent(m_workbench.Folders().LogFile(), "%s", line);
    }
    m_answer = view.statusText;
    const bool bShown = IsOfShownProblem();
    m_workbench.SetStatus(bShown ? view.statusText
                                 : FilledText(UserText(ProblemNumberText),
                                              {std::to_string(m_nProblem), view.statusText}));
    if (view.play && bShown) {
        m_key = view.play;
        m_flash = view.flash;
        m_nFlashStep = 0;
        FlashNext();
    }
    if (!view.boxText.empty()) {
        m_workbench.Dialog().TellLater(view.title, view.boxText);
    }
}

/// The key's fields are marked and unmarked by turns, then it is played, unless the user went on to
/// something else meanwhile.
void CSolveController::FlashNext() {
    if (!m_key || !IsOfShownProblem()) {
        m_key.reset();
        emit flashWanted(0);
        return;
    }
    if (m_nFlashStep == m_flash.size()) {
        emit flashWanted(0);
        PlayKey();
        return;
    }
    const TFlashStep& step = m_flash[m_nFlashStep++];
    emit flashWanted(step.bMarked ? FieldBit(m_key->from) | FieldBit(m_key->to) : 0);
    m_flashTimer.start(step.ms);
}

void CSolveController::PlayKey() {
    const TMove key = *m_key;
    m_key.reset();
    if (m_workbench.Line().Ply() != m_nPlyAtStart || QApplication::activeModalWidget() != nullptr) {
        return;  // the user plays moves of his own meanwhile, or is about to save them
    }
    const std::string status = m_answer;
    m_workbench.Line().GoTo(0);
    if (m_workbench.Play(key)) {
        m_workbench.SetStatus(status);
    }
}

}  // namespace tarnwick
