#pragma once
// What the engine can be told, with its defaults. app/ and the command line fill a copy; a job copies it
// at its start and never looks back.

#include <cstddef>
#include <cstdint>

namespace tarnwick {

struct TEngineOptions {
    bool bAllSolutions = false;  ///< All keys are wanted; otherwise the search ends at the first.
    bool bStopOnDual = false;    ///< With bAllSolutions: end at the second key.
    bool bStopOn3Sol = false;    ///< With bAllSolutions: end at the third key.
    std::uint64_t timeLimitMs = 0;  ///< 0: none. Looked at about every millisecond.
    std::uint64_t nodeLimit = 0;    ///< 0: none. In leaf visits, quicker-mate work included.
    std::size_t memoryMiB = 64;     ///< Size of a thread's position memory; 0 switches it off.
};

}  // namespace tarnwick
