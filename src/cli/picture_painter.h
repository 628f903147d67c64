#pragma once
// PNG pictures without a toolkit in this program, which would make every start of it slow: the program
// with the window paints them, without showing itself.

#include <span>
#include <string>
#include <vector>

namespace tarnwick {

/// The SVG texts as PNG pictures, in their order. Asks the `tarnwick` beside this program, in the build
/// tree, or that PATH knows; each call starts it once. Throws ChessException with what to do if it is
/// missing or cannot paint one of them.
std::vector<std::string> PaintPngs(std::span<const std::string> svgs);

}  // namespace tarnwick
