#pragma once
// CSolveSession: one problem being solved behind the window.
//
// The window owns a session for each problem that it solves and calls it from its one thread; the session
// runs the job on a worker of lower priority and copies all it needs of the problem, so that the user may
// go on browsing and editing. No operation waits for the search: a stop is asked for and comes as onEnd.
// Only the end of the session waits until the worker has left, some milliseconds.
//
// Only the window's thread may call the session. What the worker shares with it: the job, whose state
// is made for that, the log of its progress, and what stands under m_lock.

#include <atomic>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>

#include "app/solving/kept_register.h"
#include "app/solving/progress_snapshot.h"
#include "app/solving/solve_clock.h"
#include "app/solving/solve_settings.h"

namespace tarnwick {

class CSolveSession {
  public:
    explicit CSolveSession(TSolveEvents events);
    /// Stops what runs and waits for its end.
    ~CSolveSession();
    CSolveSession(const CSolveSession&) = delete;
    CSolveSession& operator=(const CSolveSession&) = delete;

    /// Starts to solve, as a run of a new number; an outcome that nobody has taken is dropped. pKept: what an earlier solve of this
    /// problem remembers; null begins with nothing. Throws ChessException when a solve is running, for
    /// a problem that asks for no direct mate, or when the machine has no thread left.
    void Start(const TChessProblem& problem, const TSolveSettings& settings, const TSolveWish& wish,
               std::shared_ptr<CKeptRegister> pKept = nullptr);

    /// All of them do nothing when nothing runs.
    void Stop() noexcept;
    void Pause();
    void Resume();
    /// From now on, also for the threads that run already. False if the system refused that for some of
    /// these: coming forward again needs a right.
    bool SetPriority(TThreadPriority priority) noexcept;
    /// One search thread; its moves stay undecided. False if there is no such thread.
    bool StopThread(std::uint16_t number);

    /// Rises with each Start; in an event it is the number of the run that tells it. What the window hears
    /// late of an earlier run is known by it.
    std::uint64_t RunNumber() const { return m_nRun; }
    bool IsRunning() const;
    bool IsPaused() const { return m_bPaused && IsRunning(); }

    /// The number of threads that the engine proposes and waits for an answer to. A stop answers too.
    std::optional<int> ThreadAdvice() const;
    void AnswerAdvice(bool bTakeIt);

    /// Whose line Progress is to show; nothing: that of all threads in turn.
    void Peek(std::optional<std::uint16_t> thread) { m_peekedThread = thread; }
    /// What that line has come to; of the last one after the end.
    TPositionInHand PositionInHand() const;
    /// Takes microseconds. After the end: how the solve ended.
    TProgress Progress();

    /// Once, after the end; nothing while the solve runs and when there was none.
    std::optional<TSolveOutcome> TakeOutcome();
    /// For the next solve of the problem and for questions about its positions; null before the first
    /// solve, and for problems so short that they are solved without.
    std::shared_ptr<CKeptRegister> Kept() const;
    /// The same, and the session has none any more; null while a solve runs.
    std::shared_ptr<CKeptRegister> TakeKept();

  private:
    void Run();
    TSolveResult Solve();
    void PrepareRegister();
    void FillCallbacks(bool bAskAboutThreads);
    bool AskForThreads(int threads);
    void End(TSolveResult result, bool bError);
    std::optional<std::uint16_t> NextThreadToAsk(const std::vector<std::uint16_t>& threads);
    template <typename TEvent, typename... TArguments>
    void Tell(const TEvent& event, const TArguments&... arguments) const;

    const TSolveEvents m_events;

    // Filled by Start, then left alone until the worker has ended.
    std::unique_ptr<TSolveTask> m_pTask;
    std::unique_ptr<CProgressLog> m_pLog;
    std::unique_ptr<CSolveClock> m_pClock;
    TSolveOutcome m_outcome;
    std::uint64_t m_nRun = 0;
    /// Of the solve before: a large register takes long to free, so the worker does it.
    std::shared_ptr<CKeptRegister> m_pOldKept;
    std::unique_ptr<TSolveTask> m_pOldTask;

    // The window's.
    std::uint64_t m_nRegisterBytes = 0;  ///< When the register last had time to tell.
    bool m_bPaused = false;
    std::optional<std::uint16_t> m_peekedThread;
    std::uint16_t m_lastAsked = 0;

    mutable std::mutex m_lock;
    std::condition_variable m_answered;
    std::shared_ptr<CKeptRegister> m_pKept;
    std::optional<int> m_advice;   ///< A question that waits.
    std::optional<bool> m_answer;  ///< To that question.
    bool m_bStopped = false;       ///< No further question.
    bool m_bRunning = false;
    bool m_bOutcomeReady = false;
    std::uint64_t m_finalMs = 0;
    std::atomic<bool> m_bSilent{false};  ///< The session's end has begun.

    std::thread m_worker;
};

}  // namespace tarnwick
