#pragma once
// `tarnwick-cli solve`: problems from a file, standard input or the command line to their keys.

#include <cstddef>
#include <cstdint>
#include <string>

#include "cli/console.h"
#include "cli/exit_status.h"

namespace tarnwick {

struct TSolveArguments {
    std::string file;  ///< "-": standard input. Empty: the position is in `fen`.
    std::string fen;
    int mate = 0;             ///< The stipulation that belongs to `fen`.
    std::string ids;          ///< "1,4-9"; empty: all.
    bool bAll = false;        ///< All keys of every problem, whatever its own options say.
    double seconds = 0;       ///< For each problem; 0: no limit.
    std::uint64_t nodes = 0;  ///< For each problem; 0: no limit.
    std::size_t memoryMiB = 0;
    bool bJson = false;
    bool bBrief = false;  ///< One line a problem instead of picture and all.
};

TExitStatus RunSolve(const TSolveArguments& arguments, TConsole& console);

}  // namespace tarnwick
