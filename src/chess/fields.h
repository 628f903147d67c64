#pragma once
// Fields of the board as numbers: file + rank * 8, both from 0, a1 = 0, h1 = 7, a8 = 56, h8 = 63.

#include <cstdint>

namespace tarnwick {

using TField = std::uint8_t;

inline constexpr int FieldCount = 64;
/// Marker of lists of fields: none, or captured.
inline constexpr TField NoField = 255;

// clang-format off
inline constexpr TField A1 = 0,  B1 = 1,  C1 = 2,  D1 = 3,  E1 = 4,  F1 = 5,  G1 = 6,  H1 = 7;
inline constexpr TField A8 = 56, B8 = 57, C8 = 58, D8 = 59, E8 = 60, F8 = 61, G8 = 62, H8 = 63;
// clang-format on

constexpr int FileOf(int field) {
    return field & 7;
}
constexpr int RankOf(int field) {
    return field >> 3;
}
constexpr TField FieldAt(int file, int rank) {
    return static_cast<TField>(file + rank * 8);
}
constexpr bool OnBoard(int file, int rank) {
    return static_cast<unsigned>(file) < 8 && static_cast<unsigned>(rank) < 8;
}
/// 0 or 1; two fields have the same colour when this is equal (a1 is dark: 0).
constexpr int ColourParity(int field) {
    return ((field >> 3) + field) & 1;
}

}  // namespace tarnwick
