#pragma once
// White's moves that give check, and White's moves to one field. Pseudo-legal: pins and the safety of
// the white king are not tested. Every listed move does what is asked, and none that does is missing:
// moves of a man that attacks from its new field, moves that uncover a line, promotions by their kind, en
// passant that opens a line through either pawn, and castling.
//
// Castling checks with the rook: down its new file, or along the first rank through the field that the
// king has left.
//
// Men come in field order, targets of one man ascending; promotions expand to queen, rook, bishop,
// knight. Each list needs room for MaxMovesOfSide; the count is returned.

#include "chess/chessboard.h"
#include "chess/move_list.h"

namespace tarnwick {

/// All white moves that check the black king.
int GenerateWhiteChecks(const TChessboard& board, TMove* pList) noexcept;

/// All white moves that attack the field by the moved man or by an uncovered slider, as if the black king
/// stood there; a king's step beside the field does not count. The field may hold anything; a white man
/// on it is not moved, and moves to it are not listed.
int GenerateWhiteChecksOnField(const TChessboard& board, int file, int rank, TMove* pList) noexcept;

/// All white moves that end on the field, castling by the king's arrival included.
int GenerateWhiteMovesToField(const TChessboard& board, TMove* pList, int field) noexcept;

}  // namespace tarnwick
