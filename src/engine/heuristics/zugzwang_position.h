#pragma once
// SH_ZUGZWANG: the root position would be won with Black to move. White loses a move, so that after a
// given number of his moves the same men stand on the same fields, and Black is in zugzwang.
//
// The position to return to is the root's, the number of moves ZugzwangReturnMoves; 0 is never broken.

#include "chess/chessboard.h"

namespace tarnwick {

/// After White's move: the men can no longer be back in time, or are not back when they should be.
bool MissesZugzwangPosition(const TChessboard& afterWhite) noexcept;

/// After Black's move: Black himself can no longer be back in time. Then the plan says nothing about the
/// line below.
bool HasBlackLeftZugzwangPlan(const TChessboard& afterBlack) noexcept;

/// Whether White's move may belong to the plan at all: no capture, no pawn move, while the position is
/// yet to return.
bool MayServeZugzwang(const TChessboard& board, TMove move) noexcept;

}  // namespace tarnwick
