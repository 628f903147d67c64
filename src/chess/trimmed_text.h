#pragma once
// Blanks around and between the words of a typed or pasted text. A line end counts as one: texts come
// from clipboards and from files with either kind of line end.

#include <string_view>

namespace tarnwick {

inline constexpr std::string_view Blanks = " \t\r\n";

constexpr std::string_view Trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(Blanks);
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(Blanks) - first + 1);
}

}  // namespace tarnwick
