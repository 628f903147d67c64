#include "app/view/window_layout.h"

#include <algorithm>

namespace tarnwick {
namespace {

constexpr int SmallestField = 50;
constexpr int SmallestPanelWidth = 240;
constexpr int StripHeight = 40;
constexpr int BarHeight = 30;  // room for a line of LineInBar pixels
constexpr int LineInBar = 18;
constexpr int ArrowWidth = 29;  // the buttons at both ends of the title bar
constexpr int NumberLeft = 31;
constexpr int NextFromRight = 41;  // the next button begins so far from the right edge
constexpr int MovesControlWidth = 22;
constexpr int DescriptionLeft = 100;
constexpr int DescriptionFromRight = 100;
constexpr int Gap = 4;
constexpr int IconWidth = 52;
constexpr int IconHeight = 40;
constexpr int IconAboveBar = 8;
constexpr int VariantLines = 5;

int HeightOfBar(int lineHeight) {
    return BarHeight + std::max(lineHeight - LineInBar, 0);
}

void LayOutTitle(const TLayoutInput& input, int width, int height, TWindowLayout& layout) {
    layout.titleBar = {0, 0, width, height};
    layout.previousButton = {0, 0, ArrowWidth, height};
    layout.nextButton = {width - NextFromRight, 0, ArrowWidth, height};
    const int end = width - DescriptionFromRight;
    const int room = end - NumberLeft - MovesControlWidth - 2 * Gap;
    const int textWidth = std::clamp(input.titleTextWidth, 0, room);
    layout.problemNumber = {NumberLeft, 0, textWidth, height};
    int left = layout.problemNumber.Right() + Gap;
    if (input.bSettingPosition) {
        layout.movesControl = {left, 0, MovesControlWidth, height};
        left = layout.movesControl.Right() + Gap;
    }
    left = std::max(left, DescriptionLeft);
    layout.description = {left, 0, std::max(end - left, 0), height};
}

void LayOutBoard(int top, int bottom, int width, TWindowLayout& layout) {
    const int forWidth = (width - SmallestPanelWidth) / 8;
    const int forHeight = (bottom - top - StripHeight) / 8;
    layout.fieldSize = std::min(forWidth, forHeight);
    const int side = 8 * layout.fieldSize;
    layout.board = {0, top, side, side};
    layout.messageStrip = {0, top + side, side, bottom - top - side};
}

/// Small, the progress area has a third of the panel; large, all but the variants and a few moves.
void LayOutPanel(const TLayoutInput& input, int bottom, TWindowLayout& layout) {
    const TRectangle& panel = layout.rightPanel;
    const int line = std::max(input.lineHeight, LineInBar);
    const int height = bottom - panel.y;
    const int variants = VariantLines * line;
    const int progress = input.bProgressLarge ? height - 2 * variants : height / 3;
    layout.progress = {panel.x, panel.y, panel.width, progress};
    layout.moves = {panel.x, layout.progress.Bottom(), panel.width, height - progress - variants};
    layout.variants = {panel.x, layout.moves.Bottom(), panel.width, variants};
}

void LayOutBottomBar(int top, int width, int height, TWindowLayout& layout) {
    layout.bottomBar = {0, top, width, height};
    layout.iconArea = {0, top - IconAboveBar, IconWidth, IconHeight + height - BarHeight};
    int left = IconWidth + Gap;
    for (TRectangle& button : layout.buttons) {
        button = {left, top, height, height};
        left = button.Right();
    }
    left += Gap;
    layout.statusText = {left, top, width - left - Gap, height};
}

}  // namespace

TMinimumSize SmallestWindow(int lineHeight) {
    return {8 * SmallestField + SmallestPanelWidth,
            8 * SmallestField + StripHeight + 2 * HeightOfBar(lineHeight)};
}

TWindowLayout LayOutWindow(const TLayoutInput& input) {
    const TMinimumSize smallest = SmallestWindow(input.lineHeight);
    const int width = std::max(input.width, smallest.width);
    const int height = std::max(input.height, smallest.height);
    const int bar = HeightOfBar(input.lineHeight);
    const int barTop = height - bar;
    TWindowLayout layout;
    LayOutTitle(input, width, bar, layout);
    LayOutBoard(bar, barTop, width, layout);
    const int panelLeft = layout.board.Right();
    layout.rightPanel = {panelLeft, bar, width - panelLeft, height - bar};
    LayOutPanel(input, barTop, layout);
    LayOutBottomBar(barTop, width, bar, layout);
    return layout;
}

}  // namespace tarnwick
