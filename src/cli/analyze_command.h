#pragma once
// `tarnwick-cli analyze`: what the engine thinks of problems before it solves them.

#include <string>

#include "cli/console.h"
#include "cli/exit_status.h"

namespace tarnwick {

struct TAnalyzeArguments {
    std::string file;  ///< "-": standard input. Empty: the position is in `fen`.
    std::string fen;
    int mate = 0;            ///< The stipulation that belongs to `fen`.
    std::string ids;         ///< "1,4-9"; empty: all.
    bool bNoTrials = false;  ///< No short searches.
    bool bJson = false;
};

TExitStatus RunAnalyze(const TAnalyzeArguments& arguments, TConsole& console);

}  // namespace tarnwick
