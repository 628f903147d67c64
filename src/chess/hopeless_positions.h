#pragma once
// Positions in which White's force cannot mate any more. Every answer is a proof for the plies left:
// only material is judged for which the field knows, and our tests count out, that no mate can be forced.

#include "chess/chessboard.h"

namespace tarnwick {

/// After a black move (White to move, m_shPlies already lowered and at least 3). Marks LoneMinorPiece.
bool IsHopelessForWhite(TChessboard& board) noexcept;

/// After a white move with at least two plies left: knights alone against a bare king mate only at
/// once, so a move that does not is useless.
bool IsUselessWhiteMove(TChessboard& board) noexcept;

/// Computes WrongBishopRookPawn anew from the men on the board.
void UpdateWrongBishopMark(TChessboard& board) noexcept;

/// White has only bishops, all on one colour, beside the king, and no other men.
bool HasOnlyOneColouredBishops(const TChessboard& board) noexcept;

}  // namespace tarnwick
