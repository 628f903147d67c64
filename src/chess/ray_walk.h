#pragma once
// Walking from a field outward, man by man, along each of its eight rays, in the order in which the move
// generators walk them.

#include "chess/board_tables.h"
#include "chess/lines.h"

namespace tarnwick {

struct TRay {
    TFieldSet fields;  ///< All fields of the ray, without its origin.
    bool bUpward;      ///< Field numbers rise along the ray.
};

/// The man of the set nearest to the ray's origin; the set, its part on the ray, must not be empty.
inline int NearestOnRay(const TRay& ray, TFieldSet menOnRay) {
    return ray.bUpward ? LowestField(menOnRay) : 63 - std::countl_zero(menOnRay);
}

/// The parts of a line on both sides of a field.
constexpr TFieldSet FieldsAbove(int field) {
    return ~(FieldBit(field) | (FieldBit(field) - 1));
}
constexpr TFieldSet FieldsBelow(int field) {
    return FieldBit(field) - 1;
}

/// North-east, north-west, south-east, south-west.
inline std::array<TRay, 4> DiagonalRaysFrom(int field) {
    const TLineMasks& masks = LineMasks[static_cast<std::size_t>(field)];
    const TFieldSet above = FieldsAbove(field);
    const TFieldSet below = FieldsBelow(field);
    return {{{masks.diagonal & above, true},
             {masks.antiDiagonal & above, true},
             {masks.antiDiagonal & below, false},
             {masks.diagonal & below, false}}};
}

/// Up, down, left, right.
inline std::array<TRay, 4> StraightRaysFrom(int field) {
    const TLineMasks& masks = LineMasks[static_cast<std::size_t>(field)];
    const TFieldSet rank = StraightRays[static_cast<std::size_t>(field)] & ~masks.file;
    const TFieldSet above = FieldsAbove(field);
    const TFieldSet below = FieldsBelow(field);
    return {{{masks.file & above, true},
             {masks.file & below, false},
             {rank & below, false},
             {rank & above, true}}};
}

}  // namespace tarnwick
