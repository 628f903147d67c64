#pragma once
// TThreadContext: all that one search thread owns. One per thread, made before the search and never
// resized in it.

#include <array>
#include <atomic>
#include <cstdint>

#include "chess/board_stack.h"
#include "engine/heuristics/special_heuristics.h"
#include "engine/jobs/solve_task.h"
#include "engine/ordering/order_hints.h"
#include "engine/search/position_memory.h"

namespace tarnwick {

class CHeldTables;
class TMovesLogger;
class TThreadLevel;

/// Levels of moves that take turns, in one thread at a time.
inline constexpr int MostLevelsPerThread = 12;

/// What the progress display and the scheduler need to know of a ply of the line in hand.
struct TPlyState {
    std::uint16_t moveIndex = 0;  ///< In the ordered list.
    std::uint16_t moveCount = 0;
    const TMove* pMoves = nullptr;  ///< On the stack of the node; valid while it runs.
};

struct TThreadContext : TBoardStack {
    /// memoryMiB: for the memory of positions. Throws ChessException when there is no memory.
    TThreadContext(TSolveTask& task, std::size_t memoryMiB);
    ~TThreadContext() override;

    /// Ready to search below a node of the parent's: what the search below needs to know of the line
    /// above is copied, what the thread learned before it keeps.
    void StartAsChildOf(const TThreadContext& parent, std::uint16_t number, int forkDepth);

    /// Before the thread waits: others may want the memory of the tables that it has in hand.
    void GiveTablesBack() noexcept;

    TSolveTask& m_task;
    std::uint16_t m_shThreadNumber = 0;
    std::uint16_t m_threadsPerLevel = 1;
    int m_forkDepth = 0;                       ///< Levels between the root's threads and this one.
    std::atomic<std::uint8_t> m_pauseFlag{0};  ///< 0 run, 1 paused, 2 or more stop.
    bool m_bStopFromOutside =
        false;  ///< The stop for this thread is the user's. Under m_running's lock.
    /// Stops of this thread or of threads below it that came from outside of the search: what they left
    /// open is no proof, so nothing is stored any more.
    std::uint32_t m_outsideStops = 0;
    /// Levels that nodes of this thread have made, the nearest to the root first. Changed by this thread,
    /// read by others, under the job's m_levelsLock.
    std::array<TThreadLevel*, MostLevelsPerThread> m_levels{};
    int m_levelCount = 0;
    TThreadLevel* m_pOwnLevel = nullptr;  ///< The one that this thread takes its turns in; or null.
    TChessboard m_forkBoard{};            ///< Where this thread's search begins.
    TMove m_mateOfSlice{};                ///< White's mating move in a node with preset moves.
    std::array<TPlyState, MaxPlies> m_plies{};

    TAggregatedTemporaryChessboardRegister* m_pRegister = nullptr;  ///< The job's; null: not used.
    std::unique_ptr<TMovesLogger> m_pLogger;  ///< Null unless moves are logged.

    /// Parameters of the pass. Those of the root's thread are relaxed between passes, and each thread
    /// begins a pass, or a fork, with a copy.
    TSpecialHeuristics m_heuristics;
    bool m_bInForcedLevel = false;  ///< Working below a node of forcing moves only.

    // Moves handed to this thread in place of a node's own list; the node takes them and clears them.
    int m_presetMoveCount = 0;
    const TMove* m_pPresetMoveList = nullptr;

    // LookForQuickerMate. Additional moves: how much longer than asked a mate may take that a register
    // or table knows of, because so many plies are truly left.
    int m_quickerMateNesting = 0;
    int m_additionalMoves = 0;
    int m_quickerMateStartPlies = 0;
    std::uint64_t m_nodesAtQuickerMate = 0;  ///< m_nodes where the outermost one began.
    bool m_bUsedAdditionalMoves = false;
    /// White's last mate answered a promotion by capturing the promoted figure.
    bool m_bMateCapturedPromotion = false;

    TOrderHints m_hints;
    TPositionMemory m_memory;
    std::unique_ptr<CHeldTables> m_pTables;  ///< The job's precalculated tables; null: none.

    // Counted here and added to the job in batches, so that leaves touch no shared memory.
    std::uint64_t m_nodes = 0;
    std::uint64_t m_workNodes = 0;
    std::uint64_t m_tableHits = 0;
    std::uint64_t m_nodesTold = 0;  ///< Part of the counters the job already has.
    std::uint64_t m_workNodesTold = 0;
    std::uint64_t m_tableHitsTold = 0;
};

inline TThreadContext& Thread(const TChessboard& board) {
    return static_cast<TThreadContext&>(*board.m_pThread);
}

}  // namespace tarnwick
