#pragma once
// Answers of the node functions and of register queries.

#include <cstdint>

namespace tarnwick {

enum class TNodeResult : std::int8_t {
    ResultMate = 1,         ///< Mate within the plies left, against all defences.
    ResultNoMate = 0,       ///< Proved that there is none under the rules of this pass.
    ResultDoubtful = -1,    ///< None found, but something was cut off.
    ResultPending = -2,     ///< A paused thread, or a defence refuted during ordering.
    ResultRepetition = -3,  ///< The line repeated a position of an earlier ply.
    ResultEndOfFFMDepth = -4
};
using enum TNodeResult;

constexpr bool IsRepetitionOrLower(TNodeResult result) {
    return static_cast<std::int8_t>(result) <= static_cast<std::int8_t>(ResultRepetition);
}

/// A register's answer is another thing than a node's: it can also know nothing, or know of a mate that
/// needs additional moves.
enum class TRegisterAnswer : std::int8_t {
    Mate,
    NoMate,
    Doubtful,
    MateWithAdditionalMoves,
    Unknown
};

}  // namespace tarnwick
