#pragma once
// Problems in the program's own form, and what of a file that form cannot keep.

#include <string>

#include "cli/problem_input.h"

namespace tarnwick {

/// Tells the user which settings, moves and comments of the input will not be in the text.
void TellCpLosses(const TTextInput& text, const TProblemInput& input, CConsoleDialog& dialog);

/// The problems as a file, by rising number. Takes them out of the input.
std::string TakeCpText(TProblemInput& input);

}  // namespace tarnwick
