#pragma once
// The sea snake: both sides are in zugzwang. Black is walled in but for one man, the pendulum, that
// swings between two fields; White's men must keep still, and only the king may walk. White wins by
// losing a tempo: the king goes round a triangle, so that it comes back one ply out of step and takes the
// pendulum's field, or guards it, at the moment when Black must go there.
//
// While the heuristic is in force White's other men move only to take, to check or to promote, and the
// king does not walk away from the triangle. When the king arrives at the approach field the plan is
// fulfilled, and the line below is free.

#include "chess/chessboard.h"
#include "engine/heuristics/special_heuristics.h"

namespace tarnwick {

/// Whether the position (White to move) is a sea snake. If so, fills the sea snake group of the
/// parameters: the pendulum's two fields, the king's approach field and its turn-back field, and sets
/// bSeaSnakeOn. Otherwise the parameters stay as they are. A root test: some microseconds.
bool DetectSeaSnake(const TChessboard& board, TSpecialHeuristics& parameters) noexcept;

/// The root of a sea snake that the user gave: fields that a list does not name, or left out, become those
/// of the detected one. Where none is detected they stay unknown, and then no plan is broken.
void CompleteSeaSnake(const TChessboard& root, TSpecialHeuristics& parameters) noexcept;

/// SH_SEASNAKE after White's move (Black to move): the plan is left. The caller has tested the bit, which
/// is cleared on the board, the key computed anew, when the king has arrived.
bool BreaksSeaSnakeAfterWhite(TChessboard& afterWhite) noexcept;

/// Whether White's move, on the board before it, may belong to the plan but for checks.
bool MayServeSeaSnake(const TChessboard& board, TMove move) noexcept;

/// The same after Black's move (White to move): the pendulum, or another figure, has got out and White
/// cannot take it.
bool BreaksSeaSnakeAfterBlack(const TChessboard& afterBlack) noexcept;

}  // namespace tarnwick
