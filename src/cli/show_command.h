#pragma once
// `tarnwick-cli show`: problems as pictures, without solving them.

#include <optional>
#include <string>

#include "cli/console.h"
#include "cli/exit_status.h"

namespace tarnwick {

struct TShowArguments {
    std::string file;  ///< "-": standard input. Empty: the position is in `fen`.
    std::string fen;
    std::string ids;                        ///< "1,4-9"; empty: all.
    std::optional<TBoardStyle> boardStyle;  ///< Nothing: what suits the terminal.
};

TExitStatus RunShow(const TShowArguments& arguments, TConsole& console);

}  // namespace tarnwick
