#include "app/view/palettes.h"

#include <algorithm>
#include <cmath>

namespace tarnwick {
namespace {

/// The share of one channel in the light that the eye sees, 0 to 1 (sRGB).
double Linear(std::uint8_t channel) {
    const double value = channel / 255.0;
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

double Luminance(TColour colour) {
    return 0.2126 * Linear(colour.red) + 0.7152 * Linear(colour.green) +
           0.0722 * Linear(colour.blue);
}

}  // namespace

const TPalette LightPalette = {
    .window = FromBlueGreenRed(0xFFFFFF),
    .panel = FromBlueGreenRed(15459267),
    .text = {0x10, 0x18, 0x1C},
    .faintText = {0x3F, 0x4A, 0x50},
    .errorText = {0xA8, 0x00, 0x10},
    .link = FromBlueGreenRed(0xF20000),
    .border = FromBlueGreenRed(0xDDDDDD),
    .lightField = {0xF0, 0xEC, 0xD8},
    .darkField = {0xB4, 0xC2, 0xA2},
    .coordinateOnLight = {0x53, 0x63, 0x42},
    .coordinateOnDark = {0x2B, 0x36, 0x20},
    .lastMove = {0xF2, 0xD2, 0x3C},
    .selectedMark = FromBlueGreenRed(0xFF8080),
    .allowedMark = FromBlueGreenRed(2280482),
    .forbiddenMark = FromBlueGreenRed(255),
    .doubtfulMark = {0xFF, 0xC8, 0x00},
    .keyboardCursor = {0x1C, 0x3F, 0x94},
};

const TPalette DarkPalette = {
    .window = {0x1E, 0x22, 0x26},
    .panel = {0x2A, 0x31, 0x37},
    .text = {0xE8, 0xEC, 0xEE},
    .faintText = {0xB4, 0xBE, 0xC4},
    .errorText = {0xFF, 0x9C, 0x90},
    .link = {0x8C, 0xB8, 0xFF},
    .border = {0x4A, 0x54, 0x5C},
    .lightField = {0xAE, 0xB8, 0xC0},
    .darkField = {0x70, 0x82, 0x90},
    .coordinateOnLight = {0x2C, 0x38, 0x42},
    .coordinateOnDark = {0x10, 0x18, 0x20},
    .lastMove = {0xE6, 0xC8, 0x4A},
    .selectedMark = {0x40, 0x50, 0xF0},
    .allowedMark = {0x12, 0x8A, 0x2A},
    .forbiddenMark = {0xE0, 0x10, 0x10},
    .doubtfulMark = {0xFF, 0xD0, 0x20},
    .keyboardCursor = {0x0A, 0x1E, 0x66},
};

double ContrastRatio(TColour one, TColour other) {
    const auto [darker, lighter] = std::minmax({Luminance(one), Luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

}  // namespace tarnwick
