#pragma once
// SH_SINGLEQUEENMATE: every man but the white queen and the black king has a job to do and must keep
// still; the queen alone hunts the king through the fields that are left, and mates it in a blind alley.

#include "chess/chessboard.h"

namespace tarnwick {

/// Fields that the white king, to move, may not enter while the heuristic is in force; none in check.
/// The parameters' table number says how much the others may stir: 0 not at all, 1 to capture, 2 the king
/// beside its root field too, 3 pawns too.
TFieldSet FieldsForbiddenToWhiteKing(const TChessboard& board) noexcept;

/// After White's move: a man that should have kept still moved, without check and without need.
bool StirsBesideQueen(const TChessboard& afterWhite) noexcept;

/// After Black's move: the queen is gone, or a black figure moved and White cannot take it.
bool IsQueenHuntOver(const TChessboard& afterBlack) noexcept;

}  // namespace tarnwick
