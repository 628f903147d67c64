#pragma once
// The 64 fields of a board, cut out and brought to one size and one range of grey, so that the classifier
// sees small and large, pale and dark prints alike.

#include <array>
#include <vector>

#include "diagram/board_frame.h"

namespace tarnwick {

inline constexpr int FieldImageSide = 32;
/// Rows from top to bottom; 0 is the black of the print, 1 its white.
using TFieldImage = std::array<float, FieldImageSide * FieldImageSide>;

/// The grey values that become 0 and 1.
struct TGreyLevels {
    int black = 0;
    int white = 255;
};

/// Nearly the darkest and the lightest grey value of the board. Black stays below 49 and white above 175: a
/// board without men has no black, and its dark fields are not to become black ones.
TGreyLevels GreyLevels(const TGreyImage& image, const TBoardFrame& frame);

/// By field number (a1 = 0), White's side below. One pixel along each edge of a field is left out: it belongs
/// to the lines between the fields.
std::vector<TFieldImage> FieldImages(const CGreySums& sums, const TBoardFrame& frame,
                                     TGreyLevels levels);

}  // namespace tarnwick
