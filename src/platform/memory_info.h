#pragma once

// What the machine really lets this process have: memory and processors.
//
// A container sees the memory and the processors of its host, but is killed or held back at the limits
// of its control groups. Stores and thread counts are sized by the numbers here, which respect both
// generations of such limits, those of the own group and of all groups around it.
//
// Each operation reads a few small files under proc and sys, in well under a millisecond; ask at a job's
// start, not in a node. What cannot be read counts as no limit. Any thread. `root` is the folder in
// which proc and sys stand; tests bring their own.

#include <cstdint>
#include <filesystem>

namespace tarnwick {

struct TProcessors {
    int physical = 1;  ///< Cores; two hyper-threads of one core are one.
    int logical = 1;   ///< Hardware threads, at least as many as cores.
};

/// Bytes of memory that this process may use: the smallest of the installed memory and the limits of its
/// control groups. 0 only if nothing at all could be read.
std::uint64_t MemoryOfMachine(const std::filesystem::path& root = "/");

/// Bytes of memory that this process holds now; 0 if unknown.
std::uint64_t ResidentBytes(const std::filesystem::path& root = "/");

/// Processors on which this process may run: those of its affinity mask, and no more than its control
/// groups' share of processor time, rounded up. Both counts are at least 1.
TProcessors ProcessorsOfMachine(const std::filesystem::path& root = "/");

}  // namespace tarnwick
