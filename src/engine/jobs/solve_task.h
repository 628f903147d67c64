#pragma once
// TSolveTask: one solving job, shared by everything that works on it. Boards point to it. It is made by
// the caller of StartSolving, may be watched and stopped from other threads while it runs, and must
// outlive the run. One task is one run: counters and the stop are not reset.

#include <atomic>
#include <cstdint>
#include <functional>
#include <vector>

#include "chess/chessboard.h"
#include "chess/start_position.h"
#include "engine/engine_options.h"
#include "engine/ordering/sort_hints.h"

namespace tarnwick {

enum class TEngineState : std::uint8_t {
    Run = 0,
    Pause = 1,
    ManualCommand = 2,
    Stop = 3
};

inline constexpr std::uint16_t AllThreads = 65535;

/// How a job reports. All run on the solving thread and may be empty.
struct TSolveCallbacks {
    /// A first move is taken in hand: its index from 0, the number of first moves, the pass.
    std::function<void(TMove move, int index, int count, int pass)> onFirstMove;
    /// Now and then from deep in the search, for observers that must be kept alive.
    std::function<void()> onDeepNode;
    /// A key was found.
    std::function<void(TMove key)> onSolution;
};

struct TSolveTask {
    TEngineOptions m_options;
    TSolveCallbacks m_callbacks;
    TSortHints m_sortHints;        ///< The user's hints for the order of White's moves.
    std::uint16_t m_shPlies = 0;   ///< 2n - 1.
    TMaterialRecord m_material{};  ///< Men of the original position.
    std::uint16_t m_shRepetitionFrom =
        0;  ///< No earlier position above these plies is a repetition.
    bool m_bSafeMode = true;

    std::atomic<TEngineState> m_engineState{TEngineState::Run};
    std::atomic<std::uint16_t> m_shTargetThread{AllThreads};
    /// Visits near the leaves without quicker-mate work: the engine's own progress figure.
    std::atomic<std::uint64_t> m_nodes{0};
    /// The same with all work, which the command line shows and limits. Both lag a few thousand behind while the search runs.
    std::atomic<std::uint64_t> m_workNodes{0};
    std::atomic<bool> m_bLimitReached{false};  ///< The stop came from the time or node limit.
    std::int64_t m_startMs = 0;                ///< Clock at the first move.

    /// Any thread: every thread of the job leaves its search at the next move.
    void Stop() {
        m_shTargetThread = AllThreads;
        m_engineState = TEngineState::Stop;
    }
    /// Pause and Resume have no effect on a stopped job.
    void Pause() { ChangeState(TEngineState::Run, TEngineState::Pause); }
    void Resume() { ChangeState(TEngineState::Pause, TEngineState::Run); }
    bool IsStopped() const { return m_engineState == TEngineState::Stop; }

  private:
    void ChangeState(TEngineState from, TEngineState to) {
        m_engineState.compare_exchange_strong(from, to);
    }
};

}  // namespace tarnwick
