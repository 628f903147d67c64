#include "app/view/field_names.h"

#include <cstdlib>

#include "app/view/view_texts.h"
#include "chess/fen.h"

namespace tarnwick {
namespace {

const TUserText& ManText(TFigureCode code) {
    switch (static_cast<TFigureCode>(ColourOf(code) | TypeOf(code))) {
        case WhiteKing:
            return WhiteKingText;
        case WhiteQueen:
            return WhiteQueenText;
        case WhiteRook:
            return WhiteRookText;
        case WhiteBishop:
            return WhiteBishopText;
        case WhiteKnight:
            return WhiteKnightText;
        case WhitePawn:
            return WhitePawnText;
        case BlackKing:
            return BlackKingText;
        case BlackQueen:
            return BlackQueenText;
        case BlackRook:
            return BlackRookText;
        case BlackBishop:
            return BlackBishopText;
        case BlackKnight:
            return BlackKnightText;
        case BlackPawn:
            return BlackPawnText;
        default:
            return EmptyFieldText;
    }
}

void Append(std::string& sentence, const TUserText& part) {
    sentence += std::string(", ") + UserText(part);
}

bool HasLastMove(const TChessboard& board) {
    return board.m_pPrevious != nullptr;
}

/// The man and its way, or the castling.
std::string WayOf(TMove move, TFigureCode man) {
    std::string way = ManName(man);
    if (TypeOf(man) == TypeKing && std::abs(FileOf(move.to) - FileOf(move.from)) == 2) {
        Append(way, FileOf(move.to) == 6 ? ShortCastlingText : LongCastlingText);
        return way;
    }
    return way + " " + UserText(MoveFromText) + " " + FieldName(move.from) + " " +
           UserText(MoveToText) + " " + FieldName(move.to);
}

}  // namespace

std::string ManName(TFigureCode code) {
    return UserText(ManText(code));
}

std::string FieldNameForReader(const TChessboard& board, const CMoveDrag& drag, int field) {
    std::string name = FieldName(field) + ", " + ManName(board.m_fields[field]);
    if (drag.SelectedField() == field) {
        Append(name, SelectedFieldText);
    }
    if ((drag.Targets() & FieldBit(field)) != 0) {
        Append(name, TargetFieldText);
    }
    if (HasLastMove(board) && !board.m_lastMove.IsPass()) {
        if (board.m_lastMove.from == field) {
            Append(name, LastMoveFromText);
        }
        if (board.m_lastMove.to == field) {
            Append(name, LastMoveToText);
        }
    }
    return name;
}

std::string LastMoveForReader(const TChessboard& board) {
    if (!HasLastMove(board)) {
        return {};
    }
    const TMove move = board.m_lastMove;
    const TChessboard& before = *board.m_pPrevious;
    std::string sentence = std::string(UserText(LastMoveText)) + " ";
    if (move.IsPass()) {
        return sentence + UserText(PassText);
    }
    sentence += WayOf(move, before.m_fields[move.from]);
    const TField takenOn =
        move.IsEnPassant() ? FieldAt(FileOf(move.to), RankOf(move.from)) : move.to;
    if (before.m_fields[takenOn] != EmptyField) {
        Append(sentence, TakesText);
        sentence += " " + ManName(before.m_fields[takenOn]);
    }
    if (move.IsEnPassant()) {
        Append(sentence, EnPassantText);
    }
    if (move.PromotionType() != 0) {
        Append(sentence, PromotesText);
        sentence += " " + ManName(board.m_fields[move.to]);
    }
    const std::int8_t checker = IsWhiteToMove(board) ? board.m_whiteChecker : board.m_blackChecker;
    if (checker != NoChecker) {
        Append(sentence, CheckText);
    }
    return sentence;
}

std::string BoardForReader(const TChessboard& board) {
    std::string sentence = UserText(IsWhiteToMove(board) ? WhiteToMoveText : BlackToMoveText);
    const std::string last = LastMoveForReader(board);
    return last.empty() ? sentence : sentence + ". " + last;
}

}  // namespace tarnwick
