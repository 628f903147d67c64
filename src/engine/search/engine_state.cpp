#include "engine/search/engine_state.h"

#include <chrono>
#include <thread>

#include "platform/clock.h"

namespace tarnwick {
namespace {

/// A stop of a paused job shall be answered at once.
constexpr std::chrono::milliseconds PollEvery{10};

}  // namespace

bool WaitOrLeave(TThreadContext& thread) noexcept {
    thread.GiveTablesBack();  // Others may want their memory meanwhile.
    while (!IsStopRequested(thread)) {
        if (thread.m_task.m_control.IsPaused()) {
            std::this_thread::sleep_for(PollEvery);
        } else if (thread.m_pauseFlag.load(std::memory_order_relaxed) == 1) {
            thread.m_pauseFlag.wait(1);  // Hundreds of threads may wait for their turn: none polls.
        } else {
            return false;
        }
    }
    return true;
}

void SetPauseFlag(TThreadContext& thread, std::uint8_t flag) noexcept {
    thread.m_pauseFlag.store(flag, std::memory_order_relaxed);
    thread.m_pauseFlag.notify_all();
}

void TellNodesAndCheckLimits(TThreadContext& thread) noexcept {
    TSolveTask& task = thread.m_task;
    // Quicker-mate work is taken back from m_nodes at its end, so it is not told while it lasts: what
    // the user sees never falls.
    const std::uint64_t nodes =
        thread.m_quickerMateNesting > 0 ? thread.m_nodesAtQuickerMate : thread.m_nodes;
    task.m_nodes.fetch_add(nodes - thread.m_nodesTold, std::memory_order_relaxed);
    task.m_workNodes.fetch_add(thread.m_workNodes - thread.m_workNodesTold,
                               std::memory_order_relaxed);
    task.m_tableHits.fetch_add(thread.m_tableHits - thread.m_tableHitsTold,
                               std::memory_order_relaxed);
    thread.m_nodesTold = nodes;
    thread.m_tableHitsTold = thread.m_tableHits;
    thread.m_workNodesTold = thread.m_workNodes;

    const TEngineOptions& options = task.m_options;
    const bool bTimeOver =
        options.timeLimitMs != 0 &&
        static_cast<std::uint64_t>(NowMs() - task.m_startMs) >= options.timeLimitMs;
    const bool bNodesOver = options.nodeLimit != 0 &&
                            task.m_workNodes.load(std::memory_order_relaxed) >= options.nodeLimit;
    if ((bTimeOver || bNodesOver) && !task.IsStopped()) {
        task.m_bLimitReached = true;
        task.Stop();
    }
}

void LookAround(TThreadContext& thread, const TChessboard& board) noexcept {
    TellNodesAndCheckLimits(thread);
    thread.m_task.m_line.AnswerIfAsked(thread.m_shThreadNumber, board);
}

}  // namespace tarnwick
