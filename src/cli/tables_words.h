#pragma once
// The words of `tarnwick-cli tables` and its commands.

#include <functional>

#include "cli/tables_command.h"

namespace CLI {
class App;
}

namespace tarnwick {

/// Adds `tables` with its commands; the chosen one sets what is to be run. Arguments and console must
/// outlive the words.
void AddTablesWords(CLI::App& app, TTablesArguments& arguments, TConsole& console,
                    std::function<TExitStatus()>& run);

}  // namespace tarnwick
