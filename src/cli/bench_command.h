#pragma once
// `tarnwick-cli bench`: solves a fixed set with one thread. Its sum of nodes, the search signature, is
// the same on every machine; its time compares machines and builds.

#include "cli/console.h"
#include "cli/exit_status.h"

namespace tarnwick {

struct TBenchPosition {
    const char* name;
    const char* fen;  ///< The placement; White to move.
    int moves;
    bool bAll = true;  ///< All keys, so that the whole tree is searched.
};

struct TBenchArguments {
    bool bJson = false;
};

TExitStatus RunBench(const TBenchArguments& arguments, TConsole& console);

}  // namespace tarnwick
