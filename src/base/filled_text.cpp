#include "base/filled_text.h"

namespace tarnwick {

std::string FilledText(std::string_view text, const std::vector<std::string>& values) {
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
