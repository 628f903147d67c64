#pragma once
// A move in four bytes, copied as one 32-bit word. From equal to to is a pass of the side to move,
// always written with that side's king field.
//
// The fourth byte has two readings. In a board's last move, and after a make operation, it is 1 for an
// en-passant capture, else 0. In a list that is being ordered it is the sort score of the move. The
// generators write 0; the make operations never read it.

#include <cstdint>
#include <type_traits>

#include "chess/fields.h"
#include "chess/figure_codes.h"

namespace tarnwick {

struct TMove {
    TField from = 0;
    TField to = 0;
    /// Low five bits: type of the new figure, 0 for none. Bit 0x20 is a mark of the heuristics, bit 0x80
    /// marks a near-best move of the white ordering.
    std::uint8_t promotion = 0;
    std::uint8_t fourth = 0;

    constexpr TFigureCode PromotionType() const { return promotion & TypeMask; }
    constexpr bool IsPass() const { return from == to; }
    constexpr bool IsEnPassant() const { return fourth == 1; }
    constexpr std::uint8_t WhiteSortScore() const { return fourth; }
    constexpr std::int8_t BlackSortScore() const { return static_cast<std::int8_t>(fourth); }
    /// Same fields and same promotion; sort scores and marks do not count.
    constexpr bool SameAs(const TMove& other) const {
        return from == other.from && to == other.to && PromotionType() == other.PromotionType();
    }
};
static_assert(sizeof(TMove) == 4 && std::is_trivially_copyable_v<TMove>);

constexpr TMove MakePass(TField kingField) {
    return TMove{kingField, kingField, 0, 0};
}

inline constexpr std::uint8_t NearBestMark = 0x80;

}  // namespace tarnwick
