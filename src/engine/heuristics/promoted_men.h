#pragma once
// SH_DONTLETPROMOTEDQUEENMOVE and SH_DONTLETPROMOTEDFIGUREMOVE: a black figure that came from a promotion
// must not get to play. A promotion itself does not count; White has a move to deal with it.

#include "chess/chessboard.h"

namespace tarnwick {

/// Black's last move was made by a promoted man that the heuristics in force name.
bool HasPromotedManMoved(const TChessboard& afterBlack) noexcept;

/// The same, and White cannot win the man.
bool IsPromotedManLoose(const TChessboard& afterBlack) noexcept;

}  // namespace tarnwick
