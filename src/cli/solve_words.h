#pragma once
// The words of `solve` on the command line.

#include <CLI/CLI.hpp>

#include "cli/solve_command.h"

namespace tarnwick {

/// Adds all options of the command, which fill the arguments when the command line is read, and the
/// examples behind them.
void AddSolveWords(CLI::App& solve, TSolveArguments& arguments);

}  // namespace tarnwick
