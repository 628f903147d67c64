#include "app/document/filled_text.h"

#include <cassert>

namespace tarnwick {

std::string FilledText(const TUserText& text, const std::vector<std::string>& values) {
    std::string filled;
    std::size_t next = 0;
    for (const char* p = UserText(text); *p != 0; ++p) {
        if (*p == '%' && (p[1] == 's' || p[1] == 'd')) {
            assert(next < values.size());
            filled += values[next++];
            ++p;
        } else {
            filled += *p;
        }
    }
    return filled;
}

}  // namespace tarnwick
