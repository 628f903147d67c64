#pragma once
// The legal moves of a position, for a board on screen, moves that are typed, and notation that depends on them.
// A list costs some tens of microseconds: the search has its own generators.

#include <vector>

#include "chess/chessboard.h"

namespace tarnwick {

/// All moves that the rules of chess allow the side to move, a promotion four times. The board must
/// be a prepared position; castling and en passant follow from its history.
std::vector<TMove> LegalMoves(const TChessboard& board);

/// Those of the man on one field; none for an empty field or a man of the other side.
std::vector<TMove> LegalMovesFrom(const TChessboard& board, int field);

}  // namespace tarnwick
