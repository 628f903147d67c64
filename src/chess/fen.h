#pragma once
// Positions, fields and figures as text, and back.
//
// Only the placement of the men makes a position here. A FEN may also name the side to move, castlings
// and an en-passant field, but a problem is always told with White to move, all castlings that its men
// allow, and no en passant in the first move. What a FEN says against that is reported, not applied.

#include <string>
#include <string_view>

#include "chess/chessboard.h"

namespace tarnwick {

/// Type of the figure that the letter names in English (K P B R Q N) or Polish (K P G W H S), either
/// case; 0 for any other character.
TFigureCode FigureTypeOfLetter(char letter) noexcept;

/// The same, but throws ChessException "Unknown figure letter: " + the letter.
TFigureCode FigureCodeFromLetter(char letter);

/// Whether the text begins with a file a-h, either case, and a rank 1-8.
bool BeginsWithField(std::string_view text) noexcept;

/// The field that the first two characters name; the rest is not looked at. Throws ChessException
/// "Error in String2Field() " + the text.
TField String2Field(std::string_view text);

/// Name of the field, "a1" to "h8".
std::string FieldName(int field);

/// Reads a position: a whole FEN or its placement alone, with blanks around.
///
/// False when the text is no FEN. Throws what PreparePosition throws when the placement is well-formed
/// but no position. In both cases the board stays as it was. A board that was read is fresh: no job,
/// thread or history, one ply to play (so that White moves).
///
/// bCastlingWithheld: the men allow a castling that the text does not grant. bEnPassantGiven: the text
/// names an en-passant field. If any is set, the user should see FenNoteText (notation_texts.h). A
/// placement alone withholds nothing.
bool ReadFen(TChessboard& board, std::string_view text, bool& bCastlingWithheld,
             bool& bEnPassantGiven);

/// The position as FEN. The full form reads the side from m_shPlies, castling rights and the en-passant
/// field from the history; the field is named after any double step, whether or not a pawn can take
/// there. The half-move clock is always 0, moves count from the root.
std::string WriteFen(const TChessboard& board, bool bPlacementOnly);

}  // namespace tarnwick
