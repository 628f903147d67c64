#pragma once
// What the commands of copying put on the clipboard; lines of moves are document/line_text.h.

#include <string>

#include "app/setup/position_faults.h"
#include "problems/chess_problem.h"

namespace tarnwick {

enum class TCopiedParts {
    All,
    NoVariants,
    NoVariantsOrTags
};

/// The problem as in a file, UTF-8.
std::string CopiedProblem(const TChessProblem& problem, TCopiedParts parts);

/// FEN of a position that is being set up. In full only a position without faults has one: throws
/// ChessException "FEN code is unavailable" for any other.
std::string CopiedFen(const TSetupFields& fields, bool bPlacementOnly);

}  // namespace tarnwick
