#include "diagram/field_images.h"

#include <algorithm>
#include <cmath>

#include "chess/fields.h"

namespace tarnwick {
namespace {

constexpr int HighestBlack = 48;
constexpr int LowestWhite = 176;
/// So many of 1,000 pixels may be darker than black, or lighter than white: specks of the print.
constexpr int SpecksPerMille = 1;

/// The integral of the grey values left of x and above y, where pixels have an area.
double SumAt(const CGreySums& sums, double x, double y) {
    x = std::clamp(x, 0.0, static_cast<double>(sums.Width()));
    y = std::clamp(y, 0.0, static_cast<double>(sums.Height()));
    const int left = std::min(static_cast<int>(x), sums.Width() - 1);
    const int top = std::min(static_cast<int>(y), sums.Height() - 1);
    const double right = x - left;
    const double below = y - top;
    const double upper = sums.Corner(left, top) * (1 - right) + sums.Corner(left + 1, top) * right;
    const double lower =
        sums.Corner(left, top + 1) * (1 - right) + sums.Corner(left + 1, top + 1) * right;
    return upper * (1 - below) + lower * below;
}

/// Each pixel is the average of the part of the image that it covers, of a pixel at least: this shrinks large
/// fields without losing lines, and enlarges small ones smoothly.
TFieldImage CutOut(const CGreySums& sums, double left, double top, double width, double height,
                   TGreyLevels levels) {
    const double stepX = width / FieldImageSide;
    const double stepY = height / FieldImageSide;
    const double halfX = std::max(stepX, 1.0) / 2;
    const double halfY = std::max(stepY, 1.0) / 2;
    TFieldImage field;
    for (int row = 0; row < FieldImageSide; ++row) {
        const double y = top + (row + 0.5) * stepY;
        for (int column = 0; column < FieldImageSide; ++column) {
            const double x = left + (column + 0.5) * stepX;
            const double sum =
                SumAt(sums, x + halfX, y + halfY) - SumAt(sums, x - halfX, y + halfY) -
                SumAt(sums, x + halfX, y - halfY) + SumAt(sums, x - halfX, y - halfY);
            const double grey = sum / (4 * halfX * halfY);
            field[static_cast<std::size_t>(row * FieldImageSide + column)] = static_cast<float>(
                std::clamp((grey - levels.black) / (levels.white - levels.black), 0.0, 1.0));
        }
    }
    return field;
}

}  // namespace

TGreyLevels GreyLevels(const TGreyImage& image, const TBoardFrame& frame) {
    std::array<int, 256> counts{};
    int total = 0;
    const int right = std::min(image.width, static_cast<int>(frame.right));
    const int bottom = std::min(image.height, static_cast<int>(frame.bottom));
    for (int y = std::max(0, static_cast<int>(frame.top)); y < bottom; ++y) {
        for (int x = std::max(0, static_cast<int>(frame.left)); x < right; ++x) {
            ++counts[image.At(x, y)];
            ++total;
        }
    }
    const int specks = total / 1000 * SpecksPerMille;
    TGreyLevels levels;
    for (int passed = counts[0]; passed <= specks && levels.black < HighestBlack;) {
        passed += counts[static_cast<std::size_t>(++levels.black)];
    }
    for (int passed = counts[255]; passed <= specks && levels.white > LowestWhite;) {
        passed += counts[static_cast<std::size_t>(--levels.white)];
    }
    return levels;
}

std::vector<TFieldImage> FieldImages(const CGreySums& sums, const TBoardFrame& frame,
                                     TGreyLevels levels) {
    std::vector<TFieldImage> fields;
    fields.reserve(FieldCount);
    for (int number = 0; number < FieldCount; ++number) {
        fields.push_back(CutOut(sums, frame.left + FileOf(number) * frame.FieldWidth() + 1,
                                frame.top + (7 - RankOf(number)) * frame.FieldHeight() + 1,
                                frame.FieldWidth() - 2, frame.FieldHeight() - 2, levels));
    }
    return fields;
}

}  // namespace tarnwick
