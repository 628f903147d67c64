#pragma once
// Heuristics that a node of the first moves switches on for what is below it, because the position has
// become of another kind there: men that have been shut in are followed, or the black king that has been
// driven to the edge is no longer to move at all.

#include <array>

#include "chess/chessboard.h"
#include "engine/heuristics/special_heuristics.h"

namespace tarnwick {

/// After a black move: the move has shut in black men around their king, all queens and rooks among
/// them, so that SH_DONTLETFIGUREUNBLOCK suits the position. Few men can then defend.
bool CanUnblockBeSetDynamically(const TChessboard& afterBlack) noexcept;

/// bUnblockDynamic: White to move mates although the men that Black has just shut in are followed. False
/// when that does not apply, or the search says no; the node then goes on as usual. Searches the child
/// to its depth; board and parameters are put back.
bool MatesWithTrackedFields(TChessboard& child) noexcept;

/// bHeuristicsFallback: after White's move, whether the king has just come to the edge and is held there,
/// so that the reply is searched first with SH_KEEPKINGONTHEEDGE and bKingStrict.
bool CanFallBack(const TChessboard& afterWhite) noexcept;

/// After White's move, near the root: CanFallBack, and White mates with that set. False says nothing.
/// Searches the child to its depth, without a log; board and parameters are put back.
bool MatesWithStrictEdge(TChessboard& afterWhite) noexcept;

/// The strict edge on a board and its thread, for the time of a search; put back at the end. The king is
/// to stay where it stands now.
class CStrictEdgeScope {
  public:
    explicit CStrictEdgeScope(TChessboard& board) noexcept;
    ~CStrictEdgeScope();
    CStrictEdgeScope(const CStrictEdgeScope&) = delete;
    CStrictEdgeScope& operator=(const CStrictEdgeScope&) = delete;

  private:
    TChessboard& m_board;
    const std::uint32_t m_mask;
    const std::uint32_t m_key;
    const TSpecialHeuristics m_parameters;
};

/// The blocked men of a board followed, for the time of a search. Board and parameters are put back at the
/// end, the men that were followed before included.
class CFollowedMenScope {
  public:
    explicit CFollowedMenScope(TChessboard& board) noexcept;
    ~CFollowedMenScope();
    CFollowedMenScope(const CFollowedMenScope&) = delete;
    CFollowedMenScope& operator=(const CFollowedMenScope&) = delete;

  private:
    TChessboard& m_board;
    const std::uint32_t m_mask;
    const std::uint32_t m_key;
    const TSpecialHeuristics m_parameters;
    std::array<TField, MaxTrackedMen> m_trackedFields;
};

}  // namespace tarnwick
