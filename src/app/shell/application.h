#pragma once
// The program with its window, from the command line to the end.

namespace tarnwick {

/// tarnwick [--home DIR] [FILE], or --version or --help. Returns the exit status: 0, or 2 for wrong
/// usage.
int RunApplication(int argc, char** argv);

}  // namespace tarnwick
