#pragma once
// Which man stands on a field, told by the look of the field alone.
//
// A small network of five layers, 32 by 32 grey values in, a chance for each man out. It was trained with many
// sets of men in all kinds of print (tools/train_man_classifier.py); what it has learned is how men differ in all
// of them: white ones are outlines and black ones solid, a rook ends flat, a knight leans to one side.

#include <array>

#include "chess/figure_codes.h"
#include "diagram/field_images.h"

namespace tarnwick {

/// What a field may hold, in the order of the chances.
inline constexpr std::array<TFigureCode, 13> ClassifiedMen = {
    EmptyField, WhiteKing,  WhiteQueen, WhiteRook,   WhiteBishop, WhiteKnight, WhitePawn,
    BlackKing,  BlackQueen, BlackRook,  BlackBishop, BlackKnight, BlackPawn};

/// 0 to 1 for each of ClassifiedMen; the sum is 1.
using TManChances = std::array<float, ClassifiedMen.size()>;

TManChances ClassifyMan(const TFieldImage& field);

}  // namespace tarnwick
