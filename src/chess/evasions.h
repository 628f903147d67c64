#pragma once
// Replies to a check, made directly instead of by filtering all moves.

#include "chess/chessboard.h"
#include "chess/move_list.h"

namespace tarnwick {

/// The side to move is in check. King moves (as generated, not tested for safety), then, unless the
/// check is double, captures of the checker, interpositions from the king outward, and en passant when
/// the checker is the pawn that has just double-stepped. Pinned men are not filtered: the make
/// operations refuse them. Room for MaxMovesOfSide.
int GenerateWhiteEvasions(const TChessboard& board, TMove* pList);
int GenerateBlackEvasions(const TChessboard& board, TMove* pList);

}  // namespace tarnwick
