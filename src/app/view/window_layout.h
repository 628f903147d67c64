#pragma once
// Where everything in the window stands. The smallest window, 640 by 500 pixels inside its frame, is
// also the default; in a larger one the board grows by whole pixels of a field, the panel at its right
// takes the rest of the width, and the bars keep their height. A larger font makes the bars higher and
// with them the smallest window.
//
//   +---------------- title bar ----------------+   previous, problem number, description, next
//   |                       |                   |
//   |        board          |    right panel    |   progress, moves, variants
//   |                       |                   |
//   |   message strip       |                   |   what is known of the position, comment
//   +---------------- bottom bar ---------------+   start, buttons, status text

#include <array>

#include "app/view/rectangle.h"

namespace tarnwick {

/// The buttons of the bottom bar, left to right behind the icon area.
enum class TBarButton {
    Back,
    Forward,
    Save,
    SetPosition,
    Threads,
    Rotate,
    Tag,
    Variant,
    Options,
};
inline constexpr std::size_t BarButtonCount = 9;

/// What the places depend on. All lengths in logical pixels.
struct TLayoutInput {
    int width = 640;  ///< Inside of the window; less than the smallest counts as the smallest.
    int height = 500;
    int lineHeight = 18;     ///< Of the font; the bars hold one line of at most 18 as they are.
    int titleTextWidth = 0;  ///< Problem number and stipulation as they are painted.
    bool bProgressLarge = false;    ///< The progress area takes most of the right panel.
    bool bSettingPosition = false;  ///< The stipulation can be changed beside its text.
    bool operator==(const TLayoutInput&) const = default;
};

struct TWindowLayout {
    TRectangle titleBar;
    TRectangle previousButton;
    TRectangle problemNumber;  ///< Id and stipulation.
    TRectangle movesControl;  ///< Up and down for the stipulation; empty unless setting a position.
    TRectangle description;
    TRectangle nextButton;

    TRectangle board;  ///< Room for the board; its fields are fieldSize each.
    int fieldSize = 50;
    TRectangle messageStrip;  ///< Between the board and the bottom bar.

    TRectangle rightPanel;  ///< The whole panel; its lower end lies behind the bottom bar.
    TRectangle progress;    ///< Its areas, top to bottom, none behind the bottom bar.
    TRectangle moves;
    TRectangle variants;

    TRectangle bottomBar;
    TRectangle iconArea;  ///< Start and stop; reaches a little above the bar.
    std::array<TRectangle, BarButtonCount> buttons;
    TRectangle statusText;

    const TRectangle& Button(TBarButton button) const {
        return buttons[static_cast<std::size_t>(button)];
    }
};

/// The smallest inside of the window with a font of this line height.
struct TMinimumSize {
    int width;
    int height;
};
TMinimumSize SmallestWindow(int lineHeight);

TWindowLayout LayOutWindow(const TLayoutInput& input);

}  // namespace tarnwick
