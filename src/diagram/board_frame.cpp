#include "diagram/board_frame.h"

#include <algorithm>
#include <array>

namespace tarnwick {
namespace {

constexpr int ClassCount = 16;
constexpr int DefaultThreshold = 240;
/// A board has eight fields a line, four of each colour.
constexpr int LeastRuns = 8;
constexpr int LeastRunsOfOneKind = 4;

/// Whether a line of so many pixels crosses a board. lightAt(i): pixel i is light.
template <typename TLightAt>
bool CrossesBoard(int length, TLightAt lightAt) {
    const int leastRun = std::max(std::min(length / 8, 12), length / 16);
    int runs[2] = {0, 0};  // dark, light
    int begin = 0;
    for (int i = 1; i <= length; ++i) {
        if (i < length && lightAt(i) == lightAt(begin)) {
            continue;
        }
        if (i - begin >= leastRun) {
            ++runs[lightAt(begin) ? 1 : 0];
        }
        begin = i;
    }
    return runs[0] + runs[1] >= LeastRuns && std::min(runs[0], runs[1]) >= LeastRunsOfOneKind;
}

struct TSpan {
    int first = 0;
    int last = 0;
};

/// First and last of the lines for which crosses(line) holds.
template <typename TCrosses>
std::optional<TSpan> CrossingLines(int count, TCrosses crosses) {
    int first = 0;
    while (first < count && !crosses(first)) {
        ++first;
    }
    int last = count - 1;
    while (last > first && !crosses(last)) {
        --last;
    }
    return first < last ? std::optional(TSpan{first, last}) : std::nullopt;
}

}  // namespace

int LightThreshold(const TGreyImage& image) {
    std::array<int, ClassCount> counts{};
    int sample = 0;
    for (std::size_t i = 0; i < image.pixels.size(); i += 4) {
        ++counts[static_cast<std::size_t>(image.pixels[i] >> 4)];
        ++sample;
    }
    if (counts[ClassCount - 1] > sample / 4) {
        return DefaultThreshold;
    }
    // Down from the lightest class: once a quarter of the sample lies above, the first class that begins a
    // new hill is darker than the light fields.
    int above = 0;
    for (int number = ClassCount - 2; number >= 0; --number) {
        const int count = counts[static_cast<std::size_t>(number)];
        const int next = counts[static_cast<std::size_t>(number) + 1];
        above += next;
        if (above > sample / 4 && count - next > sample / 100) {
            const int threshold = (number + 1) * 16;
            return threshold <= 179 && count > sample / 4 ? threshold + 16 : threshold;
        }
    }
    return DefaultThreshold;
}

std::optional<TBoardFrame> FrameByRuns(const TGreyImage& image, int lightThreshold) {
    const auto light = [&](int x, int y) { return image.At(x, y) >= lightThreshold; };
    const auto columns = CrossingLines(image.width, [&](int x) {
        return CrossesBoard(image.height, [&](int y) { return light(x, y); });
    });
    const auto rows = CrossingLines(image.height, [&](int y) {
        return CrossesBoard(image.width, [&](int x) { return light(x, y); });
    });
    if (!columns || !rows) {
        return std::nullopt;
    }
    return TBoardFrame{static_cast<double>(columns->first), static_cast<double>(rows->first),
                       columns->last + 1.0, rows->last + 1.0};
}

}  // namespace tarnwick
