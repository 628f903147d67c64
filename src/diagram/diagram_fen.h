#pragma once
// The position inside a picture. A diagram that leaves the program carries its FEN, so that it comes back
// exactly as it went, without a look at its pixels.
//
//     <metadata><tarnwick:position ...><tarnwick:fen>7k/8/... w - - 0 1</tarnwick:fen></...>   in SVG
//     <desc>FEN: 7k/8/... w - - 0 1</desc>                                                     for readers
//     a text chunk with the keyword "FEN"                                                      in PNG

#include <optional>
#include <string>
#include <string_view>

#include "chess/chessboard.h"

namespace tarnwick {

/// The six words of a FEN for a picture of the board: side to move, castling, en passant and both counters
/// as the typed text gives them where it gives them in proper form, else as WriteFen does. The typed text
/// may be empty.
std::string DiagramFen(const TChessboard& board, std::string_view typed = {});

/// The FEN of an SVG or PNG file, as it was put in; it passes ReadFen. Nothing for a picture without one,
/// with one that ReadFen refuses, and for any other bytes. Of an SVG file the element "fen" of any prefix
/// is taken, and where a program that cleans files has removed it, the description.
std::optional<std::string> ReadDiagramFen(std::string_view bytes);

/// The PNG picture with the FEN in it, in place of one that it had. Throws ChessException NotAPngText.
std::string AddFenToPng(std::string_view bytes, std::string_view fen);

}  // namespace tarnwick
