#pragma once
// `tarnwick-cli convert`: problems in another form.

#include <string>

#include "cli/console.h"
#include "cli/exit_status.h"

namespace tarnwick {

struct TConvertArguments {
    std::string in;   ///< "-": standard input.
    std::string out;  ///< "-": standard output.
    std::string to;   ///< "cp", "epd" or "pgn"; empty: what the ending of `out` says.
    std::string ids;  ///< "1,4-9"; empty: all.
};

/// Nothing is written when any part of the input cannot be read. Tells what the form has no words for;
/// problems that it cannot hold at all are left out, and the status is Unreadable then.
TExitStatus RunConvert(const TConvertArguments& arguments, TConsole& console);

}  // namespace tarnwick
