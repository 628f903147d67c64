#pragma once
// Texts of the user with names and numbers in them.

#include <string>
#include <vector>

#include "base/language.h"

namespace tarnwick {

/// The text in the present language with the values, already text, in place of its "%s" and "%d" from
/// left to right. Values are not looked at: a name with a percent sign stays as it is.
std::string FilledText(const TUserText& text, const std::vector<std::string>& values);

}  // namespace tarnwick
