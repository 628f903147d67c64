#pragma once
// Moves as text in full notation, and back. A move always names both fields: "Ra1:a8", "a7-a8Q", "0-0".

#include <string>
#include <string_view>

#include "chess/chessboard.h"

namespace tarnwick {

/// What a move's text says, before any board is asked.
struct TMoveText {
    TMove move;
    TFigureCode namedType =
        TypePawn;            ///< Type of the man that the text names; no letter is a pawn.
    bool bCastling = false;  ///< Written as "0-0" or "0-0-0".
};

/// At most seven characters. movedCode is the man before the move. A pass is "-"; a king that goes two
/// files or more castles, short if to the g-file. A code that is no figure shows as "E".
std::string MoveToFullText(TMove move, TFigureCode movedCode, bool bCapture);

/// The same text, with the man and the capture read from the board, on which the move has not been made
/// yet. Castling is short if it goes to the right.
std::string MoveToDisplayText(TMove move, const TChessboard& board);

/// Reads a text in full notation with blanks around. A figure letter in front and a promotion letter
/// behind may be of either alphabet and case (fen.h); any one byte separates the fields. "0-0" and
/// "0-0-0" are the king's move of the side that bWhite names. Nothing is checked against a position.
///
/// Throws ChessException "Empty string", "Improper string length", "Improper full description of move"
/// (also for a promotion to king or pawn, which no make operation could take) or "Unknown figure
/// letter: ".
TMoveText ReadMoveText(std::string_view text, bool bWhite);

/// ReadMoveText for callers that need the move alone. After an exception the move is as it was.
void ParseFullMove(TMove& move, std::string_view text, bool bWhite);

}  // namespace tarnwick
