// A defence refutes when White has no mate afterwards; the cheapest sign of that is that White does not
// even threaten one at once. So each reply is made and asked for a mate in one: those that leave White a
// mate in one go behind all others. Among the rest, forcing and capturing replies come first.

#include "engine/ordering/black_order.h"

#include <algorithm>
#include <array>

#include "chess/board_stack.h"
#include "chess/board_tables.h"
#include "chess/escape_check.h"
#include "chess/make_move.h"
#include "chess/mate_in_one.h"
#include "engine/ordering/stable_sort.h"
#include "engine/search/known_positions.h"

namespace tarnwick {
namespace {

constexpr int AllowsMateInOne = 80;
constexpr int KnownMate = 125;  ///< Refutes nothing for certain.
constexpr int GivesCheck = -20;
constexpr int PromotesBonus = -10;

/// What it is worth to take the man, by type: king 5, pawn 1, bishop 2, rook 3, queen 4, knight 2.
constexpr std::array<std::int8_t, 32> CapturedWeight = [] {
    std::array<std::int8_t, 32> weights{};
    weights[TypeKing] = 5;
    weights[TypePawn] = 1;
    weights[TypeBishop] = 2;
    weights[TypeRook] = 3;
    weights[TypeQueen] = 4;
    weights[TypeKnight] = 2;
    return weights;
}();

int ScoreOf(const TChessboard& board, TChessboard& child, TMove move) {
    int score = 0;
    score -= 4 * CapturedWeight[TypeOf(board.m_fields[move.to])];
    score += child.m_whiteChecker != NoChecker ? GivesCheck : 0;
    score += move.PromotionType() != 0 ? PromotesBonus : 0;
    score -= CountBlackKingMoves(child);
    score += IsMateInOne(child) ? AllowsMateInOne : 0;
    return std::clamp(score, -127, 126);
}

/// What the stores know of the position after the reply.
TRegisterResult KnownAfter(TChessboard& child) {
    return child.m_shPlies >= LeastRegisterPlies ? FindKnown(child, WhatMayBeKnown(child))
                                                 : TRegisterResult::Unknown;
}

}  // namespace

TBlackOrder SortBlackMoves(TChessboard& board, int count, TMove* pMoves) noexcept {
    TBlackOrder order;
    for (int i = 0; i < count; ++i) {
        TChessboard* child = CopyToNextSlot(board);
        const int made = MakeBlackMove(*child, pMoves[i], false);
        if (made == MoveRefused) {
            continue;
        }
        TMove move = pMoves[i];
        if (made == MoveMadeHopeless) {
            pMoves[0] = move;
            return {1, true};
        }
        const TRegisterResult known = KnownAfter(*child);
        if (known == TRegisterResult::NoMate) {
            pMoves[0] = move;
            return {1, true};
        }
        const int score = known == TRegisterResult::Mate ? KnownMate : ScoreOf(board, *child, move);
        move.fourth = static_cast<std::uint8_t>(score);
        pMoves[order.count++] = move;
    }
    SortStably(pMoves, order.count, [](TMove move) { return move.BlackSortScore(); });
    return order;
}

}  // namespace tarnwick
