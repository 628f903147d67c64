#pragma once
// A rectangle of the window, in logical pixels from the top left corner.

namespace tarnwick {

struct TRectangle {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;

    constexpr int Right() const { return x + width; }    ///< The first pixel behind it.
    constexpr int Bottom() const { return y + height; }  ///< The first pixel below it.
    constexpr bool Contains(int px, int py) const {
        return px >= x && px < Right() && py >= y && py < Bottom();
    }
    constexpr bool IsEmpty() const { return width <= 0 || height <= 0; }
    constexpr bool operator==(const TRectangle&) const = default;
};

}  // namespace tarnwick
