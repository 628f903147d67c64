#pragma once
// From the words of the command line to the command that does the work.

#include "cli/console.h"
#include "cli/exit_status.h"

namespace tarnwick {

/// Reads the words and runs the command. Wrong words are answered with what is wrong and how to get
/// help. Throws what the command throws.
TExitStatus RunCommandLine(int argc, const char* const* argv, TConsole& console);

}  // namespace tarnwick
