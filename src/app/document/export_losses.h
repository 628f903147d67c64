#pragma once
// Problems leave for other programs: what those cannot take is told before it is written.

#include <string>

#include "problems/exported_text.h"

namespace tarnwick {

/// "So many problems lose something", the first of them with what, and whether to go on. There must be
/// losses. In the user's language.
std::string QuestionAboutLosses(const TExportedText& exported);

}  // namespace tarnwick
