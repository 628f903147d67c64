#pragma once
// Where the board is in a picture, told by its edges: a column or row that crosses eight fields shows
// light and dark runs in turn.

#include <optional>

#include "diagram/grey_image.h"

namespace tarnwick {

/// A rectangle in pixels of the grey image; edges may lie between pixels.
struct TBoardFrame {
    double left = 0;
    double top = 0;
    double right = 0;
    double bottom = 0;

    double FieldWidth() const { return (right - left) / 8; }
    double FieldHeight() const { return (bottom - top) / 8; }
};

/// The grey value from which a pixel counts as light, 16 to 255: the lower end of the lightest large group
/// of grey values, 240 for black print on white paper.
int LightThreshold(const TGreyImage& image);

/// The rectangle between the first and the last column and row that cross a board. None when an edge is
/// missing, as on hatched fields, whose dark runs are as thin as their lines.
std::optional<TBoardFrame> FrameByRuns(const TGreyImage& image, int lightThreshold);

}  // namespace tarnwick
