#pragma once
// Vector pictures turned into pixels: for "save as picture" of the window, and for tarnwick-cli, which
// knows no toolkit and asks this program for it.

#include <string>
#include <string_view>

namespace tarnwick {

/// The word that makes the program paint the pictures of its standard input, without a screen and without
/// a window, and end. Not told in the help: people ask tarnwick-cli.
inline constexpr std::string_view PaintPicturesWord = "--paint-pictures";

/// The SVG text as a PNG picture of its own size; empty for a text that is no SVG, and for one larger than
/// MaxDiagramSize and half as much again. Needs a QGuiApplication.
std::string PngOfSvg(std::string_view svg);

/// Reads pictures framed as in diagram/picture_frames.h from standard input and writes as many to
/// standard output, an empty one for each that cannot be painted. Returns the exit status.
int PaintPictures(int argc, char** argv);

}  // namespace tarnwick
