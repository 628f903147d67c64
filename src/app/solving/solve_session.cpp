#include "app/solving/solve_session.h"

#include <algorithm>
#include <new>
#include <system_error>
#include <utility>

#include "base/chess_exception.h"

#include "app/solving/solving_texts.h"
#include "engine/engine_texts.h"
#include "engine/jobs/job_memory.h"
#include "engine/jobs/problem_job.h"
#include "engine/threads/context_pool.h"
#include "tables/register/global_register_set.h"

namespace tarnwick {
namespace {

/// Of all threads that search.
constexpr const char* ThreadName = "tarnwick-solver";

}  // namespace

CSolveSession::CSolveSession(TSolveEvents events) : m_events(std::move(events)) {}

CSolveSession::~CSolveSession() {
    m_bSilent = true;
    Stop();
    if (m_worker.joinable()) {
        m_worker.join();
    }
}

template <typename TEvent, typename... TArguments>
void CSolveSession::Tell(const TEvent& event, const TArguments&... arguments) const {
    if (event && !m_bSilent) {
        event(arguments...);
    }
}

// ---- The window's side

void CSolveSession::Start(const TChessProblem& problem, const TSolveSettings& settings,
                          const TSolveWish& wish, std::shared_ptr<CKeptRegister> pKept) {
    if (IsRunning()) {
        throw ChessException(UserText(SolvingPendingText));
    }
    if (problem.m_type != TProblemType::DirectMate || MovesOfStipulation(problem) < 1) {
        throw ChessException(UserText(NoDirectMateText));
    }
    if (m_worker.joinable()) {
        m_worker.join();
    }
    ++m_nRun;
    m_pOldTask = std::exchange(m_pTask, std::make_unique<TSolveTask>());
    m_pTask->m_options = JobOptions(problem, settings, wish);
    m_pTask->m_givenHeuristics = wish.givenHeuristics;
    m_pTask->m_threadPriority = settings.priority;
    m_pTask->m_pTables = settings.pTables;
    TakeHintsOfProblem(*m_pTask, problem, settings.bMainVariantHints);
    m_outcome = {};
    m_outcome.options = m_pTask->m_options;
    m_outcome.problemNumber = m_pTask->m_problemNumber;
    m_outcome.moves = MovesOfStipulation(problem);
    m_outcome.notes = {.bRelaxationOff = !wish.bLetRelaxHeuristics,
                       .bFinalPassOff = !wish.bRunPassWithoutHeuristics};
    m_outcome.board = *problem.m_pBoard;
    m_outcome.board.m_pPrevious = nullptr;
    m_outcome.board.m_pThread = nullptr;
    m_pLog = std::make_unique<CProgressLog>();
    m_pClock = std::make_unique<CSolveClock>();
    FillCallbacks(settings.bAskAboutThreads);
    m_bPaused = false;
    {
        const std::lock_guard guard(m_lock);
        m_pOldKept = std::exchange(m_pKept, std::move(pKept));
        m_advice.reset();
        m_bStopped = m_bOutcomeReady = false;
        m_bRunning = true;
    }
    try {
        m_worker = std::thread([this] { Run(); });
    } catch (const std::system_error&) {
        const std::lock_guard guard(m_lock);
        m_bRunning = false;
        throw ChessException(UserText(NoThreadText));
    }
}

void CSolveSession::Stop() noexcept {
    if (!IsRunning()) {
        return;
    }
    m_pTask->Stop();
    if (m_bPaused) {
        m_bPaused = false;
        m_pClock->Release();
    }
    {
        const std::lock_guard guard(m_lock);
        m_bStopped = true;
    }
    m_answered.notify_all();
}

void CSolveSession::Pause() {
    if (IsRunning() && !m_bPaused) {
        m_bPaused = true;
        m_pTask->Pause();
        m_pClock->Hold();
    }
}

void CSolveSession::Resume() {
    if (m_bPaused) {
        m_bPaused = false;
        m_pClock->Release();
        m_pTask->Resume();
    }
}

bool CSolveSession::SetPriority(TThreadPriority priority) noexcept {
    if (!IsRunning()) {
        return true;
    }
    const TThreadPriority before = m_pTask->m_threadPriority.exchange(priority);
    return ChangePriorityOfThreads(ThreadName, before, priority);
}

bool CSolveSession::StopThread(std::uint16_t number) {
    return IsRunning() && m_pTask->StopThread(number);
}

bool CSolveSession::IsRunning() const {
    const std::lock_guard guard(m_lock);
    return m_bRunning;
}

std::optional<int> CSolveSession::ThreadAdvice() const {
    const std::lock_guard guard(m_lock);
    return m_advice;
}

void CSolveSession::AnswerAdvice(bool bTakeIt) {
    {
        const std::lock_guard guard(m_lock);
        if (!m_advice) {
            return;
        }
        m_answer = bTakeIt;
    }
    m_answered.notify_all();
}

std::optional<std::uint16_t> CSolveSession::NextThreadToAsk(
    const std::vector<std::uint16_t>& threads) {
    if (m_peekedThread || threads.empty()) {
        return m_peekedThread;
    }
    const auto next = std::upper_bound(threads.begin(), threads.end(), m_lastAsked);
    m_lastAsked = next == threads.end() ? threads.front() : *next;
    return m_lastAsked;
}

TProgress CSolveSession::Progress() {
    TProgress progress;
    if (m_pTask == nullptr) {
        return progress;
    }
    progress.problemNumber = m_outcome.problemNumber;
    progress.moves = m_outcome.moves;
    progress.threads = m_pTask->m_running.Numbers();
    m_pLog->CopyTo(progress);
    progress.peekedThread = m_peekedThread;
    progress.line = m_pTask->m_line.Text();
    progress.nodes = m_pTask->m_workNodes.load(std::memory_order_relaxed);
    std::shared_ptr<CKeptRegister> pKept;
    {
        const std::lock_guard guard(m_lock);
        progress.bRunning = m_bRunning;
        progress.elapsedMs = m_bRunning ? m_pClock->ElapsedMs() : m_finalMs;
        pKept = m_pKept;
    }
    progress.bPaused = progress.bRunning && m_bPaused;
    if (pKept != nullptr) {
        progress.registerElements = pKept->Register()->ElementCount();
        m_nRegisterBytes = pKept->Register()->TotalBytesUsedSoon().value_or(m_nRegisterBytes);
        progress.registerBytes = m_nRegisterBytes;
    }
    if (const auto thread = NextThreadToAsk(progress.threads); thread && progress.bRunning) {
        m_pTask->m_line.Ask(*thread);  // The answer is for the next call.
    }
    return progress;
}

TPositionInHand CSolveSession::PositionInHand() const {
    return m_pTask == nullptr ? TPositionInHand() : m_pTask->m_line.Position();
}

std::optional<TSolveOutcome> CSolveSession::TakeOutcome() {
    {
        const std::lock_guard guard(m_lock);
        if (!m_bOutcomeReady) {
            return std::nullopt;
        }
        m_bOutcomeReady = false;
    }
    return std::move(m_outcome);
}

std::shared_ptr<CKeptRegister> CSolveSession::Kept() const {
    const std::lock_guard guard(m_lock);
    return m_pKept;
}

std::shared_ptr<CKeptRegister> CSolveSession::TakeKept() {
    const std::lock_guard guard(m_lock);
    return m_bRunning ? nullptr : std::exchange(m_pKept, nullptr);
}

// ---- The worker's side

void CSolveSession::FillCallbacks(bool bAskAboutThreads) {
    m_pLog->ListenTo(*m_pTask);
    TSolveCallbacks& callbacks = m_pTask->m_callbacks;
    callbacks.onSolution = [this](TMove key) {
        m_pLog->NoteKey(key);
        Tell(m_events.onSolution, key);
    };
    callbacks.onError = [this](const std::string& title, const std::string& text) {
        Tell(m_events.onError, title, text);
    };
    if (bAskAboutThreads && m_events.onThreadAdvice) {
        callbacks.onThreadAdvice = [this](int threads) { return AskForThreads(threads); };
    }
}

bool CSolveSession::AskForThreads(int threads) {
    {
        const std::lock_guard guard(m_lock);
        if (m_bStopped) {
            return false;
        }
        m_advice = threads;
        m_answer.reset();
    }
    m_pClock->Hold();
    Tell(m_events.onThreadAdvice, threads);
    std::unique_lock guard(m_lock);
    m_answered.wait(guard, [this] { return m_bStopped || m_answer; });
    const bool bTakeIt = !m_bStopped && *m_answer;
    m_advice.reset();
    guard.unlock();
    m_pClock->Release();
    return bTakeIt;
}

void CSolveSession::PrepareRegister() {
    const int plies = 2 * m_outcome.moves - 1;
    if (!UsesRegister(m_pTask->m_options, plies)) {
        return;
    }
    std::shared_ptr<CKeptRegister> pKept = Kept();
    if (pKept == nullptr) {
        pKept = std::make_shared<CKeptRegister>(m_pTask->m_options, plies);
    } else {
        pKept->Prepare(m_pTask->m_options, plies);
    }
    pKept->SetTellError([this](const std::string& title, const std::string& text) {
        Tell(m_events.onError, title, text);
    });
    m_pTask->m_pRegister = pKept->Register();
    const std::lock_guard guard(m_lock);
    m_pKept = std::move(pKept);
}

TSolveResult CSolveSession::Solve() {
    NameThisThread(ThreadName);  // The threads of the search inherit name and priority.
    SetPriorityOfThisThread(m_pTask->m_threadPriority);
    m_pOldTask.reset();
    m_pOldKept.reset();
    PrepareRegister();
    return StartSolving(*m_pTask, m_outcome.board, m_outcome.moves);
}

void CSolveSession::Run() {
    TSolveResult result;
    bool bError = true;
    try {
        result = Solve();
        bError = m_pTask->m_failedThreads > 0;
    } catch (const std::bad_alloc&) {
        result.message = UserText(OutOfMemoryText);
    } catch (const std::exception& fault) {
        result.message = ThreadErrorText(m_outcome.problemNumber, fault.what());
    }
    End(std::move(result), bError);
}

void CSolveSession::End(TSolveResult result, bool bError) {
    if (const auto pKept = Kept()) {
        pKept->SetTellError({});
    }
    m_pLog->NoteEnd();
    result.elapsedMs = m_pClock->ElapsedMs();
    {
        const std::lock_guard guard(m_lock);
        m_finalMs = result.elapsedMs;
        m_outcome.result = std::move(result);
        m_outcome.bEndedByError = bError;
        m_bRunning = false;
        m_bOutcomeReady = true;
    }
    Tell(m_events.onEnd);
}

}  // namespace tarnwick
