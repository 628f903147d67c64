#pragma once
// Where the board is in a picture, told by its pattern: at each of the 49 points where four fields meet, two
// light corners face two dark ones. Men seldom reach into the corners of their fields, and the average of a
// corner is darker for hatching and grey alike, so this works on every kind of board, also on an empty one.

#include <optional>

#include "diagram/board_frame.h"

namespace tarnwick {

/// How well a rectangle fits the pattern.
struct TPatternFit {
    double contrast = 0;  ///< Average difference of light and dark corners, grey values.
    int meetings = 0;     ///< Points of the 49 where that difference shows clearly.
    double chance = 0;    ///< A contrast that random pixels may show in corners of this size.
};

TPatternFit PatternFit(const CGreySums& sums, const TBoardFrame& frame);

/// Whether this is a board: the pattern is there at nearly all points, and visible.
bool IsBoard(const TPatternFit& fit);

/// The frame moved by whole fields, and then each edge by up to about half a field, to where the pattern is
/// strongest.
TBoardFrame Refined(const CGreySums& sums, const TBoardFrame& frame);

/// Looks for the pattern in all places and sizes, from a quarter of the picture's shorter side. None if nothing
/// in the picture looks like a board.
std::optional<TBoardFrame> FrameByPattern(const TGreyImage& image, const CGreySums& sums);

}  // namespace tarnwick
