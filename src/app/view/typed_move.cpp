#include "app/view/typed_move.h"

#include <algorithm>
#include <cstdlib>

#include "chess/fen.h"
#include "chess/legal_moves.h"

namespace tarnwick {
namespace {

constexpr std::string_view PassedOver = " -x:=+#!?";

/// Capital English letter of a type, none for a pawn.
std::string LetterOf(TFigureCode type) {
    switch (type) {
        case TypeKing:
            return "K";
        case TypeQueen:
            return "Q";
        case TypeRook:
            return "R";
        case TypeBishop:
            return "B";
        case TypeKnight:
            return "N";
        default:
            return "";
    }
}

/// Files small, figures as capital English letters, castling with zeros, no signs.
std::string Normalised(std::string_view text) {
    std::string result;
    for (const char c : text) {
        const bool bFile = c >= 'a' && c <= 'h';
        const TFigureCode type = bFile ? EmptyField : FigureTypeOfLetter(c);
        if (PassedOver.find(c) != std::string_view::npos) {
            continue;
        }
        if (c == 'o' || c == 'O') {
            result += '0';
        } else if (type != EmptyField && type != TypePawn) {
            result += LetterOf(type);
        } else if (type != TypePawn) {
            result += c;
        }
    }
    return result;
}

/// All ways to write the move. Whether a short one is ambiguous shows when two moves share it.
std::vector<std::string> SpellingsOf(TMove move, TFigureCode man) {
    const std::string from = FieldName(move.from);
    const std::string to = FieldName(move.to);
    const std::string letter = LetterOf(TypeOf(man));
    const std::string promoted = LetterOf(move.PromotionType());
    std::vector<std::string> spellings = {from + to + promoted};
    if (move.PromotionType() == TypeBishop) {
        spellings.push_back(from + to + "b");  // no file can follow here
    }
    if (TypeOf(man) == TypePawn) {
        const bool bTakes = FileOf(move.from) != FileOf(move.to);
        spellings.push_back((bTakes ? from.substr(0, 1) : "") + to + promoted);
        return spellings;
    }
    if (TypeOf(man) == TypeKing && std::abs(FileOf(move.from) - FileOf(move.to)) == 2) {
        spellings.emplace_back(FileOf(move.to) == 6 ? "00" : "000");
    }
    for (const std::string& origin : {from, from.substr(0, 1), from.substr(1), std::string()}) {
        spellings.push_back(letter + origin + to);
    }
    return spellings;
}

}  // namespace

TTypedMoves ReadTypedMove(const TChessboard& board, std::string_view text) {
    const std::string typed = Normalised(text);
    TTypedMoves result;
    for (const TMove move : LegalMoves(board)) {
        bool bExact = false;
        bool bLonger = false;
        for (const std::string& spelling : SpellingsOf(move, board.m_fields[move.from])) {
            bExact |= spelling == typed;
            bLonger |= spelling.size() > typed.size() && spelling.starts_with(typed);
        }
        if (bExact) {
            result.exact.push_back(move);
        }
        result.bMayContinue |= bLonger;
    }
    return result;
}

bool IsMoveCharacter(char32_t character) {
    constexpr std::u32string_view Taken = U"abcdefgh12345678KQRBNPWGHSkqrnpwsoO0-x:=";
    return Taken.find(character) != std::u32string_view::npos;
}

}  // namespace tarnwick
