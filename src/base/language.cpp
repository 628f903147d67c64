#include "base/language.h"

namespace tarnwick {

std::atomic<LanguageId> g_language{LanguageId::English};

const char* UserText(const TUserText& text, LanguageId language) noexcept {
    if (language == LanguageId::Ukrainian && text.uk != nullptr) {
        return text.uk;
    }
    if (language != LanguageId::Polish && text.en != nullptr) {
        return text.en;
    }
    return text.pl != nullptr ? text.pl : text.en;
}

const char* UserText(const TUserText& text) noexcept {
    return UserText(text, g_language.load(std::memory_order_relaxed));
}

}  // namespace tarnwick
