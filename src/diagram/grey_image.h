#pragma once
// Pictures on their way to the recogniser: from 32-bit pixels to grey values of a size that bounds the
// time of all that follows.

#include <cstdint>
#include <span>
#include <vector>

namespace tarnwick {

/// A picture as the clipboard or a file gives it. The bytes stay the caller's.
struct TBitmap {
    int width = 0;   ///< Pixels.
    int height = 0;  ///< Pixels.
    int bitsPerPixel = 32;
    std::int64_t stride = 0;  ///< Bytes from one row to the next.
    bool bBottomUp = false;   ///< The first row of the bytes is the lowest one.
    std::span<const std::uint8_t>
        bytes;  ///< A pixel is blue, green, red and one byte that is ignored.
};

struct TGreyImage {
    int width = 0;
    int height = 0;
    int factor = 1;                    ///< Pixels of the picture along the side of one of these.
    std::vector<std::uint8_t> pixels;  ///< width * height, the top row first; 0 black, 255 white.

    std::uint8_t At(int x, int y) const {
        return pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
                      static_cast<std::size_t>(x)];
    }
};

/// Longest side of an image that is worked on, pixels.
inline constexpr int LongestGreySide = 2048;

/// The average of red, green and blue of each pixel, with the top row first.
///
/// A picture longer than LongestGreySide is made smaller by a whole number; its pixels are then averages of at
/// most four by four samples, so that the largest picture costs no more than 16 times the smallest such one.
/// Throws ChessException when the picture is not of 32 bits a pixel, is empty, or has fewer bytes than its
/// sizes promise.
TGreyImage ToGrey(const TBitmap& bitmap);

/// A whole-numbered part of the image: each pixel the average of factor by factor ones. A rest at the right
/// and lower edge is left out.
TGreyImage Shrunk(const TGreyImage& image, int factor);

/// Sums of grey values over any rectangle in four look-ups.
class CGreySums {
  public:
    explicit CGreySums(const TGreyImage& image);

    int Width() const { return m_width; }
    int Height() const { return m_height; }
    /// Sum of all pixels left of column x and above row y; 0 <= x <= Width(), 0 <= y <= Height(). Two such
    /// corners are subtracted modulo 2^32, which an image of LongestGreySide never needs.
    std::uint32_t Corner(int x, int y) const {
        return m_sums[static_cast<std::size_t>(y) * (static_cast<std::size_t>(m_width) + 1) +
                      static_cast<std::size_t>(x)];
    }
    /// Average grey value of the pixels from (left, top) up to but without (right, bottom), cut off at the
    /// image's edges; 255, as white paper, where nothing is left.
    double Average(int left, int top, int right, int bottom) const;

  private:
    int m_width;
    int m_height;
    std::vector<std::uint32_t> m_sums;  ///< (width + 1) * (height + 1).
};

}  // namespace tarnwick
