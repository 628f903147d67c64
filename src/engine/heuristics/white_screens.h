#pragma once
// The screens of the white node: in a pass with heuristics, a white move that they reject is not
// searched and makes the node doubtful.

#include "chess/chessboard.h"

namespace tarnwick {

/// The child after White's move, Black to move. The caller asks in pass 1 only, and only when the flags
/// meet HeuristicsWithScreens. May clear SH_SWEEPINGWHITEROOK and set TStateBit::FigureLost on the child.
bool IsScreenedOut(TChessboard& child) noexcept;

/// The single screens, for tests. Each may be asked whatever heuristics are set.
bool IsScreenedBySweepingRook(TChessboard& child) noexcept;
bool IsScreenedByKingsRoom(const TChessboard& child) noexcept;

}  // namespace tarnwick
