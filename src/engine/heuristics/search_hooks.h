#pragma once
// What the heuristics have the make operations ask and keep. The search puts these hooks into the thread
// contexts of its jobs (TBoardStack::m_pHooks); boards on them belong to a TThreadContext.

#include "chess/make_hooks.h"

namespace tarnwick {

extern const TMakeHooks HeuristicMakeHooks;

/// A white move that the hooks refuse, although it may be legal. Without it "no mate" is no proof, so the
/// node that leaves it out is doubtful.
bool IsRefusedByHeuristic(const TChessboard& board, TMove move) noexcept;

}  // namespace tarnwick
