#pragma once
// Problems as text for other programs, and what of them that text has no form for.

#include <string>
#include <vector>

#include "problems/chess_problem.h"

namespace tarnwick {

struct TExportLoss {
    int id = 0;             ///< Number of the problem.
    bool bLeftOut = false;  ///< The problem is not in the text; `what` says why.
    std::string what;       ///< For the user: "tags, variants". UTF-8.
};

struct TExportedText {
    std::string text;                 ///< UTF-8.
    std::vector<TExportLoss> losses;  ///< In the order of the problems, at most one for each.
};

/// What neither EPD nor PGN has a form for: tags, options, hints. In the user's language.
std::vector<std::string> LossesOfAnyExport(const TChessProblem& problem);

/// Adds a loss with these parts, if there are any.
void AddLoss(TExportedText& exported, const TChessProblem& problem,
             const std::vector<std::string>& parts);

}  // namespace tarnwick
