#pragma once
// The legal moves of the position on screen, for marks on the board and for moves that are typed.
// A list costs some tens of microseconds: one for each move of the user, not for each of the search.

#include <vector>

#include "chess/chessboard.h"

namespace tarnwick {

/// All moves that the rules of chess allow the side to move, a promotion four times. The board must
/// be a prepared position; castling and en passant follow from its history.
std::vector<TMove> LegalMoves(const TChessboard& board);

/// Those of the man on one field; none for an empty field or a man of the other side.
std::vector<TMove> LegalMovesFrom(const TChessboard& board, int field);

}  // namespace tarnwick
