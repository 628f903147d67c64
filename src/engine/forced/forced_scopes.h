#pragma once
// What the forced search changes on a board or its thread for the time of a search below, put back at the
// end of the scope. Private to this folder.

#include "chess/mate_in_one.h"
#include "engine/heuristics/heuristic_bits.h"
#include "engine/search/find_mate.h"
#include "engine/search/search_scopes.h"

namespace tarnwick {

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
