#include "diagram/grey_image.h"

#include <algorithm>
#include <cstddef>

#include "base/chess_exception.h"

#include "diagram/recognition_texts.h"

namespace tarnwick {
namespace {

constexpr int BytesPerPixel = 4;
/// Samples of a shrunk pixel along each side.
constexpr int MostSamples = 4;

/// Every number here may come from a damaged or hostile file.
void CheckBitmap(const TBitmap& bitmap) {
    if (bitmap.bitsPerPixel != 8 * BytesPerPixel) {
        throw ChessException(UserText(UnknownPictureFormatText));
    }
    const std::int64_t rowBytes = std::int64_t{bitmap.width} * BytesPerPixel;
    const auto given = static_cast<std::int64_t>(bitmap.bytes.size());
    const bool bSizes = bitmap.width > 0 && bitmap.height > 0 && bitmap.stride >= rowBytes;
    // A division instead of a product, which could overflow.
    if (!bSizes || given < rowBytes || (given - rowBytes) / bitmap.stride < bitmap.height - 1) {
        throw ChessException(UserText(NotRecognizedText));
    }
}

int GreyOf(const std::uint8_t* pixel) {
    return (pixel[0] + pixel[1] + pixel[2]) / 3;
}

}  // namespace

TGreyImage ToGrey(const TBitmap& bitmap) {
    CheckBitmap(bitmap);
    const int longest = std::max(bitmap.width, bitmap.height);
    const int factor = (longest - 1) / LongestGreySide + 1;
    const int samples = std::min(factor, MostSamples);
    TGreyImage grey{.width = bitmap.width / factor,
                    .height = bitmap.height / factor,
                    .factor = factor,
                    .pixels = {}};
    grey.pixels.reserve(static_cast<std::size_t>(grey.width) *
                        static_cast<std::size_t>(grey.height));
    const auto row = [&bitmap](int y) {
        const int stored = bitmap.bBottomUp ? bitmap.height - 1 - y : y;
        return bitmap.bytes.data() + bitmap.stride * stored;
    };
    for (int y = 0; y < grey.height; ++y) {
        for (int x = 0; x < grey.width; ++x) {
            int sum = 0;
            for (int j = 0; j < samples; ++j) {
                const std::uint8_t* const bytes = row(y * factor + j * factor / samples);
                for (int i = 0; i < samples; ++i) {
                    sum += GreyOf(bytes + BytesPerPixel *
                                              std::ptrdiff_t{x * factor + i * factor / samples});
                }
            }
            grey.pixels.push_back(static_cast<std::uint8_t>(sum / (samples * samples)));
        }
    }
    return grey;
}

TGreyImage Shrunk(const TGreyImage& image, int factor) {
    const CGreySums sums(image);
    TGreyImage small{.width = image.width / factor,
                     .height = image.height / factor,
                     .factor = image.factor * factor,
                     .pixels = {}};
    for (int y = 0; y < small.height; ++y) {
        for (int x = 0; x < small.width; ++x) {
            small.pixels.push_back(static_cast<std::uint8_t>(
                sums.Average(x * factor, y * factor, (x + 1) * factor, (y + 1) * factor)));
        }
    }
    return small;
}

CGreySums::CGreySums(const TGreyImage& image)
    : m_width(image.width),
      m_height(image.height),
      m_sums((static_cast<std::size_t>(image.width) + 1) *
             (static_cast<std::size_t>(image.height) + 1)) {
    const std::size_t rowLength = static_cast<std::size_t>(m_width) + 1;
    for (int y = 0; y < m_height; ++y) {
        std::uint32_t ofRow = 0;
        std::uint32_t* const sums = m_sums.data() + (static_cast<std::size_t>(y) + 1) * rowLength;
        for (int x = 0; x < m_width; ++x) {
            ofRow += image.At(x, y);
            sums[x + 1] = *(sums + x + 1 - rowLength) + ofRow;
        }
    }
}

double CGreySums::Average(int left, int top, int right, int bottom) const {
    left = std::clamp(left, 0, m_width);
    right = std::clamp(right, 0, m_width);
    top = std::clamp(top, 0, m_height);
    bottom = std::clamp(bottom, 0, m_height);
    if (left >= right || top >= bottom) {
        return 255;
    }
    const std::uint32_t sum =
        Corner(right, bottom) - Corner(left, bottom) - Corner(right, top) + Corner(left, top);
    return static_cast<double>(sum) / (static_cast<double>(right - left) * (bottom - top));
}

}  // namespace tarnwick
