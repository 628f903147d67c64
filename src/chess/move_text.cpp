#include "chess/move_text.h"

#include <cstdlib>

#include "base/chess_exception.h"

#include "chess/board_tables.h"
#include "chess/fen.h"
#include "chess/notation_texts.h"
#include "chess/trimmed_text.h"

namespace tarnwick {
namespace {

constexpr std::string_view ShortCastling = "0-0";
constexpr std::string_view LongCastling = "0-0-0";

bool IsLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

int FilesBetween(TMove move) {
    return std::abs(FileOf(move.to) - FileOf(move.from));
}

/// Upper case whatever the colour.
char LetterOf(TFigureCode code) {
    return CodeToLetter[TypeOf(code)];
}

TMoveText Castling(bool bShort, bool bWhite) {
    const TField king = bWhite ? E1 : E8;
    const int shift = bShort ? 2 : -2;
    return {.move = {.from = king, .to = static_cast<TField>(king + shift)},
            .namedType = TypeKing,
            .bCastling = true};
}

TFigureCode PromotionOf(char letter) {
    const TFigureCode type = FigureCodeFromLetter(letter);
    if (type == TypeKing || type == TypePawn) {
        throw ChessException(UserText(FullMoveText));
    }
    return type;
}

}  // namespace

std::string MoveToFullText(TMove move, TFigureCode movedCode, bool bCapture) {
    if (move.IsPass()) {
        return "-";
    }
    const TFigureCode type = TypeOf(movedCode);
    if (type == TypeKing && FilesBetween(move) >= 2) {
        return std::string(FileOf(move.to) == FileOf(G1) ? ShortCastling : LongCastling);
    }
    std::string text;
    if (type != TypePawn) {
        text += LetterOf(type);
    }
    text += FieldName(move.from) + (bCapture ? ':' : '-') + FieldName(move.to);
    if (move.PromotionType() != 0) {
        text += LetterOf(move.PromotionType());
    }
    return text;
}

std::string MoveToDisplayText(TMove move, const TChessboard& board) {
    const TFigureCode moved = board.m_fields[move.from];
    if (TypeOf(moved) == TypeKing && FilesBetween(move) >= 2) {
        return std::string(move.to > move.from ? ShortCastling : LongCastling);
    }
    const bool bEnPassant = TypeOf(moved) == TypePawn && FilesBetween(move) == 1;
    return MoveToFullText(move, moved, bEnPassant || board.m_fields[move.to] != EmptyField);
}

TMoveText ReadMoveText(std::string_view text, bool bWhite) {
    text = Trimmed(text);
    if (text.empty()) {
        throw ChessException(UserText(EmptyStringText));
    }
    if (text == ShortCastling || text == LongCastling) {
        return Castling(text == ShortCastling, bWhite);
    }
    TMoveText read;
    if (IsLetter(text.back())) {
        read.move.promotion = PromotionOf(text.back());
        text.remove_suffix(1);
    }
    if (text.size() == 6 && FigureTypeOfLetter(text.front()) != 0) {
        read.namedType = FigureCodeFromLetter(text.front());
        text.remove_prefix(1);
    }
    if (text.size() != 5) {
        throw ChessException(UserText(MoveLengthText));
    }
    if (!BeginsWithField(text) || !BeginsWithField(text.substr(3))) {
        throw ChessException(UserText(FullMoveText));
    }
    read.move.from = String2Field(text);
    read.move.to = String2Field(text.substr(3));
    return read;
}

void ParseFullMove(TMove& move, std::string_view text, bool bWhite) {
    move = ReadMoveText(text, bWhite).move;
}

}  // namespace tarnwick
