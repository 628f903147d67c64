#pragma once
// `tarnwick-cli format`: problem files in the program's own form. An EPD text becomes a problem file.

#include <string>

#include "cli/console.h"
#include "cli/exit_status.h"

namespace tarnwick {

struct TFormatArguments {
    std::string file;  ///< "-": standard input.
    std::string out;   ///< Where to; empty: standard output, or in place.
    bool bInPlace = false;
};

/// Nothing is written when any part of the input cannot be read: what was not understood would be lost.
/// Tells the user what the form has no words for.
TExitStatus RunFormat(const TFormatArguments& arguments, TConsole& console);

}  // namespace tarnwick
