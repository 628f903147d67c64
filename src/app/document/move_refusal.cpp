#include "app/document/move_refusal.h"

#include <algorithm>
#include <cstdlib>
#include <vector>

#include "base/chess_exception.h"
#include "base/filled_text.h"

#include "app/document/play_texts.h"
#include "app/view/typed_move.h"
#include "chess/castling.h"
#include "chess/fen.h"
#include "chess/generate_moves.h"
#include "chess/legal_moves.h"
#include "chess/move_text.h"
#include "chess/trimmed_text.h"

namespace tarnwick {
namespace {

bool IsInCheck(const TChessboard& board) {
    return (IsWhiteToMove(board) ? board.m_whiteChecker : board.m_blackChecker) != NoChecker;
}

bool IsCastlingTry(const TChessboard& board, TMove move) {
    const TField home = IsWhiteToMove(board) ? E1 : E8;
    return TypeOf(board.m_fields[move.from]) == TypeKing && move.from == home &&
           std::abs(move.to - move.from) == 2;
}

TMoveRefusal WhyNoCastling(const TChessboard& board, TMove move) {
    const bool bShort = move.to > move.from;
    const TCastling castling = IsWhiteToMove(board)
                                   ? (bShort ? TCastling::WhiteShort : TCastling::WhiteLong)
                                   : (bShort ? TCastling::BlackShort : TCastling::BlackLong);
    if (!HasCastlingRight(board, castling)) {
        return TMoveRefusal::CastlingHasMoved;
    }
    if ((OccupiedFields(board) & FieldsOf(castling).mustBeEmpty) != 0) {
        return TMoveRefusal::CastlingBlocked;
    }
    return IsInCheck(board) ? TMoveRefusal::CastlingInCheck : TMoveRefusal::CastlingAttacked;
}

bool IsLine(int files, int ranks) {
    return files == 0 || ranks == 0;
}

bool IsDiagonal(int files, int ranks) {
    return std::abs(files) == std::abs(ranks);
}

/// Whether the man could make the move if the fields between were empty.
bool GoesThereWhenFree(const TChessboard& board, TMove move) {
    const TFigureCode code = board.m_fields[move.from];
    const int files = FileOf(move.to) - FileOf(move.from);
    const int ranks = RankOf(move.to) - RankOf(move.from);
    switch (TypeOf(code)) {
        case TypeQueen:
            return IsLine(files, ranks) || IsDiagonal(files, ranks);
        case TypeRook:
            return IsLine(files, ranks);
        case TypeBishop:
            return IsDiagonal(files, ranks);
        case TypePawn: {
            const int forward = IsWhite(code) ? 1 : -1;
            const int homeRank = IsWhite(code) ? 1 : 6;
            return files == 0 &&
                   (ranks == forward || (ranks == 2 * forward && RankOf(move.from) == homeRank));
        }
        default:
            return false;  // nothing can stand in the way of a king or a knight
    }
}

/// The move is not even pseudo-legal.
TMoveRefusal WhyMisplaced(const TChessboard& board, TMove move) {
    const TFigureCode moved = board.m_fields[move.from];
    const TFigureCode target = board.m_fields[move.to];
    if (ColourOf(target) == ColourOf(moved)) {
        return TMoveRefusal::OwnManThere;
    }
    if (IsCastlingTry(board, move)) {
        return WhyNoCastling(board, move);
    }
    return GoesThereWhenFree(board, move) ? TMoveRefusal::WayBlocked : TMoveRefusal::CannotGoThere;
}

/// The move is pseudo-legal and leaves the own king in check.
TMoveRefusal WhyUnsafe(const TChessboard& board, TMove move) {
    if (TypeOf(board.m_fields[move.from]) == TypeKing) {
        return TMoveRefusal::KingIntoCheck;
    }
    return IsInCheck(board) ? TMoveRefusal::StillInCheck : TMoveRefusal::Pinned;
}

/// The pseudo-legal moves of the man.
std::vector<TMove> MovesOfMan(const TChessboard& board, TField from) {
    TMove list[MaxMovesOfMan];
    const int count = IsWhiteToMove(board) ? GenerateWhiteMoves(board, from, list)
                                           : GenerateBlackMoves(board, from, list);
    return {list, list + count};
}

std::string ListOfMoves(const TChessboard& board, const std::vector<TMove>& moves) {
    std::string list;
    for (const TMove move : moves) {
        list += (list.empty() ? "" : ", ") + MoveToDisplayText(move, board);
    }
    return list;
}

/// Both fields of a text that names them, as "e2e4", "Qd1-d8" or "e7-e8Q" do.
bool ReadBothFields(std::string_view text, TMove& move) {
    std::vector<TField> fields;
    for (std::size_t i = 0; i + 1 < text.size(); ++i) {
        if (BeginsWithField(text.substr(i))) {
            fields.push_back(String2Field(text.substr(i)));
            ++i;
        }
    }
    if (fields.size() != 2) {
        return false;
    }
    move = {.from = fields[0], .to = fields[1]};
    if (BeginsWithField(text.substr(text.size() - 2))) {
        return true;
    }
    const TFigureCode type = FigureTypeOfLetter(text.back());
    move.promotion = type == TypeKing || type == TypePawn ? TFigureCode{0} : type;
    return true;
}

[[noreturn]] void ThrowNoTypedMove(const TChessboard& board, std::string_view text) {
    if (text.starts_with("0-0") || text.starts_with("O-O")) {
        const TField home = IsWhiteToMove(board) ? E1 : E8;
        const TMove castling{.from = home,
                             .to = static_cast<TField>(home + (text.size() >= 5 ? -2 : 2))};
        throw ChessException(TextOfRefusal(WhyNoCastling(board, castling), board, castling));
    }
    const bool bSeemsMove = std::ranges::any_of(text, [](char c) { return c >= '1' && c <= '8'; });
    throw ChessException(
        FilledText(bSeemsMove ? NobodyGoesThereText : UnknownMoveText, {std::string(text)}));
}

}  // namespace

TMoveRefusal WhyIllegal(const TChessboard& board, TMove move) {
    const TFigureCode moved = board.m_fields[move.from];
    if (moved == EmptyField) {
        return TMoveRefusal::NoManThere;
    }
    if (IsWhite(moved) != IsWhiteToMove(board)) {
        return TMoveRefusal::WrongSide;
    }
    std::vector<TMove> moves = MovesOfMan(board, move.from);
    std::erase_if(moves, [&](TMove m) { return m.to != move.to; });
    if (moves.empty()) {
        return WhyMisplaced(board, move);
    }
    if (std::ranges::none_of(moves, [&](TMove m) { return m.SameAs(move); })) {
        return move.PromotionType() == 0 ? TMoveRefusal::PromotionMissing
                                         : TMoveRefusal::PromotionWhereNone;
    }
    const std::vector<TMove> legal = LegalMovesFrom(board, move.from);
    const bool bLegal = std::ranges::any_of(legal, [&](TMove m) { return m.SameAs(move); });
    return bLegal ? TMoveRefusal::None : WhyUnsafe(board, move);
}

std::string TextOfRefusal(TMoveRefusal refusal, const TChessboard& board, TMove move) {
    const std::string from = FieldName(move.from);
    const std::string to = FieldName(move.to);
    switch (refusal) {
        case TMoveRefusal::NoManThere:
            return FilledText(NoManThereText, {from});
        case TMoveRefusal::WrongSide:
            return UserText(IsWhiteToMove(board) ? WhitesTurnText : BlacksTurnText);
        case TMoveRefusal::OwnManThere:
            return FilledText(OwnManThereText, {to});
        case TMoveRefusal::CannotGoThere:
            return FilledText(CannotGoThereText, {from, to});
        case TMoveRefusal::WayBlocked:
            return FilledText(WayBlockedText, {from, to});
        case TMoveRefusal::StillInCheck:
            return UserText(StillInCheckText);
        case TMoveRefusal::KingIntoCheck:
            return FilledText(KingIntoCheckText, {to});
        case TMoveRefusal::Pinned:
            return FilledText(PinnedText, {from});
        case TMoveRefusal::PromotionMissing:
            return UserText(NameThePromotionText);
        case TMoveRefusal::PromotionWhereNone:
            return UserText(NoPromotionHereText);
        case TMoveRefusal::CastlingHasMoved:
            return UserText(CastlingHasMovedText);
        case TMoveRefusal::CastlingBlocked:
            return UserText(CastlingBlockedText);
        case TMoveRefusal::CastlingInCheck:
            return UserText(CastlingInCheckText);
        case TMoveRefusal::CastlingAttacked:
            return UserText(CastlingAttackedText);
        default:
            return {};
    }
}

TMove MoveOfTypedText(const TChessboard& board, std::string_view text) {
    text = Trimmed(text);
    const TTypedMoves typed = ReadTypedMove(board, text);
    if (typed.exact.size() == 1) {
        return typed.exact.front();
    }
    if (typed.exact.size() > 1) {
        throw ChessException(FilledText(AmbiguousMoveText, {ListOfMoves(board, typed.exact)}));
    }
    TMove named;
    if (ReadBothFields(text, named)) {
        const TMoveRefusal refusal = WhyIllegal(board, named);
        if (refusal != TMoveRefusal::None) {
            throw ChessException(TextOfRefusal(refusal, board, named));
        }
    }
    ThrowNoTypedMove(board, text);
}

}  // namespace tarnwick
