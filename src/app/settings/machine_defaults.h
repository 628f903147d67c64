#pragma once

// With how many threads the program solves before its user has said anything.
//
// A small machine gives each core one of the first moves. A large one has more cores than problems have
// good first moves, so there the threads multiply over two levels of moves: the square root of the cores
// at each.

#include "platform/memory_info.h"

#include "app/settings/options.h"

namespace tarnwick {

struct TMachineDefaults {
    int threads = 1;
    bool bTwoLevels = false;  ///< A large machine: two multithreading levels.
};

/// Large: 8 cores or more, or 6 with 12 logical processors or more. Threads: 1 to 64.
TMachineDefaults MachineDefaults(const TProcessors& processors);

/// The threads to start with. A large machine also sets the option of levels to 2.
int ApplyMachineDefaults(const TProcessors& processors, TOptions& options);

}  // namespace tarnwick
