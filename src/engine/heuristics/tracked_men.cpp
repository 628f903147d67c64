#include "engine/heuristics/tracked_men.h"

#include <algorithm>

#include "chess/generate_moves.h"
#include "chess/lines.h"
#include "chess/pins.h"
#include "engine/heuristics/board_questions.h"
#include "engine/heuristics/exchanges.h"
#include "engine/heuristics/line_moves.h"
#include "engine/search/thread_context.h"

namespace tarnwick {
namespace {

/// The man has a move to a field further than one away; a pinned man moves on its line only.
bool CanGetAway(const TChessboard& board, int field, bool bPinned) {
    TMove moves[MaxMovesOfMan];
    const int count = GenerateBlackMoves(board, field, moves);
    return std::any_of(moves, moves + count, [&](TMove move) {
        return KingDistance(field, move.to) > 1 &&
               (!bPinned || AreCollinear(BlackKingField(board), field, move.to));
    });
}

std::size_t FollowedCount(const TSpecialHeuristics& parameters) {
    return static_cast<std::size_t>(
        std::clamp<int>(parameters.UnblockFieldCount, 0, MaxTrackedMen));
}

/// Where the man stood when it was set to be followed. Men set at the root are known by that field; men
/// set during the search are known by their field at the root, and stood on the other.
TField HomeOf(const TSpecialHeuristics& parameters, std::size_t man) {
    return parameters.bUnblockFromFields ? parameters.UnblockInitialFields[man]
                                         : parameters.UnblockFields[man];
}

/// A followed man that is still in play, with its home.
bool IsAwayFromHome(const TChessboard& board, std::size_t man, int distance) {
    const TField now = board.m_trackedFields[man];
    const TField home = HomeOf(Thread(board).m_heuristics, man);
    return now < FieldCount && home < FieldCount && KingDistance(now, home) > distance;
}

}  // namespace

TFieldSet BlockedBlackMen(const TChessboard& board, bool bWithPawns) noexcept {
    const TFieldSet pinned = PinnedBlackMen(board);
    TFieldSet blocked = 0;
    const TFieldSet pawns = board.m_blackMen & board.m_pawns;
    for (TFieldSet men = BlackFigures(board) | (bWithPawns ? pawns : 0); men != 0;) {
        const int field = PopLowest(men);
        if (!CanGetAway(board, field, (pinned & FieldBit(field)) != 0)) {
            blocked |= FieldBit(field);
        }
    }
    return blocked;
}

int CollectTrackedMen(TChessboard& board, TSpecialHeuristics& parameters) noexcept {
    if (!parameters.bUnblockFixedByUser) {
        std::array<TField, FieldCount> fields;
        int count = 0;
        for (TFieldSet men = BlockedBlackMen(board, parameters.bUnblockWithPawns); men != 0;) {
            fields[static_cast<std::size_t>(count++)] = static_cast<TField>(PopLowest(men));
        }
        const int king = BlackKingField(board);
        std::stable_sort(fields.begin(), fields.begin() + count, [king](TField a, TField b) {
            return KingDistance(a, king) < KingDistance(b, king);
        });
        count = std::min(count, MaxTrackedMen);
        std::copy_n(fields.begin(), count, parameters.UnblockFields.begin());
        std::copy_n(fields.begin(), count, parameters.UnblockInitialFields.begin());
        parameters.UnblockFieldCount = static_cast<std::int8_t>(count);
        parameters.bUnblockFromFields = true;
    }
    StartFollowing(board, parameters);
    return parameters.UnblockFieldCount;
}

void StartFollowing(TChessboard& board, const TSpecialHeuristics& parameters) noexcept {
    std::fill(std::begin(board.m_trackedFields), std::end(board.m_trackedFields), NoField);
    std::copy_n(parameters.UnblockFields.begin(), FollowedCount(parameters), board.m_trackedFields);
}

bool HasManUnblocked(const TChessboard& afterBlack) noexcept {
    const std::size_t count = FollowedCount(Thread(afterBlack).m_heuristics);
    for (std::size_t man = 0; man < count; ++man) {
        if (IsAwayFromHome(afterBlack, man, 1) &&
            GainByWhiteCapture(afterBlack, afterBlack.m_trackedFields[man]) == 0) {
            return true;
        }
    }
    return false;
}

bool AreFollowedMenAtHome(const TChessboard& board) noexcept {
    const std::size_t count = FollowedCount(Thread(board).m_heuristics);
    for (std::size_t man = 0; man < count; ++man) {
        if (IsAwayFromHome(board, man, 0)) {
            return false;
        }
    }
    return true;
}

}  // namespace tarnwick
