#pragma once
// Fields that one side's men attack or protect, as one set, and the men held by a pin. For functions
// that ask about many fields of one position at once.

#include "chess/chessboard.h"
#include "chess/lines.h"

namespace tarnwick {

/// Fields that White's men of `men` attack over `occupied`; own men on them are protected.
inline TFieldSet WhiteAttackMap(const TChessboard& board, TFieldSet men, TFieldSet occupied) {
    TFieldSet map = AttackedByWhitePawns(board.m_pawns & men) |
                    KingFields[static_cast<std::size_t>(WhiteKingField(board))];
    for (TFieldSet knights = board.m_knights & men; knights != 0;) {
        map |= KnightFields[static_cast<std::size_t>(PopLowest(knights))];
    }
    for (TFieldSet sliders = board.m_diagonalSliders & men; sliders != 0;) {
        map |= BishopReach(PopLowest(sliders), occupied);
    }
    for (TFieldSet sliders = board.m_straightSliders & men; sliders != 0;) {
        map |= RookReach(PopLowest(sliders), occupied);
    }
    return map;
}

/// The men that alone stand between the king's field and a slider of `sliders`: pinned when they are of
/// the king's colour, able to discover a check when they are of the sliders' colour.
inline TFieldSet SoleBlockers(const TChessboard& board, int king, TFieldSet sliders,
                              TFieldSet occupied) {
    const auto k = static_cast<std::size_t>(king);
    TFieldSet blockers = 0;
    TFieldSet aligned = ((DiagonalRays[k] & board.m_diagonalSliders) |
                         (StraightRays[k] & board.m_straightSliders)) &
                        sliders;
    while (aligned != 0) {
        const TFieldSet between = Between(PopLowest(aligned), king) & occupied;
        if (!HasMoreThanOne(between)) {
            blockers |= between;
        }
    }
    return blockers;
}

}  // namespace tarnwick
