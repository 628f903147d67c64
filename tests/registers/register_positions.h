#pragma once

// Positions for tests of the registers: cheap to make, chosen by number, and with hashes that tests need.

#include <algorithm>
#include <cstdint>
#include <vector>

#include "registers/chessboard_register_item.h"
#include "support/random_positions.h"

namespace tarnwick {

/// A few men on random fields; kings are not looked after.
inline TChessboardRegisterItem RandomItem(slow::CDice& dice) {
    constexpr TFigureCode Men[] = {WhiteKing, WhiteQueen, WhiteRook, WhitePawn,
                                   BlackKing, BlackRook,  BlackPawn, BlackKnight};
    TChessboardRegisterItem item;
    for (const TFigureCode man : Men) {
        item.m_fields[dice.Below(FieldCount)] = man;
    }
    return item;
}

/// Different items that all belong into one bucket, whatever the number of buckets.
inline std::vector<TChessboardRegisterItem> ItemsOfOneBucket(std::size_t count) {
    // Three men 1 apart in code weigh the same as one man 3 apart; so pairs of weights a^2 b and a b^2
    // are swapped: field i weighs (i + 1)^2, so code 4c on field i and code c on field 2i + 1 agree.
    std::vector<TChessboardRegisterItem> items;
    for (unsigned pattern = 0; items.size() < count; ++pattern) {
        TChessboardRegisterItem item;
        for (unsigned bit = 0; bit < 8; ++bit) {
            const unsigned field = 16 + 2 * bit;  // its partner is 2 * field + 1
            const bool bFar = (pattern >> bit & 1) != 0;
            item.m_fields[bFar ? 2 * field + 1 : field] = static_cast<TFigureCode>(bFar ? 16 : 64);
        }
        items.push_back(item);
    }
    return items;
}

}  // namespace tarnwick
