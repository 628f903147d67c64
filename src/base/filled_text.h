#pragma once
// Texts of the user with names and numbers in them. They have printf's conversions, so that translators
// know them; but the compiler cannot check a format that the language chooses, so they are filled by hand.

#include <string>
#include <string_view>
#include <vector>

#include "base/language.h"

namespace tarnwick {

/// The text with the values, already text, in place of its "%s" and "%d" from left to right. Values are not
/// looked at: a name with a percent sign stays as it is. A sign without a value stays too.
std::string FilledText(std::string_view text, const std::vector<std::string>& values);

/// The same for the text in the present language.
inline std::string FilledText(const TUserText& text, const std::vector<std::string>& values) {
    return FilledText(std::string_view(UserText(text)), values);
}

}  // namespace tarnwick
