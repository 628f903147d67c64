#include "engine/heuristics/reduction_check.h"

#include <bit>

#include "chess/lines.h"
#include "chess/prepare_position.h"
#include "engine/search/node_hooks.h"

namespace tarnwick {
namespace {

/// Reductions of more men would be in no table.
constexpr int MostMen = 7;

/// The position without those white men; nothing if that is no position or the tables do not know it.
std::optional<TNodeResult> LookUpWithout(const TChessboard& board, TFieldSet men,
                                         TReducedLookup lookUp) {
    TChessboard reduced = board;
    while (men != 0) {
        reduced.m_fields[PopLowest(men)] = EmptyField;
    }
    reduced.m_pPrevious = nullptr;
    if (!PreparePositionNoThrow(reduced, false)) {
        return std::nullopt;
    }
    return lookUp(reduced);
}

}  // namespace

bool IsReducedPositionLost(const TChessboard& afterBlack, TReducedLookup lookUp) noexcept {
    if (std::popcount(OccupiedFields(afterBlack)) > MostMen) {
        return false;
    }
    bool bKnown = false;
    const auto isMate = [&](TFieldSet men) {
        const auto answer = LookUpWithout(afterBlack, men, lookUp);
        bKnown = bKnown || answer.has_value();
        return answer == ResultMate;
    };
    const TFieldSet pawns = afterBlack.m_pawns & afterBlack.m_whiteMen;
    if (pawns != 0 && isMate(pawns)) {
        return false;
    }
    TFieldSet minors =
        afterBlack.m_whiteMen &
        (afterBlack.m_knights | (afterBlack.m_diagonalSliders & ~afterBlack.m_straightSliders));
    while (minors != 0) {
        if (isMate(FieldBit(PopLowest(minors)))) {
            return false;
        }
    }
    return bKnown;
}

bool IsReducedPositionLost(const TChessboard& afterBlack) noexcept {
    return IsReducedPositionLost(afterBlack, [](TChessboard& board) -> std::optional<TNodeResult> {
        return MayTablesHold(board) ? AskGlobalRegister(board, true) : std::nullopt;
    });
}

}  // namespace tarnwick
