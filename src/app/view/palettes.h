#pragma once
// The colours of the window as data, light and dark. The light ones keep the values that its users
// know; the dark ones are chosen so that black men stand out on both fields.

#include <cstdint>

namespace tarnwick {

struct TColour {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;
    constexpr bool operator==(const TColour&) const = default;
};

/// From a number whose lowest byte is red, then green, then blue.
constexpr TColour FromBlueGreenRed(std::uint32_t value) {
    return {static_cast<std::uint8_t>(value), static_cast<std::uint8_t>(value >> 8),
            static_cast<std::uint8_t>(value >> 16)};
}

struct TPalette {
    TColour window;      ///< Behind everything else.
    TColour panel;       ///< The title bar and the panels.
    TColour text;        ///< On window and panel.
    TColour faintText;   ///< What is less important, on window and panel.
    TColour errorText;   ///< Why something cannot be done, on window and panel.
    TColour link;        ///< Links in the description and their line below, on the panel.
    TColour border;      ///< Frames of panels and buttons.
    TColour lightField;  ///< Fields and the coordinates on them.
    TColour darkField;
    TColour coordinateOnLight;
    TColour coordinateOnDark;
    TColour lastMove;        ///< Laid over the two fields of the last move, half transparent.
    TColour selectedMark;    ///< Frame of the man being moved.
    TColour allowedMark;     ///< Frame of a field that it may go to.
    TColour forbiddenMark;   ///< Frame of a field that it may not go to.
    TColour doubtfulMark;    ///< Frame of a field of a recognised picture that wants to be checked.
    TColour keyboardCursor;  ///< Inner frame of the field of the keyboard.
};

extern const TPalette LightPalette;
extern const TPalette DarkPalette;

/// How well a text can be read on a ground: 1 not at all to 21 black on white (the contrast ratio of
/// the Web Content Accessibility Guidelines; 4.5 is good for text, 3 for large marks).
double ContrastRatio(TColour one, TColour other);

}  // namespace tarnwick
