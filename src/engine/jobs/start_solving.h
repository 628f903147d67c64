#pragma once
// StartSolving: one problem from its position to its keys, on the calling thread.

#include <cstdint>
#include <string>
#include <vector>

#include "chess/chessboard.h"
#include "chess/move.h"
#include "engine/jobs/solve_task.h"

namespace tarnwick {

enum class TSolveStatus : std::uint8_t {
    Mate,     ///< Keys were found. With all keys wanted and no limit reached, they are all of them.
    NoMate,   ///< Proved that there is none.
    Stopped,  ///< Stopped by the user or a limit before an answer; keys found until then are valid.
    Refused   ///< The position or stipulation cannot be solved; message says why.
};

struct TSolveResult {
    TSolveStatus status = TSolveStatus::Refused;
    std::vector<TMove> keys;  ///< First moves, in the order of the board's fields.
    bool bComplete = false;   ///< No limit, stop or stop rule cut the list of keys short.
    std::uint64_t nodes = 0;
    std::uint64_t workNodes = 0;
    std::uint64_t elapsedMs = 0;
    std::string
        message;  ///< The user's text, for Refused and for a stop rule that ended the search.
};

/// Solves "White mates in `moves`" from the fields of `position`. task.m_options and task.m_callbacks
/// must be filled. Never throws for a bad position: it is refused with its message.
TSolveResult StartSolving(TSolveTask& task, const TChessboard& position, int moves);

}  // namespace tarnwick
