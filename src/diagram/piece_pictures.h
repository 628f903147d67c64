#pragma once
// The men as vector pictures: the files that the window draws, 100 by 100 units each, made part of the
// library when the build is configured.

#include <string_view>

#include "chess/figure_codes.h"

namespace tarnwick {

/// What stands between the outer tags of the man's SVG file; empty for an empty field. The mark of a pawn
/// does not count.
std::string_view PictureOfMan(TFigureCode code);

}  // namespace tarnwick
