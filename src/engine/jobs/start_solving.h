#pragma once
// StartSolving: one problem from its position to its keys. It runs on the calling thread, which makes
// and joins whatever threads the options ask for.

#include <cstdint>
#include <string>
#include <vector>

#include "chess/chessboard.h"
#include "chess/move.h"
#include "engine/jobs/pass_report.h"
#include "engine/jobs/solve_task.h"

namespace tarnwick {

enum class TSolveStatus : std::uint8_t {
    Mate,    ///< Keys were found; bComplete says whether they are all of them.
    NoMate,  ///< None was found; a proof in safe mode.
    /// Every pass that was wanted has ended and found nothing, and none of them can prove that there is
    /// nothing: the pass without heuristics was switched off.
    Open,
    Stopped,  ///< Stopped by the user or a limit before an answer; keys found until then are valid.
    Refused   ///< The position or stipulation cannot be solved; message says why.
};

struct TSolveResult {
    TSolveStatus status = TSolveStatus::Refused;
    std::vector<TMove> keys;         ///< First moves, in the order of the board's fields.
    bool bComplete = false;          ///< Every first move was settled; no stop rule was met.
    bool bSafeMode = true;           ///< Whether "no mate" is a proof.
    bool bFromResultsCache = false;  ///< Nothing was searched: an earlier run had the answer.
    std::vector<TPassReport> passes;
    std::string passFound;  ///< Name of the pass that found the first key; empty without keys.
    std::uint64_t nodes = 0;
    std::uint64_t workNodes = 0;
    std::uint64_t tableHits = 0;  ///< Positions that precalculated tables answered.
    std::uint64_t elapsedMs = 0;
    std::uint64_t registerElements = 0;  ///< In the job's register at the end.
    /// The user's text, for Refused, for a stop rule that ended the search and for a thread that ended
    /// with an error.
    std::string message;
};

/// Jobs that may run at once in one process; further ones are refused.
inline constexpr int TasksLimit = 64;

/// Solves "White mates in `moves`" from the fields of `position`. What solve_task.h says the caller fills
/// must be filled. Never throws: a bad position is refused with its message, and an exception of a callback
/// ends the search and becomes the message.
TSolveResult StartSolving(TSolveTask& task, const TChessboard& position, int moves);

/// The same on the board mirrored a-h, as a second opinion; the keys come back as moves of `position`. The
/// job's hints name fields of the other board and are dropped. Where king and rooks can castle the two
/// boards are two problems.
TSolveResult StartSolvingMirrored(TSolveTask& task, const TChessboard& position, int moves);

}  // namespace tarnwick
