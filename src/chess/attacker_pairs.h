#pragma once
// Turning a set of attackers into the answers of FindWhiteAttackers and FindBlackAttackers.

#include "chess/attacks.h"

namespace tarnwick {

/// NoChecker for the empty set, the field of a single man, DoubleCheck for more.
inline std::int8_t OneOrMany(TFieldSet attackers) {
    if (attackers == 0) {
        return NoChecker;
    }
    return HasMoreThanOne(attackers) ? DoubleCheck
                                     : static_cast<std::int8_t>(LowestField(attackers));
}

/// Appends the fields of the set as pairs, ascending.
inline TFilePlace* AppendPairs(TFieldSet set, TFilePlace* pOut) {
    while (set != 0) {
        const int field = PopLowest(set);
        *pOut++ = TFilePlace{static_cast<std::uint8_t>(FileOf(field)),
                             static_cast<std::uint8_t>(RankOf(field))};
    }
    return pOut;
}

/// Pawns, then knights, then sliders; returns the count.
inline int WriteAttackerPairs(const TChessboard& board, TFieldSet attackers, TFilePlace* pList) {
    TFilePlace* pEnd = AppendPairs(attackers & board.m_pawns, pList);
    pEnd = AppendPairs(attackers & board.m_knights, pEnd);
    pEnd = AppendPairs(attackers & ~(board.m_pawns | board.m_knights), pEnd);
    return static_cast<int>(pEnd - pList);
}

}  // namespace tarnwick
