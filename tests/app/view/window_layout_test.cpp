#include "app/view/window_layout.h"

#include <gtest/gtest.h>

#include <vector>

namespace tarnwick {
namespace {

bool Overlap(const TRectangle& a, const TRectangle& b) {
    return !a.IsEmpty() && !b.IsEmpty() && a.x < b.Right() && b.x < a.Right() && a.y < b.Bottom() &&
           b.y < a.Bottom();
}

/// Everything with contents of its own; the bars and the panel lie behind.
std::vector<TRectangle> Areas(const TWindowLayout& layout) {
    std::vector<TRectangle> areas = {
        layout.previousButton, layout.problemNumber, layout.movesControl, layout.description,
        layout.nextButton,     layout.board,         layout.progress,     layout.moves,
        layout.variants,       layout.iconArea,      layout.statusText};
    areas.insert(areas.end(), layout.buttons.begin(), layout.buttons.end());
    return areas;
}

TEST(WindowLayout, TheSmallestWindowIsTheDefaultAndHasItsKnownPlaces) {
    const TWindowLayout layout = LayOutWindow({.titleTextWidth = 40});
    EXPECT_EQ(layout.titleBar, (TRectangle{0, 0, 640, 30}));
    EXPECT_EQ(layout.previousButton, (TRectangle{0, 0, 29, 30}));
    EXPECT_EQ(layout.nextButton, (TRectangle{599, 0, 29, 30}));
    EXPECT_EQ(layout.problemNumber.x, 31);
    EXPECT_EQ(layout.description.x, 100);
    EXPECT_EQ(layout.description.Right(), 540);
    EXPECT_EQ(layout.board, (TRectangle{0, 30, 400, 400}));
    EXPECT_EQ(layout.rightPanel, (TRectangle{400, 30, 240, 470}));
    EXPECT_EQ(layout.bottomBar, (TRectangle{0, 470, 640, 30}));
    EXPECT_EQ(layout.iconArea, (TRectangle{0, 462, 52, 40}));
    EXPECT_EQ(LayOutWindow({.width = 10, .height = 10}).board, layout.board);
}

TEST(WindowLayout, NothingOverlapsOrLeavesTheWindow) {
    for (const auto& [width, height] :
         {std::pair{640, 500}, {1000, 520}, {700, 1200}, {2560, 1440}}) {
        for (const int line : {12, 18, 31}) {
            for (const bool bOn : {false, true}) {
                const TLayoutInput input{width, height, line, bOn ? 2000 : 60, bOn, bOn};
                SCOPED_TRACE(testing::Message() << width << "x" << height << " line " << line);
                const TMinimumSize smallest = SmallestWindow(line);
                const TRectangle window{0, 0, std::max(width, smallest.width),
                                        std::max(height, smallest.height) + 2};
                const std::vector<TRectangle> areas = Areas(LayOutWindow(input));
                for (std::size_t i = 0; i < areas.size(); ++i) {
                    EXPECT_TRUE(areas[i].x >= 0 && areas[i].y >= 0) << i;
                    EXPECT_LE(areas[i].Right(), window.Right()) << i;
                    EXPECT_LE(areas[i].Bottom(), window.Bottom()) << i;
                    for (std::size_t j = 0; j < i; ++j) {
                        EXPECT_FALSE(Overlap(areas[i], areas[j])) << i << " and " << j;
                    }
                }
            }
        }
    }
}

TEST(WindowLayout, TheBoardGrowsWithTheWindowByWholePixels) {
    EXPECT_EQ(LayOutWindow({.width = 647, .height = 507}).fieldSize, 50);
    EXPECT_EQ(LayOutWindow({.width = 648, .height = 508}).fieldSize, 51);
    const TWindowLayout wide = LayOutWindow({.width = 1900, .height = 900});
    EXPECT_EQ(wide.fieldSize, 100);
    EXPECT_EQ(wide.rightPanel.Right(), 1900);
}

TEST(WindowLayout, ALongStipulationMovesTheDescriptionAndALargeProgressTakesTheMoves) {
    const TWindowLayout layout = LayOutWindow({.titleTextWidth = 120, .bSettingPosition = true});
    EXPECT_GT(layout.movesControl.x, layout.problemNumber.Right());
    EXPECT_EQ(layout.movesControl.width, 22);
    EXPECT_GT(layout.description.x, layout.movesControl.Right());
    EXPECT_EQ(layout.description.Right(), 540);

    const TWindowLayout large = LayOutWindow({.bProgressLarge = true});
    EXPECT_GT(large.progress.height, layout.progress.height);
    EXPECT_GT(large.moves.height, 0);
    EXPECT_EQ(large.variants, layout.variants);
}

}  // namespace
}  // namespace tarnwick
