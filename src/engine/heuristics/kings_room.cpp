#include "engine/heuristics/kings_room.h"

#include <algorithm>
#include <bit>

#include "chess/attacks.h"
#include "chess/lines.h"
#include "chess/make_move.h"
#include "chess/pins.h"
#include "engine/heuristics/board_questions.h"
#include "engine/heuristics/free_fields.h"
#include "engine/heuristics/line_moves.h"

namespace tarnwick {
namespace {

constexpr TFieldSet FirstFile = 0x0101010101010101ULL;
constexpr TFieldSet FirstRank = 0xFF;

/// The most fields of the set that share a file or a rank.
int LongestLine(TFieldSet fields) {
    int most = 0;
    for (int line = 0; line < 8; ++line) {
        most = std::max({most, std::popcount(fields & (FirstFile << line)),
                         std::popcount(fields & (FirstRank << (8 * line)))});
    }
    return most;
}

/// Four fields of which three lie in a row are what one heavy man cuts off with one move.
bool IsCutOffByOneMove(TFieldSet free) {
    return std::popcount(free) == 4 && LongestLine(free) >= 3;
}

/// Fields to which the pawn can promote: the step, and captures of black men.
TFieldSet PromotionFields(const TChessboard& board, int pawn) {
    const TFieldSet step = FieldBit(pawn + 8) & ~OccupiedFields(board);
    const TFieldSet captures = WhitePawnTargets[static_cast<std::size_t>(pawn)] & board.m_blackMen &
                               ~FieldBit(BlackKingField(board));
    return step | captures;
}

bool IsSafeFor(const TChessboard& board, int pawn, int target) {
    const TFieldSet taken = FieldBit(target) & board.m_blackMen;
    return !IsAttackedByBlackOver(board, target, OccupiedFields(board) & ~FieldBit(pawn), taken);
}

/// Only the king guards the man, and White's second attacker keeps the king off.
bool IsWonBesideKing(const TChessboard& board, int field) {
    return HasMoreThanOne(WhiteAttackersOf(board, field)) &&
           (BlackAttackersOf(board, field) & ~FieldBit(BlackKingField(board))) == 0;
}

}  // namespace

int CountFreeFields(const TChessboard& child, int limit, TRoomMode mode) noexcept {
    const TFieldSet free = FreeFields(child);
    const int count = std::popcount(free);
    if (count <= limit) {
        return count;
    }
    const bool bHeavyMan = child.m_whiteQueens + child.m_whiteRooks > 0;
    if (limit == 3 && bHeavyMan && IsCutOffByOneMove(free)) {
        return limit;
    }
    if (mode == TRoomMode::TwoHeavyMen) {
        const int onEdge = (free & EdgeFields) != 0 ? 1 : 0;
        return std::max(limit, std::popcount(free & ~EdgeFields) + onEdge);
    }
    return count;
}

int CountFreeFieldsAfterCapture(const TChessboard& child, int limit, TRoomMode mode) noexcept {
    constexpr int AllFields = 8;
    int least = AllFields;
    TChessboard passed = child;
    passed.m_blackChecker = NoChecker;
    if (child.m_shPlies < 2 || !PassBlack(passed)) {
        return least;
    }
    const int king = BlackKingField(child);
    for (TFieldSet men = KingFields[static_cast<std::size_t>(king)] & child.m_blackMen; men != 0;) {
        const int field = PopLowest(men);
        if (!IsWonBesideKing(passed, field)) {
            continue;
        }
        for (TFieldSet takers = WhiteAttackersOf(passed, field); takers != 0;) {
            TChessboard taken = passed;
            TMove move{static_cast<TField>(PopLowest(takers)), static_cast<TField>(field)};
            if (passed.m_fields[move.from] == WhitePawn && RankOf(field) == 7) {
                move.promotion = TypeQueen;
            }
            if (MakeWhiteMoveToTry(taken, move) == MoveMade) {
                least = std::min(least, CountFreeFields(taken, limit, mode));
            }
        }
    }
    return least;
}

bool HasFreeInnerField(const TChessboard& board) noexcept {
    for (TFieldSet free = FreeFields(board); free != 0;) {
        if (FieldEdgeDistance(PopLowest(free)) > BlackKingEdgeDistance(board)) {
            return true;
        }
    }
    return false;
}

bool HasSafePromotion(const TChessboard& board) noexcept {
    TFieldSet pawns = board.m_pawns & board.m_whiteMen & SeventhRank;
    if (pawns == 0) {
        return false;
    }
    const int king = BlackKingField(board);
    const TFieldSet pinned = PinnedWhiteMen(board);
    while (pawns != 0) {
        const int pawn = PopLowest(pawns);
        for (TFieldSet targets = PromotionFields(board, pawn); targets != 0;) {
            const int target = PopLowest(targets);
            const bool bHeld = (pinned & FieldBit(pawn)) != 0 &&
                               !AreCollinear(WhiteKingField(board), pawn, target);
            if (!bHeld && KingDistance(king, target) > 1 && IsSafeFor(board, pawn, target)) {
                return true;
            }
        }
    }
    return false;
}

}  // namespace tarnwick
