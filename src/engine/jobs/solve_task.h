#pragma once
// TSolveTask: one solving job, shared by everything that works on it. Boards point to it. It is made by
// the caller of StartSolving, may be watched, paused and stopped from other threads while it runs, and
// must outlive the run. One task is one run: counters and the stop are not reset.

#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "platform/thread_priority.h"

#include "chess/chessboard.h"
#include "chess/start_position.h"
#include "engine/engine_options.h"
#include "engine/heuristics/heuristic_list.h"
#include "engine/heuristics/special_heuristics.h"
#include "engine/jobs/engine_control.h"
#include "engine/jobs/progress_text.h"
#include "engine/ordering/sort_hints.h"
#include "engine/threads/running_threads.h"
#include "registers/aggregated_register.h"

namespace tarnwick {

class TContextPool;
class TGlobalRegisterSet;

/// How a job reports. Each may be empty. They are called from the search threads, one call at a time,
/// and must return soon; they may stop, pause and resume the job, but not call StopThread, which waits
/// for threads that may be waiting to report.
struct TSolveCallbacks {
    /// A first move is taken in hand: its index from 0, the number of first moves, the pass.
    std::function<void(TMove move, int index, int count, int pass)> onFirstMove;
    /// Now and then from deep in the search, for observers that must be kept alive. Must not throw.
    std::function<void()> onDeepNode;
    /// A key was found.
    std::function<void(TMove key)> onSolution;
    /// Something went wrong that the user has to know: title and text.
    std::function<void(const std::string& title, const std::string& text)> onError;
    /// A pass begins: its name and the list of its heuristics, empty without.
    std::function<void(const std::string& name, const std::string& heuristics)> onPass;
    /// A line for the solving output or the status: the analysis at work, safe mode, a step of relaxation
    /// that depended on time.
    std::function<void(const std::string& text)> onText;
    /// Once a second while the job waits for its threads.
    std::function<void(const std::string& text)> onWaiting;
    /// The engine would rather have that many threads. True: take them. Called from the thread of
    /// StartSolving; the time until it answers does not count as solving time.
    std::function<bool(int threads)> onThreadAdvice;
};

struct TSolveTask {
    TSolveTask();
    ~TSolveTask();
    TSolveTask(const TSolveTask&) = delete;
    TSolveTask& operator=(const TSolveTask&) = delete;

    // ---- Filled by the caller
    TEngineOptions m_options;
    TSolveCallbacks m_callbacks;
    /// With THeuristicsFrom::User: the set of the first pass.
    THeuristicSet m_givenHeuristics;
    /// Changes that the problem itself wants to the chosen set. Empty: none. May throw ChessException.
    std::function<void(THeuristicSet&)> m_adjustHeuristics;
    TSortHints m_sortHints;             ///< The user's hints for the order of White's moves.
    std::uint32_t m_problemNumber = 0;  ///< In its file; names the logs.
    bool m_bMirrored = false;           ///< The run on the board mirrored a-h.
    /// The store of solved subpositions. The caller may give one that knows something already; otherwise
    /// the job makes its own when the problem is long enough to use it.
    std::shared_ptr<TAggregatedTemporaryChessboardRegister> m_pRegister;
    /// Answers of earlier runs of this problem, its root position set; null: every run searches.
    std::shared_ptr<TChessboardRegister<bool>> m_resultsCache;

    /// Precalculated tables; null: none are asked. Jobs may share them.
    std::shared_ptr<TGlobalRegisterSet> m_pTables;

    // ---- Set by StartSolving
    std::uint16_t m_shPlies = 0;                             ///< 2n - 1.
    TMaterialRecord m_material{};                            ///< Men of the original position.
    std::uint32_t m_whiteMaterial = 0, m_blackMaterial = 0;  ///< Queen 9, rook 5, figure 3, pawn 1.
    /// No earlier position above these plies is a repetition.
    std::uint16_t m_shRepetitionFrom = 0;
    bool m_bSafeMode = true;
    /// The analysis found that the black king can hardly be held on the edge.
    bool m_bEdgeHardToHold = false;
    std::uint16_t m_threadCount = 1;          ///< Threads at the root, and of each further level.
    std::uint8_t m_multithreadingLevels = 1;  ///< White moves from the root that are spread.
    std::uint16_t m_forcedThreads = 0;  ///< Above 1 once the user has taken the engine's advice.
    /// White moves behind those whose moves take turns, 0 to 9; 0: no scheduler at all.
    std::uint8_t m_schedulerLevels = 0;
    bool m_bCustomScheduler = false;  ///< Turns also further down, where hints name several moves.
    int m_maxRunningThreads = 0;      ///< Threads that may take turns or wait for theirs.
    std::atomic<TThreadPriority> m_threadPriority = TThreadPriority::Normal;
    std::int64_t m_startMs = 0;  ///< Clock at the first move.
    std::unique_ptr<TContextPool> m_pContexts;

    // ---- While it runs
    TEngineControl m_control;
    TRunningThreads m_running{m_control};
    std::mutex m_levelsLock;  ///< Guards the levels of threads that take turns; see thread_level.h.
    std::atomic<int> m_juggledThreads{0};  ///< Those that m_maxRunningThreads limits.
    /// Turns that ran out, and moves that were given turns, since the start: what the scheduler does.
    std::atomic<std::uint64_t> m_turnsRunOut{0};
    std::atomic<std::uint64_t> m_movesInTurns{0};
    TLineInHand m_line;  ///< For who wants to see what a thread is looking at.
    /// Visits near the leaves without quicker-mate work: the engine's own progress figure.
    std::atomic<std::uint64_t> m_nodes{0};
    /// The same with all work, which the command line shows and limits. Both lag a few thousand behind
    /// while the search runs.
    std::atomic<std::uint64_t> m_workNodes{0};
    std::atomic<std::uint64_t> m_tableHits{
        0};  ///< Answers of precalculated tables; lags behind, too.
    std::atomic<bool> m_bLimitReached{false};  ///< The stop came from the time or node limit.
    /// Threads that could not be made or ended by an exception.
    std::atomic<std::uint32_t> m_failedThreads{0};

    /// Calls back, if somebody wants to know.
    template <typename TCallback, typename... TArguments>
    void Report(const TCallback& callback, const TArguments&... arguments) {
        if (callback) {
            const std::lock_guard guard(m_reportLock);
            callback(arguments...);
        }
    }
    void CallObserver() noexcept { Report(m_callbacks.onDeepNode); }

    /// Any thread: every thread of the job leaves its search at the next move.
    void Stop() { m_control.StopAll(); }
    /// Pause and Resume have no effect on a stopped job.
    void Pause() { m_control.Pause(); }
    void Resume() { m_control.Resume(); }
    bool IsStopped() const { return m_control.IsStopForAll(); }
    /// Stops one running thread; the others go on. What it was searching stays open, so the job cannot
    /// end with "no mate" any more. False if no thread of this number runs.
    bool StopThread(std::uint16_t number) { return m_running.Stop(number); }

  private:
    std::mutex m_reportLock;
};

}  // namespace tarnwick
