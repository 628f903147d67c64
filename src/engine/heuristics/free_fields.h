#pragma once
// How much room the black king has. A free field is a neighbour of the black king that holds no black man
// and that White does not attack, the king itself lifted off the board.

#include "chess/chessboard.h"

namespace tarnwick {

/// The free fields around the black king as a set.
TFieldSet FreeFields(const TChessboard& board) noexcept;

/// Their number, 0 to 8.
int CountFreeFields(const TChessboard& board) noexcept;

/// The same with all free fields on edge lines counted as one.
int CountFreeFieldsEdgeWeighted(const TChessboard& board) noexcept;

}  // namespace tarnwick
