#pragma once
// Figure codes: what a field of the board holds. A code is a colour flag plus a type, chosen so that
// the questions of the inner loops are one mask and one compare: a queen has the bit of the bishop and
// the bit of the rook, and a black man is the sign bit of the byte.

#include <cstdint>

namespace tarnwick {

/// A field's content: 0 empty, else colour flag + type.
using TFigureCode = std::uint8_t;

inline constexpr TFigureCode EmptyField = 0;
inline constexpr TFigureCode WhiteFlag = 0x40;
inline constexpr TFigureCode BlackFlag = 0x80;

inline constexpr TFigureCode TypeKing = 1;
inline constexpr TFigureCode TypePawn = 2;
inline constexpr TFigureCode TypeBishop = 4;
inline constexpr TFigureCode TypeRook = 8;
inline constexpr TFigureCode TypeQueen = TypeBishop | TypeRook;
inline constexpr TFigureCode TypeKnight = 16;
inline constexpr TFigureCode TypeMask = 31;
/// On a pawn: it may capture but not advance straight. In a move's promotion byte: a mark of the
/// heuristics that is no part of the type.
inline constexpr TFigureCode MarkBit = 0x20;

inline constexpr TFigureCode WhiteKing = WhiteFlag | TypeKing;
inline constexpr TFigureCode WhitePawn = WhiteFlag | TypePawn;
inline constexpr TFigureCode WhiteBishop = WhiteFlag | TypeBishop;
inline constexpr TFigureCode WhiteRook = WhiteFlag | TypeRook;
inline constexpr TFigureCode WhiteQueen = WhiteFlag | TypeQueen;
inline constexpr TFigureCode WhiteKnight = WhiteFlag | TypeKnight;
inline constexpr TFigureCode BlackKing = BlackFlag | TypeKing;
inline constexpr TFigureCode BlackPawn = BlackFlag | TypePawn;
inline constexpr TFigureCode BlackBishop = BlackFlag | TypeBishop;
inline constexpr TFigureCode BlackRook = BlackFlag | TypeRook;
inline constexpr TFigureCode BlackQueen = BlackFlag | TypeQueen;
inline constexpr TFigureCode BlackKnight = BlackFlag | TypeKnight;

constexpr bool IsWhite(TFigureCode code) {
    return (code & WhiteFlag) != 0;
}
constexpr bool IsBlack(TFigureCode code) {
    return (code & BlackFlag) != 0;
}
constexpr TFigureCode TypeOf(TFigureCode code) {
    return code & TypeMask;
}
/// The colour flag alone: 0x40, 0x80, or 0 for an empty field.
constexpr TFigureCode ColourOf(TFigureCode code) {
    return code & static_cast<TFigureCode>(WhiteFlag | BlackFlag);
}
constexpr bool IsWhiteDiagonalSlider(TFigureCode code) {
    return (code & 68) >= 68;
}
constexpr bool IsWhiteStraightSlider(TFigureCode code) {
    return (code & 72) >= 72;
}
constexpr bool IsBlackDiagonalSlider(TFigureCode code) {
    return (code & 132) >= 132;
}
constexpr bool IsBlackStraightSlider(TFigureCode code) {
    return (code & 136) >= 136;
}

/// What a pawn may become, in the order in which every generator lists it.
inline constexpr TFigureCode PromotionTypes[4] = {TypeQueen, TypeRook, TypeBishop, TypeKnight};

}  // namespace tarnwick
