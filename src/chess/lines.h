#pragma once
// Fields that a slider reaches, and small helpers on sets of fields. Lines are computed by the
// subtraction trick on the masked line and its byte-swapped mirror (o ^ (o - 2r), known from the
// chess programming literature as hyperbola quintessence); it needs no large tables, so that the level-1
// cache stays with the boards.

#include <bit>
#include <cstdint>

#include "chess/board_tables.h"

namespace tarnwick {

constexpr int LowestField(TFieldSet set) {
    return std::countr_zero(set);
}
/// Removes the lowest field from the set and returns it.
constexpr int PopLowest(TFieldSet& set) {
    const int field = std::countr_zero(set);
    set &= set - 1;
    return field;
}
constexpr bool HasMoreThanOne(TFieldSet set) {
    return (set & (set - 1)) != 0;
}

/// Masks of the lines through a field, without the field itself.
struct TLineMasks {
    TFieldSet file, diagonal, antiDiagonal;
};
extern const std::array<TLineMasks, 64> LineMasks;
/// By file and by the six inner bits of the rank's occupancy: the reached bits of the rank.
extern const std::array<std::array<std::uint8_t, 64>, 8> RankReach;

inline TFieldSet ReachOnMask(int field, TFieldSet occupied, TFieldSet mask) {
    const TFieldSet forward = occupied & mask;
    const TFieldSet backward = __builtin_bswap64(forward);
    const TFieldSet up = forward - FieldBit(field);
    const TFieldSet down = __builtin_bswap64(backward - FieldBit(field ^ 56));
    return (up ^ down) & mask;
}
inline TFieldSet BishopReach(int field, TFieldSet occupied) {
    const TLineMasks& masks = LineMasks[static_cast<std::size_t>(field)];
    return ReachOnMask(field, occupied, masks.diagonal) |
           ReachOnMask(field, occupied, masks.antiDiagonal);
}
inline TFieldSet RookReach(int field, TFieldSet occupied) {
    const int rankShift = field & 56;
    const auto inner = static_cast<std::size_t>((occupied >> (rankShift + 1)) & 63);
    const TFieldSet onRank =
        static_cast<TFieldSet>(RankReach[static_cast<std::size_t>(field & 7)][inner]) << rankShift;
    return ReachOnMask(field, occupied, LineMasks[static_cast<std::size_t>(field)].file) | onRank;
}

inline TFieldSet Between(int a, int b) {
    return FieldsBetween[static_cast<std::size_t>(a)][static_cast<std::size_t>(b)];
}

/// Fields attacked by all white pawns, or all black pawns, of the set.
constexpr TFieldSet AttackedByWhitePawns(TFieldSet pawns) {
    return ((pawns & 0x7F7F7F7F7F7F7F7FULL) << 9) | ((pawns & 0xFEFEFEFEFEFEFEFEULL) << 7);
}
constexpr TFieldSet AttackedByBlackPawns(TFieldSet pawns) {
    return ((pawns & 0xFEFEFEFEFEFEFEFEULL) >> 9) | ((pawns & 0x7F7F7F7F7F7F7F7FULL) >> 7);
}

}  // namespace tarnwick
