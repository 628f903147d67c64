#pragma once
// What the registers answer. Numbers of plies are odd with White to move, even with Black to move.

#include <cstdint>

namespace tarnwick {

/// Answer of a register query at a node of the search. The values are fixed: the search compares them
/// with its own codes.
enum class TRegisterResult : std::int8_t {
    Mate = 1,
    NoMate = 0,
    NoMateUnderHeuristics = -1,  ///< Only as long as these special heuristics are believed.
    Unknown = -2,
    QuickerMate = 2  ///< Mate, but found by looking for a quicker one.
};

/// Answer of the register of solved problems.
enum class TSolvedAnswer : std::uint8_t {
    No = 0,
    Yes = 1,
    Unknown = 254
};

}  // namespace tarnwick
