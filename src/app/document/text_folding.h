#pragma once
// Texts as a search box compares them: without case and accents, so that "zolw" finds "Żółw".
//
// The table is our own, since the C library folds by the user's locale and a search must not depend on
// it. It knows the Latin letters up to U+017F, Greek and Cyrillic; combining accents vanish.

#include <string>
#include <string_view>

namespace tarnwick {

/// UTF-8 of the folded text.
std::string FoldedText(std::wstring_view text);

}  // namespace tarnwick
