#pragma once
// The checks of the special heuristics after each move of a pass with heuristics. A broken heuristic
// means that the mate is doubtful: White's move, or the line after Black's, is not searched further, and
// the node above ends in doubtful instead of no mate.
//
// Bits are tested before anything else, so that an empty set costs one test. No check can make a mate or
// a refutation; mates at once are never broken.

#include "chess/chessboard.h"

namespace tarnwick {

/// The child after White's move (m_lastMove), Black to move, m_pPrevious the board before it. Works in
/// the slots below the child. May mark the child as relaxed by an advanced pawn, and clear SH_SEASNAKE
/// when its plan is fulfilled.
bool BreaksHeuristicsAfterWhite(TChessboard& child) noexcept;

/// The child after Black's move, White to move. May clear SH_ZUGZWANG when Black has left its plan. To be
/// called before the registers are asked, because the key may change.
bool BreaksHeuristicsAfterBlack(TChessboard& child) noexcept;

}  // namespace tarnwick
