#pragma once
// Results that go to a file the user named, or to standard output.

#include <string>
#include <string_view>

#include "cli/console.h"
#include "cli/exit_status.h"

namespace tarnwick {

/// Writes the bytes to the file in one step, so that it holds the old or the new content, whole; to
/// standard output if the name is empty or "-". Tells the user why it cannot, and returns InternalError
/// then, else Success.
TExitStatus WriteOutput(std::string_view bytes, const std::string& target, TConsole& console);

}  // namespace tarnwick
