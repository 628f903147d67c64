#pragma once
// A position as a picture, an SVG text. Every field has the same whole number of pixels and the lines stand
// between pixels, so that nothing is blurred at the picture's own size.
//
// Only what simple painters know is used: no patterns, no style sheets, no clipping.

#include <string>
#include <string_view>

#include "chess/chessboard.h"

namespace tarnwick {

/// What the fields look like.
enum class TDiagramStyle {
    Window,   ///< The light colours of the window.
    Print,    ///< White and grey.
    Hatched,  ///< White, the dark fields with slanting lines: for printers without grey.
    Plain     ///< White with lines between the fields.
};

/// Colours of a style as SVG has them, "#rrggbb".
struct TDiagramColours {
    std::string_view lightField;
    std::string_view darkField;
    std::string_view line;  ///< The frame, what is between plain fields, and the hatching.
    std::string_view text;
};
const TDiagramColours& ColoursOf(TDiagramStyle style);

/// Width of a picture in pixels.
inline constexpr int MinDiagramSize = 80;
inline constexpr int MaxDiagramSize = 8000;
inline constexpr int DefaultDiagramSize = 480;

struct TDiagramOptions {
    int size =
        DefaultDiagramSize;  ///< Brought within the limits. The height follows from the rest.
    TDiagramStyle style = TDiagramStyle::Print;
    bool bBlackBelow = false;   ///< Seen from Black's side.
    bool bCoordinates = false;  ///< Files below, ranks at the left.
    std::string stipulation;    ///< "#3", below the board; empty: none. UTF-8.
    std::string title;          ///< What the picture is called by those who cannot see it. UTF-8.
    std::string fen;            ///< Goes into the picture (diagram_fen.h); empty: the board's own.
};

/// The whole file, UTF-8. The board need not be a prepared position: only its fields are drawn.
std::string DiagramSvg(const TChessboard& board, const TDiagramOptions& options);

}  // namespace tarnwick
