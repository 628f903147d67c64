#pragma once
// Stop, pause, limits and the counting of nodes, as the node functions see them.

#include "engine/search/thread_context.h"

namespace tarnwick {

/// A stop for this thread or for all is in force.
inline bool IsStopRequested(const TThreadContext& thread) noexcept {
    return thread.m_pauseFlag.load(std::memory_order_relaxed) > 1 ||
           thread.m_task.m_control.IsStopFor(thread.m_shThreadNumber);
}

/// Sleeps while the job or this thread is paused. True when the node has to leave.
bool WaitOrLeave(TThreadContext& thread) noexcept;

/// 0 run, 1 paused, 2 stop. A thread that was paused goes on, or leaves, at once. Who pauses a thread has
/// to let it go again or stop it, also when all are stopped: it sees nothing else meanwhile.
void SetPauseFlag(TThreadContext& thread, std::uint8_t flag) noexcept;

/// The test at the head of each move: one load while the engine runs.
inline bool MustLeave(TThreadContext& thread) noexcept {
    if (thread.m_task.m_control.IsRunning() &&
        thread.m_pauseFlag.load(std::memory_order_relaxed) == 0) [[likely]] {
        return false;
    }
    return WaitOrLeave(thread);
}

/// Adds what was counted since the last call to the job's counters and stops the job at a limit.
void TellNodesAndCheckLimits(TThreadContext& thread) noexcept;
/// The same, and gives the line of play that led to the board to who asked for it.
void LookAround(TThreadContext& thread, const TChessboard& board) noexcept;

/// Leaf visits between two looks at clock and limits: well under a millisecond of work.
inline constexpr std::uint64_t NodesPerLook = 2048;

inline void CountNode(TThreadContext& thread, const TChessboard& board) noexcept {
    ++thread.m_nodes;
    if ((++thread.m_workNodes & (NodesPerLook - 1)) == 0) {
        LookAround(thread, board);
    }
}

}  // namespace tarnwick
