#pragma once
// AnalyzeProblem: what the engine thinks of a problem before it solves it. For who wants to see the choice
// of heuristics, and perhaps to change it, without waiting for a solution.

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "chess/chessboard.h"
#include "engine/heuristics/heuristic_list.h"

namespace tarnwick {

struct TAnalyzeProblemOptions {
    bool bTrials = true;      ///< Short trial searches, some ten milliseconds each.
    bool bForcedMate = true;  ///< Passes of forcing moves may be proposed.
    /// The problem's own changes to the set. Empty: none. May throw ChessException.
    std::function<void(THeuristicSet&)> adjust{};
};

/// One pass of the ladder.
struct TAnalyzedPass {
    std::string name;             ///< "1", "1b", ...
    std::string heuristics;       ///< Their list.
    bool bTimeDependent = false;  ///< Made only if the passes before it were short.
};

struct TProblemAnalysis {
    std::uint16_t flags = 0;       ///< TPositionFlag bits.
    bool bSafeModeForced = false;  ///< A job in quick mode would be put into safe mode.
    /// Long enough for a job to ask for this analysis. Otherwise it would begin with what the problem's
    /// own changes make of the empty set.
    bool bAnalysedToSolve = false;
    THeuristicSet set;       ///< Proposed, with the problem's own changes.
    std::string heuristics;  ///< Its list; empty for the empty set.
    /// The passes with heuristics if no key is found and time is left; empty for the empty set.
    std::vector<TAnalyzedPass> passes;
    std::string ladder;  ///< The same for the user to read, without a line end behind it.
};

/// The analysis of "White mates in `moves`" from the fields of `position`. It takes some tenths of a second
/// at most. Throws ChessException for a position or a length that StartSolving would refuse, and what
/// `adjust` throws.
TProblemAnalysis AnalyzeProblem(const TChessboard& position, int moves,
                                const TAnalyzeProblemOptions& options = {});

/// What the flags say of the position, in the user's language, one phrase each; empty for an ordinary one.
std::vector<std::string> PositionFlagTexts(std::uint16_t flags);

}  // namespace tarnwick
