#pragma once
// Checks of what White's men can still do in the moves left, and of moves that are not worth a search:
// SH_3MOVESTOMATE, SH_CAPTUREKNIGHT, SH_SKIPWORSTWHITEMOVES.

#include "chess/chessboard.h"

namespace tarnwick {

/// SH_3MOVESTOMATE: White, to move, has three moves, and cannot get enough fields around the black king
/// under attack with them. Answers false for any other number of moves left.
bool IsMateInThreeUnlikely(const TChessboard& afterBlack) noexcept;

/// SH_CAPTUREKNIGHT, either side to move: White has too few moves left to take the black knight that
/// has to fall before the mate.
bool IsKnightCapturedTooLate(const TChessboard& board) noexcept;

/// SH_SKIPWORSTWHITEMOVES, after White's move: a quiet move that leaves the moved figure to be taken for
/// nothing and threatens no mate.
bool IsWorstWhiteMove(TChessboard& afterWhite) noexcept;

}  // namespace tarnwick
