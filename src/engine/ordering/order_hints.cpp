#include "engine/ordering/order_hints.h"

#include <algorithm>

#include "chess/board_tables.h"
#include "chess/lines.h"

namespace tarnwick {
namespace {

bool SlidesTo(const TChessboard& board, TFigureCode type, TMove move) {
    const TFieldSet rays = ((type & TypeBishop) != 0 ? DiagonalRays[move.from] : 0) |
                           ((type & TypeRook) != 0 ? StraightRays[move.from] : 0);
    return (rays & FieldBit(move.to)) != 0 &&
           (Between(move.from, move.to) & OccupiedFields(board)) == 0;
}

bool FigureGoesTo(const TChessboard& board, TFigureCode type, TMove move) {
    switch (type) {
        case TypeKnight:
            return (KnightFields[move.from] & FieldBit(move.to)) != 0;
        case TypeKing:
            return (KingFields[move.from] & FieldBit(move.to)) != 0;
        default:
            return SlidesTo(board, type, move);
    }
}

/// Straight pawn moves; `step` is 8 or -8.
bool PawnStepsTo(const TChessboard& board, TMove move, int step, int homeRank) {
    const int ahead = move.from + step;
    if (board.m_fields[ahead] != EmptyField) {
        return false;
    }
    return move.to == ahead || (RankOf(move.from) == homeRank && move.to == ahead + step &&
                                board.m_fields[move.to] == EmptyField);
}

bool PromotionFits(TMove move) {
    return (RankOf(move.to) == 0 || RankOf(move.to) == 7) == (move.PromotionType() != 0);
}

}  // namespace

bool IsPossibleBlackHint(const TChessboard& board, TMove move) noexcept {
    const TFigureCode code = board.m_fields[move.from];
    if (move.IsPass() || !IsBlack(code) || IsBlack(board.m_fields[move.to])) {
        return false;
    }
    const TFigureCode type = TypeOf(code);
    if (type != TypePawn) {
        return move.PromotionType() == 0 && FigureGoesTo(board, type, move);
    }
    if (!PromotionFits(move)) {
        return false;
    }
    if (FileOf(move.from) == FileOf(move.to)) {
        return PawnStepsTo(board, move, -8, 6);
    }
    return (BlackPawnTargets[move.from] & board.m_whiteMen & FieldBit(move.to)) != 0;
}

bool IsPossibleWhiteHint(const TChessboard& board, TMove move) noexcept {
    const TFigureCode code = board.m_fields[move.from];
    if (move.IsPass() || !IsWhite(code) || IsWhite(board.m_fields[move.to])) {
        return false;
    }
    const TFigureCode type = TypeOf(code);
    if (type != TypePawn) {
        return move.PromotionType() == 0 && FigureGoesTo(board, type, move);
    }
    if (!PromotionFits(move)) {
        return false;
    }
    if (FileOf(move.from) == FileOf(move.to)) {
        return PawnStepsTo(board, move, 8, 1);
    }
    return (WhitePawnTargets[move.from] & board.m_blackMen & FieldBit(move.to)) != 0;
}

std::size_t TOrderHints::PlyIndex(const TChessboard& board) noexcept {
    const int plies = board.m_shPlies;
    return static_cast<std::size_t>(plies < HintPlies ? plies : HintPlies - 2 + (plies & 1));
}

std::size_t TOrderHints::AnswerIndex(const TChessboard& board) noexcept {
    const TField to = board.m_lastMove.to;
    const TFigureCode type = TypeOf(board.m_fields[to]);
    // King 1, pawn 2, bishop 4, rook 8, queen 12, knight 16 to 1, 2, 3, 4, 5, 6.
    constexpr std::array<std::uint8_t, 32> smallType = [] {
        std::array<std::uint8_t, 32> t{};
        t[TypeKing] = 1;
        t[TypePawn] = 2;
        t[TypeBishop] = 3;
        t[TypeRook] = 4;
        t[TypeQueen] = 5;
        t[TypeKnight] = 6;
        return t;
    }();
    return static_cast<std::size_t>(smallType[type]) * FieldCount + to;
}

std::array<TMove, TOrderHints::HintsPerNode> TOrderHints::For(
    const TChessboard& board) const noexcept {
    const std::size_t ply = PlyIndex(board);
    return {m_answers[ply][AnswerIndex(board)], m_last[ply]};
}

void TOrderHints::Note(const TChessboard& board, TMove move) noexcept {
    const std::size_t ply = PlyIndex(board);
    m_answers[ply][AnswerIndex(board)] = move;
    m_last[ply] = move;
}

}  // namespace tarnwick
