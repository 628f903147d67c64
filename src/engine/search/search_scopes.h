#pragma once
// What a search beside the line of the solution changes on a board or its thread, put back at the end of
// the scope.

#include "engine/heuristics/heuristic_key.h"
#include "engine/search/thread_context.h"

namespace tarnwick {

/// Work beside the line of the solution: not shown as progress, not logged, not spread over threads, and
/// with no trial inside it.
class CNestedWork {
  public:
    explicit CNestedWork(const TChessboard& board) noexcept
        : m_thread(Thread(board)), m_nodes(m_thread.m_nodes) {
        if (m_thread.m_quickerMateNesting++ == 0) {
            m_thread.m_quickerMateStartPlies = board.m_shPlies;
            m_thread.m_nodesAtQuickerMate = m_nodes;
        }
    }
    ~CNestedWork() {
        --m_thread.m_quickerMateNesting;
        m_thread.m_nodes = m_nodes;
    }
    CNestedWork(const CNestedWork&) = delete;
    CNestedWork& operator=(const CNestedWork&) = delete;

  private:
    TThreadContext& m_thread;
    const std::uint64_t m_nodes;
};

/// The plies left, for a search to a smaller depth.
class CPliesScope {
  public:
    explicit CPliesScope(TChessboard& board) noexcept : m_board(board), m_plies(board.m_shPlies) {}
    ~CPliesScope() { m_board.m_shPlies = m_plies; }
    CPliesScope(const CPliesScope&) = delete;
    CPliesScope& operator=(const CPliesScope&) = delete;

    /// So many plies from here on. What the line repeated above stays known.
    void Set(int plies) noexcept {
        auto& limits = Thread(m_board).m_repetitionLimit;
        limits[static_cast<std::size_t>(plies)] = limits[m_plies];
        m_board.m_shPlies = static_cast<std::uint16_t>(plies);
    }

  private:
    TChessboard& m_board;
    const std::uint16_t m_plies;
};

/// The set of heuristics of one board, with its key.
class CHeuristicsScope {
  public:
    CHeuristicsScope(TChessboard& board, std::uint32_t mask) noexcept
        : m_board(board), m_mask(board.m_heuristicFlags.Raw()), m_key(board.m_heuristicKey) {
        SetHeuristics(board, mask);
    }
    ~CHeuristicsScope() {
        m_board.m_heuristicFlags.SetRaw(m_mask);
        m_board.m_heuristicKey = m_key;
    }
    CHeuristicsScope(const CHeuristicsScope&) = delete;
    CHeuristicsScope& operator=(const CHeuristicsScope&) = delete;

  private:
    TChessboard& m_board;
    const std::uint32_t m_mask;
    const std::uint32_t m_key;
};

}  // namespace tarnwick
