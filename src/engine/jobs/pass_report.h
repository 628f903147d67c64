#pragma once
// What a pass of a solving job did, for reports.

#include <cstdint>
#include <string>

namespace tarnwick {

/// What one pass did.
struct TPassReport {
    std::string name;         ///< "0" the sieve, "scout", "1", "1b" ..., "2" without heuristics.
    std::string heuristics;   ///< Their list; empty without.
    std::uint64_t nodes = 0;  ///< Leaf visits; of a scout, expanded nodes.
    std::uint64_t ms = 0;
    int keysFound = 0;
    bool bComplete = false;  ///< It came to its end.
};

}  // namespace tarnwick
