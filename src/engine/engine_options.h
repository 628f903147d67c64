#pragma once
// What the engine can be told, with its defaults. app/ and the command line fill a copy; a job copies it
// at its start and never looks back.

#include <cstddef>
#include <cstdint>
#include <filesystem>

namespace tarnwick {

/// Where the special heuristics of the first pass come from.
enum class THeuristicsFrom : std::uint8_t {
    None,      ///< No pass with heuristics.
    Analysis,  ///< The engine looks at the position and chooses.
    User       ///< TSolveTask::m_givenHeuristics.
};

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
    /// White moves behind those whose moves take turns in threads, 0 to 9; 0 switches the scheduler off.
    /// It is for very long problems. A job that logs its moves has none: turns would tear the log apart.
    std::uint8_t schedulerLevels = 0;
    /// Let moves take turns also further down where the hints for the order name several of them. Off
    /// with schedulerLevels 0.
    bool bCustomScheduler = false;

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

    THeuristicsFrom heuristics = THeuristicsFrom::None;
    bool bLetRelaxHeuristics = true;  ///< Further passes with weaker heuristics. Off: one only.
    /// Once a pass has found a key, no weaker heuristics: what is left goes to the last pass. For those
    /// who want all keys and know that the others are of another kind.
    bool bStopRelaxOnFirstSolution = false;
    /// The last pass, which alone can show that there is no mate. Off: what is left open stays open.
    bool bRunPassWithoutHeuristics = true;
    /// Analyse also problems of five moves and less, which are solved sooner without: for tests that want
    /// to see the passes at work on positions that a slow solver can judge.
    bool bAnalyseAlways = false;
    /// Below White's moves that face a king just driven to the edge, search first as if it had to stay.
    bool bHeuristicsFallback = false;
    /// The analysis may begin with passes of forcing moves.
    bool bForcedMatePasses = true;

    bool bCheckRegisterCoherency =
        true;                       ///< Tell about contradictions in the register (safe mode).
    bool bRegisterInfoLog = false;  ///< Write registerInfo.log.
    bool bLogMoves = false;         ///< Write a log of all moves for each thread.
    bool bRelaxationLog = false;    ///< Write TryRelaxSpecialHeuristics.log.
    std::filesystem::path logFolder = ".";
};

}  // namespace tarnwick
