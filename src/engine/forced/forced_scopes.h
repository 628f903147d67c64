#pragma once
// What the forced search changes on a board or its thread for the time of a search below, put back at the
// end of the scope. Private to this folder.

#include "chess/mate_in_one.h"
#include "engine/heuristics/heuristic_bits.h"
#include "engine/heuristics/heuristic_key.h"
#include "engine/search/find_mate.h"
#include "engine/search/thread_context.h"

namespace tarnwick {

/// Work beside the line of the solution: not shown as progress, not logged, not spread over threads.
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

/// The set of heuristics of one board.
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

/// The level of the thread, and the board's key with it.
class CForcedLevelScope {
  public:
    CForcedLevelScope(TChessboard& board, TForcedLevel level) noexcept
        : m_board(board),
          m_level(Thread(board).m_heuristics.ForcedLevel),
          m_key(board.m_heuristicKey) {
        Thread(board).m_heuristics.ForcedLevel = level;
        UpdateHeurParams(board);
    }
    ~CForcedLevelScope() {
        Thread(m_board).m_heuristics.ForcedLevel = m_level;
        m_board.m_heuristicKey = m_key;
    }
    CForcedLevelScope(const CForcedLevelScope&) = delete;
    CForcedLevelScope& operator=(const CForcedLevelScope&) = delete;

  private:
    TChessboard& m_board;
    const TForcedLevel m_level;
    const std::uint32_t m_key;
};

/// Below a node of forcing moves.
class CInForcedLevel {
  public:
    explicit CInForcedLevel(TThreadContext& thread) noexcept
        : m_thread(thread), m_bBefore(thread.m_bInForcedLevel) {
        thread.m_bInForcedLevel = true;
    }
    ~CInForcedLevel() { m_thread.m_bInForcedLevel = m_bBefore; }
    CInForcedLevel(const CInForcedLevel&) = delete;
    CInForcedLevel& operator=(const CInForcedLevel&) = delete;

  private:
    TThreadContext& m_thread;
    const bool m_bBefore;
};

/// White mates in two or less, all moves considered and whatever heuristics are in force: what is stored
/// on the way is exact. At least 3 plies left.
inline bool IsExactMateInTwo(TChessboard& board) noexcept {
    const CHeuristicsScope none(board, 0);
    return IsWhiteMateInTwo(board);
}

}  // namespace tarnwick
