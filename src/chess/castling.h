#pragma once
// Castling. Rights are read from the root position and the line of play: king and rook must stand at
// home now and in the root board, and no move of the line may have ended on either home field. A
// problem's own position therefore allows every castling that its placing of king and rooks suggests.

#include "chess/chessboard.h"

namespace tarnwick {

enum class TCastling : std::uint8_t {
    WhiteShort,
    WhiteLong,
    BlackShort,
    BlackLong
};

/// Fields of one castling.
struct TCastlingFields {
    TField kingFrom, kingTo, rookFrom, rookTo;
    TFigureCode king, rook;
    TFieldSet mustBeEmpty;
};
const TCastlingFields& FieldsOf(TCastling castling);

/// Men at home and clean history, without regard to attacked or occupied fields.
bool HasCastlingRight(const TChessboard& board, TCastling castling);
/// All conditions: the right, empty fields between, king not in check, crossed and target fields not
/// attacked. The checker of the castling side must be valid.
bool CanCastle(const TChessboard& board, TCastling castling);

/// The root board that castling is judged against: the thread's, or the end of the history chain.
const TChessboard& CastlingRoot(const TChessboard& board);

/// True when no castling right and no en-passant capture exist that the fields do not tell: the last
/// move was no double step beside an enemy pawn, and the rights that the placing suggests are in force.
bool IsPositionFullyDescribed(const TChessboard& board);

}  // namespace tarnwick
