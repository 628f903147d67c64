#pragma once
// The ordinary search that goes on for a few moves where a forced line ended, when the other heuristics
// are to hold there only (TForcedWithOthers::Partially). Private to this folder.

#include "chess/chessboard.h"

namespace tarnwick {

/// White to move, the forced search found nothing. True: White mates all the same. Only asked of a king
/// that is in a net, with heuristics in force that hold it; no answer is stored as forced.
bool MatesBySequel(TChessboard& board) noexcept;

}  // namespace tarnwick
