#pragma once
// A user text with its gaps filled. The texts have printf's conversions, so that translators know them,
// but a format that is chosen by the language cannot be checked by the compiler: so it is filled by hand.

#include <initializer_list>
#include <string>
#include <string_view>

namespace tarnwick {

/// Each "%d" or "%s" of the text is replaced by the next value; what is left over stays as it is.
inline std::string FilledText(std::string_view text, std::initializer_list<std::string> values) {
    std::string filled;
    auto value = values.begin();
    for (std::size_t i = 0; i < text.size(); ++i) {
        const std::string_view sign = text.substr(i, 2);
        if ((sign == "%d" || sign == "%s") && value != values.end()) {
            filled += *value++;
            ++i;
        } else {
            filled += text[i];
        }
    }
    return filled;
}

}  // namespace tarnwick
