#pragma once
// How a job's memory for positions is shared out: the larger part to the register that all threads use
// together, the smaller to the memories that each has to itself.

#include "engine/engine_options.h"
#include "registers/register_limits.h"

namespace tarnwick {

/// The user's limit in MiB, before the machine's own.
std::uint64_t MemoryLimitMiB(const TEngineOptions& options, std::uint64_t machineBytes);

/// Limits of the register.
TRegisterLimits RegisterLimitsFor(const TEngineOptions& options);

/// MiB for the position memory of each thread, when so many threads can run at once.
std::size_t PositionMemoryMiB(const TEngineOptions& options, int plies, std::uint64_t threads);

/// MiB for the scout's table; 0: no memory for a scout.
std::size_t ScoutTableMiB(const TEngineOptions& options);

/// More are refused: their contexts alone would take gigabytes.
inline constexpr std::uint64_t MostThreadsAtOnce = 4200;

/// Most search threads that run at once: the root's, and those of each further level.
std::uint64_t MostThreads(int threads, int levels);

/// Most threads of the scheduler, which add to those: as many as the memory for the threads allows, and
/// always some. Most of them wait, but each has its boards.
int MostJuggledThreads(const TEngineOptions& options);

}  // namespace tarnwick
