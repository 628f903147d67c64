#include "chess/board_text.h"

#include <algorithm>
#include <array>

#include "chess/board_tables.h"

namespace tarnwick {
namespace {

/// The signs that a picture is put together from.
struct TSigns {
    const char *topLeft, *topRight, *bottomLeft, *bottomRight, *across, *down;
    const char* darkBeside;  ///< Left and right of the man of a dark field.
    const char* darkEmpty;   ///< In the middle of an empty dark field.
};

// Unshaded, a dark field shows only while it is empty; a point is enough to count fields by.
constexpr TSigns AsciiSigns = {"+", "+", "+", "+", "-", "|", " ", "."};
constexpr TSigns ShadedSigns = {"┌", "┐", "└", "┘", "─", "│", "░", "░"};

constexpr const char* FilesLine = "     a  b  c  d  e  f  g  h";

std::string EdgeLine(const char* left, const TSigns& signs, const char* right) {
    std::string line = std::string("   ") + left;
    for (int i = 0; i < 3 * 8; ++i) {
        line += signs.across;
    }
    return line + right + '\n';
}

/// The figure of Unicode: those of Black are the full ones.
const char* UnicodeFigure(TFigureCode code) {
    const bool bWhite = IsWhite(code);
    switch (TypeOf(code)) {
        case TypeKing:
            return bWhite ? "♔" : "♚";
        case TypeQueen:
            return bWhite ? "♕" : "♛";
        case TypeRook:
            return bWhite ? "♖" : "♜";
        case TypeBishop:
            return bWhite ? "♗" : "♝";
        case TypeKnight:
            return bWhite ? "♘" : "♞";
        case TypePawn:
            return bWhite ? "♙" : "♟";
        default:
            return "?";
    }
}

/// Three columns: the man with what is left and right of it.
std::string Cell(const TChessboard& board, int field, const TSigns& signs, bool bFigures) {
    const TFigureCode code = board.m_fields[field];
    const bool bDark = ColourParity(field) == 0;
    const std::string beside = bDark ? signs.darkBeside : " ";
    std::string man = bDark ? signs.darkEmpty : " ";
    if (code != EmptyField) {
        man = bFigures ? UnicodeFigure(code) : std::string(1, CodeToLetter[code]);
    }
    return beside + man + beside;
}

/// "(5+3)": White's men and Black's, the kings included.
std::string MenText(const TChessboard& board) {
    const auto white = std::ranges::count_if(board.m_fields, IsWhite);
    const auto black = std::ranges::count_if(board.m_fields, IsBlack);
    return '(' + std::to_string(white) + '+' + std::to_string(black) + ')';
}

}  // namespace

std::string DrawBoard(const TChessboard& board, TBoardStyle style) {
    const TSigns& signs = style == TBoardStyle::Ascii ? AsciiSigns : ShadedSigns;
    std::string text = EdgeLine(signs.topLeft, signs, signs.topRight);
    for (int rank = 7; rank >= 0; --rank) {
        text += std::string(" ") + static_cast<char>('1' + rank) + ' ' + signs.down;
        for (int file = 0; file < 8; ++file) {
            text += Cell(board, FieldAt(file, rank), signs, style == TBoardStyle::Figures);
        }
        text += std::string(signs.down) + '\n';
    }
    text += EdgeLine(signs.bottomLeft, signs, signs.bottomRight);
    return text + FilesLine + "   " + MenText(board) + '\n';
}

}  // namespace tarnwick
