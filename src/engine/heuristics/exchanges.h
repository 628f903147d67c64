#pragma once
// What a series of captures on one field wins, each side taking with its cheapest man and stopping when
// that is better. Pinned men do not take; a king takes last, where nobody takes back. In figure values
// (board_tables.h). Estimates for the heuristics: order is by value, not by line.

#include "chess/chessboard.h"

namespace tarnwick {

/// What White, to move, wins by taking the black man on the field; 0 when it is not worth it.
int GainByWhiteCapture(const TChessboard& board, int field) noexcept;

/// The same for Black and a white man.
int GainByBlackCapture(const TChessboard& board, int field) noexcept;

/// Black, to move, wins something by taking the white man that has just moved.
bool IsLastMovedManEnPrise(const TChessboard& board) noexcept;

/// Some unpinned white man, the king included, may take on the field.
bool CanWhiteTakeOn(const TChessboard& board, int field) noexcept;

}  // namespace tarnwick
