#pragma once

// The processors on which this process runs, as the user may choose them. How many there are in cores and
// hardware threads, for the number of solving threads, is told by memory_info.h.

#include <vector>

namespace tarnwick {

/// Numbers of the processors on which the process's first thread may run, rising, from 0. At least {0}.
std::vector<int> AllowedProcessors();

/// Moves all threads of this process to these processors; new threads follow the one that makes them.
/// False where the system refuses (an empty list, processors that do not exist or are not ours to use);
/// nothing changed then. Threads that begin or end meanwhile count as moved. One thread at a time.
bool SetAllowedProcessors(const std::vector<int>& processors);

}  // namespace tarnwick
