#pragma once
// Fixed tables of the geometry of the board, and letters of the figures. All constant from start-up.

#include <array>
#include <cstdint>

#include "chess/chessboard.h"

namespace tarnwick {

/// (file delta, rank delta) in the fixed order in which kings are tried.
struct TStep {
    std::int8_t file, rank;
};
inline constexpr std::array<TStep, 8> KingSteps = {
    {{-1, -1}, {-1, 0}, {-1, 1}, {0, 1}, {1, 1}, {1, 0}, {1, -1}, {0, -1}}};

/// Distance from the edge by file or rank; a field's distance is the smaller of the two.
inline constexpr std::array<std::uint8_t, 8> EdgeDistance = {0, 1, 2, 3, 3, 2, 1, 0};
constexpr int FieldEdgeDistance(int field) {
    return EdgeDistance[static_cast<std::size_t>(FileOf(field))] <
                   EdgeDistance[static_cast<std::size_t>(RankOf(field))]
               ? EdgeDistance[static_cast<std::size_t>(FileOf(field))]
               : EdgeDistance[static_cast<std::size_t>(RankOf(field))];
}

/// King's steps between two fields on the empty board.
constexpr int KingDistance(int a, int b) {
    const int files = FileOf(a) > FileOf(b) ? FileOf(a) - FileOf(b) : FileOf(b) - FileOf(a);
    const int ranks = RankOf(a) > RankOf(b) ? RankOf(a) - RankOf(b) : RankOf(b) - RankOf(a);
    return files > ranks ? files : ranks;
}

/// By type: king 10, pawn 1, bishop 3, rook 5, queen 9, knight 3, others 0.
extern const std::array<std::uint8_t, 32> FigureValues;

/// Letter of a FEN text to code; 0 for any other character.
extern const std::array<TFigureCode, 256> LetterToCode;
/// Code to letter, upper case below 128; "E" or "e" for a code that is no figure.
extern const std::array<char, 256> CodeToLetter;

/// Knight jumps of one class of field, ascending, padded to eight by repeating the last.
struct TKnightJumps {
    std::int8_t count;
    std::array<std::int8_t, 8> differences;
};
/// 25 classes: the place of the file and of the rank among 0, 1, inner, 6, 7.
extern const std::array<TKnightJumps, 25> KnightJumpClasses;
extern const std::array<std::uint8_t, 64> KnightClassOfField;
inline const TKnightJumps& KnightJumpsFrom(int field) {
    return KnightJumpClasses[KnightClassOfField[static_cast<std::size_t>(field)]];
}

extern const std::array<TFieldSet, 64> KnightFields;  ///< A knight's jumps.
extern const std::array<TFieldSet, 64> KingFields;    ///< A king's steps.
extern const std::array<TFieldSet, 64>
    WhitePawnTargets;  ///< What a white pawn on the field attacks.
extern const std::array<TFieldSet, 64>
    BlackPawnTargets;                                 ///< What a black pawn on the field attacks.
extern const std::array<TFieldSet, 64> DiagonalRays;  ///< Bishop's fields on the empty board.
extern const std::array<TFieldSet, 64> StraightRays;  ///< Rook's fields on the empty board.
/// Fields strictly between two fields of one line; empty when they share no line or are neighbours.
extern const std::array<std::array<TFieldSet, 64>, 64> FieldsBetween;

}  // namespace tarnwick
