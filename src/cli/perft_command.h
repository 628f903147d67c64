#pragma once
// `tarnwick-cli perft`: counts move sequences, to test and time the making of moves.

#include <string>

#include "cli/console.h"
#include "cli/exit_status.h"

namespace tarnwick {

/// The common starting position of a game.
inline constexpr const char* InitialFen =
    "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq - 0 1";

/// Deeper counts would take longer than anybody waits.
inline constexpr int MaxPerftDepth = 20;

struct TPerftArguments {
    std::string fen = InitialFen;
    int depth = 1;         ///< 0 to MaxPerftDepth, in plies.
    bool bDivide = false;  ///< Also the count behind each first move.
};

TExitStatus RunPerft(const TPerftArguments& arguments, TConsole& console);

}  // namespace tarnwick
