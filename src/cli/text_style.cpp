#include "cli/text_style.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>

#include "base/encoding.h"

namespace tarnwick {
namespace {

std::string EnvironmentText(const char* name) {
    const char* value = std::getenv(name);
    return value == nullptr ? "" : value;
}

/// The number with that many digits behind the point.
std::string Decimal(double number, int digits) {
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), "%.*f", digits, number);
    return text.data();
}

bool IsControl(wchar_t c) {
    return c < 0x20 || (c >= 0x7f && c < 0xa0);
}

}  // namespace

bool WantsEmphasis(TStandardStream stream) {
    return IsTerminal(stream) && EnvironmentText("NO_COLOR").empty() &&
           EnvironmentText("TERM") != "dumb";
}

bool LocaleIsUtf8() {
    // The first of these that is set decides, as for every program.
    for (const char* name : {"LC_ALL", "LC_CTYPE", "LANG"}) {
        const std::string value = EnvironmentText(name);
        if (!value.empty()) {
            return value.find("UTF-8") != std::string::npos ||
                   value.find("utf8") != std::string::npos;
        }
    }
    return false;
}

std::string CTextStyle::Wrapped(const char* on, std::string_view text) const {
    return m_bOn ? on + std::string(text) + "\x1b[0m" : std::string(text);
}

std::string ShownText(std::string_view text) {
    std::wstring wide = FromUtf8(text);
    std::ranges::replace(wide, L'\t', L' ');
    std::ranges::replace_if(wide, IsControl, L'\uFFFD');
    return ToUtf8(wide);
}

std::string GroupedNumber(std::uint64_t number) {
    std::string text = std::to_string(number);
    for (std::size_t i = text.size(); i > 3;) {
        i -= 3;
        text.insert(i, ",");
    }
    return text;
}

std::string DurationText(std::uint64_t milliseconds) {
    const std::uint64_t seconds = milliseconds / 1000;
    if (seconds < 60) {
        return Decimal(static_cast<double>(milliseconds) / 1000, seconds < 10 ? 3 : 1) + " s";
    }
    if (seconds < 3600) {
        return std::to_string(seconds / 60) + " min " + std::to_string(seconds % 60) + " s";
    }
    return std::to_string(seconds / 3600) + " h " + std::to_string(seconds / 60 % 60) + " min";
}

std::string SpeedText(std::uint64_t count, std::uint64_t milliseconds, const char* unit) {
    if (milliseconds < 10) {
        return "";
    }
    const double perSecond = static_cast<double>(count) * 1000 / static_cast<double>(milliseconds);
    const std::string number =
        perSecond < 1e6 ? Decimal(perSecond / 1e3, 0) + " k" : Decimal(perSecond / 1e6, 1) + " M";
    return number + unit + "/s";
}

std::string CountText(std::uint64_t count, const char* singular) {
    return GroupedNumber(count) + ' ' + singular + (count == 1 ? "" : "s");
}

std::string Joined(const std::vector<std::string>& texts, const char* separator) {
    std::string all;
    for (const std::string& text : texts) {
        all += (all.empty() ? "" : separator) + text;
    }
    return all;
}

}  // namespace tarnwick
