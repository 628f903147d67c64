#pragma once
// `tarnwick-cli solve`: problems from a file, standard input or the command line to their keys.

#include <cstddef>
#include <cstdint>
#include <optional>
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
    std::string threads;      ///< "T" or "T^L"; empty: one for each core.
    std::string memory;       ///< "MIB" or "P%"; empty: the engine's default.
    bool bQuick = false;
    bool bNoScout = false;
    std::optional<int> schedulerLevels;  ///< 0 to 9; nothing: as the problem says.
    bool bCustomScheduler = false;
    std::string heuristics;    ///< "auto", "none" or a list; empty: "auto".
    std::string relax;         ///< "on" or "off"; empty: on, unless the problem says when to stop.
    std::string finalPass;     ///< The pass without heuristics, "on" or "off"; empty: on.
    bool bNoForced = false;    ///< No passes of forcing moves in the beginning.
    std::string registerFile;  ///< To load before and to save after; empty: none.
    double checkpointMinutes = 0;   ///< Between saves while solving; 0: none.
    std::uint64_t registerMiB = 0;  ///< Largest size of that file before packing; 0: any.
    bool bCompress = false;         ///< Pack it.
    std::string dataFolder;         ///< Of precalculated tables; empty: none are asked.
    int dataPercent = 20;           ///< Of the machine's memory for tables.
    std::string solvedFolder;       ///< Of answers of earlier runs; empty: none.
    std::string logFolder;          ///< For logs of all moves; empty: none.
    bool bJson = false;
    bool bBrief = false;  ///< One line a problem instead of picture and all.
};

TExitStatus RunSolve(const TSolveArguments& arguments, TConsole& console);

}  // namespace tarnwick
