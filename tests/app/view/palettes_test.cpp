#include "app/view/palettes.h"

#include <gtest/gtest.h>

namespace tarnwick {
namespace {

TEST(Palettes, NumbersHaveRedInTheLowestByte) {
    EXPECT_EQ(LightPalette.forbiddenMark, (TColour{255, 0, 0}));
    EXPECT_EQ(LightPalette.allowedMark, (TColour{0x22, 0xCC, 0x22}));
    EXPECT_EQ(LightPalette.selectedMark, (TColour{0x80, 0x80, 0xFF}));
    EXPECT_EQ(LightPalette.panel, (TColour{0xC3, 0xE3, 0xEB}));
}

TEST(Palettes, EverythingCanBeTold) {
    constexpr TColour black{0, 0, 0};
    constexpr TColour white{255, 255, 255};
    EXPECT_NEAR(ContrastRatio(black, white), 21, 1e-9);
    for (const TPalette* palette : {&LightPalette, &DarkPalette}) {
        SCOPED_TRACE(palette == &DarkPalette ? "dark" : "light");
        for (const TColour text :
             {palette->text, palette->faintText, palette->errorText, palette->link}) {
            EXPECT_GE(ContrastRatio(text, palette->panel), 4.5);
            EXPECT_GE(ContrastRatio(text, palette->window), 4.5);
        }
        EXPECT_GE(ContrastRatio(palette->coordinateOnLight, palette->lightField), 4.5);
        EXPECT_GE(ContrastRatio(palette->coordinateOnDark, palette->darkField), 4.5);
        EXPECT_GE(ContrastRatio(black, palette->darkField), 4.5) << "black men";
        EXPECT_GE(ContrastRatio(palette->lightField, palette->darkField), 1.5);
        EXPECT_GE(ContrastRatio(palette->keyboardCursor, palette->darkField), 3);
    }
}

}  // namespace
}  // namespace tarnwick
