#pragma once
// SH_ZUGZWANGTRIANGLES: the white king loses a move on a triangle of fields to pass the turn to Black.

#include "chess/chessboard.h"

namespace tarnwick {

/// The two fields of the parameters and the white king's own, or the third if it stands on one of them,
/// still make a triangle that the king can walk: neighbours of each other, with no white man in the way
/// and not attacked by Black. False when the fields are not set.
bool CanKingWalkTriangle(const TChessboard& board) noexcept;

/// After a black move with the bit set: clears it, and computes the key anew, when the test fails.
void UpdateZugzwangTriangles(TChessboard& afterBlack) noexcept;

}  // namespace tarnwick
