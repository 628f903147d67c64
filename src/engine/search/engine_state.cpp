#include "engine/search/engine_state.h"

#include <chrono>
#include <thread>

#include "platform/clock.h"

namespace tarnwick {

bool WaitOrLeave(TThreadContext& thread) noexcept {
    while (!IsStopRequested(thread)) {
        const bool bJobPaused =
            thread.m_task.m_engineState.load(std::memory_order_relaxed) == TEngineState::Pause;
        const bool bThreadPaused = thread.m_pauseFlag.load(std::memory_order_relaxed) != 0;
        if (!bJobPaused && !bThreadPaused) {
            return false;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(bThreadPaused ? 10 : 100));
    }
    return true;
}

void TellNodesAndCheckLimits(TThreadContext& thread) noexcept {
    TSolveTask& task = thread.m_task;
    // Quicker-mate work is taken back from m_nodes, so that the difference can be negative: unsigned
    // arithmetic wraps to the right sum.
    task.m_nodes.fetch_add(thread.m_nodes - thread.m_nodesTold, std::memory_order_relaxed);
    task.m_workNodes.fetch_add(thread.m_workNodes - thread.m_workNodesTold,
                               std::memory_order_relaxed);
    thread.m_nodesTold = thread.m_nodes;
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

}  // namespace tarnwick
