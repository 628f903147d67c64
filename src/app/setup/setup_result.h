#pragma once
// What becomes of a problem that gets other men or another stipulation. What belonged to the old position
// goes: stored keys, variants that can no longer be played, the rest of a line of moves from the first
// illegal one on. Description, tags, options and hints for the order of moves stay.

#include "app/setup/position_faults.h"
#include "problems/chess_problem.h"

namespace tarnwick {

struct TNewPosition {
    TSetupFields fields{};
    int nMoves = 0;  ///< Of the stipulation; no matter for a position that asks for nothing.
};

/// What would be lost.
struct TSetupCost {
    int variants = 0;
    bool bKeys = false;
};
TSetupCost CostOf(const TChessProblem& problem, const TNewPosition& position);

/// Changes the problem; within CDocument::Edit, which makes it one step of undo. The position must have
/// no faults (position_faults.h).
void SetPosition(TChessProblem& problem, const TNewPosition& position);

/// "White 0-0 0-0-0, Black 0-0": the castlings that the men on their home fields allow; a problem has
/// them all.
std::string CastlingsOf(const TSetupFields& fields);

}  // namespace tarnwick
