#pragma once
// What the engine can be told, with its defaults. app/ and the command line fill a copy; a job copies it
// at its start and never looks back.

#include <cstddef>
#include <cstdint>
#include <filesystem>

namespace tarnwick {

struct TEngineOptions {
    bool bAllSolutions = false;  ///< All keys are wanted; otherwise the search ends at the first.
    bool bStopOnDual = false;    ///< With bAllSolutions: end at the second key.
    bool bStopOn3Sol = false;    ///< With bAllSolutions: end at the third key.
    std::uint64_t timeLimitMs = 0;  ///< 0: none. Looked at about every millisecond.
    std::uint64_t nodeLimit = 0;    ///< 0: none. In leaf visits, quicker-mate work included.

    /// Quick mode drops every repetition at once and believes what it then finds. It is faster in long
    /// problems, and a "no mate" is no proof any more. Off: safe mode.
    bool bQuickMode = false;
    /// Threads at the root and in each further level, 1 to 64.
    std::uint16_t threads = 1;
    /// White moves from the root that are spread over threads, 1 to 64.
    std::uint8_t multithreadingLevels = 1;

    /// Memory of the job for positions, in percent of what the machine gives, unless memoryMiB says it.
    int memoryPercent = 20;
    /// The same in MiB; negative: as memoryPercent says; 0: nothing is remembered.
    std::int64_t memoryMiB = -1;
    /// The part of it that each search thread has to itself, at most; a job with a register gives each
    /// thread less. 0 switches these memories off.
    std::size_t positionMemoryMiB = 64;
    /// Use the register also in problems of five moves and less, where it costs more than it gives: for
    /// tests that want to see it at work on positions that a slow solver can judge.
    bool bRegisterAlways = false;

    bool bScout = true;  ///< Try for one mate by proof numbers before the full search.

    bool bCheckRegisterCoherency =
        true;                       ///< Tell about contradictions in the register (safe mode).
    bool bRegisterInfoLog = false;  ///< Write registerInfo.log.
    bool bLogMoves = false;         ///< Write a log of all moves for each thread.
    std::filesystem::path logFolder = ".";
};

}  // namespace tarnwick
