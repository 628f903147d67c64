#pragma once
// Whether White, to move, mates at once. The leaf of the search and its hottest function.

#include "chess/chessboard.h"

namespace tarnwick {

/// m_whiteChecker must be valid. Trial moves are made on a copy on the stack.
/// Never makes a full move list: it looks only at moves that give check and cover the king's flights.
bool IsMateInOne(TChessboard& board) noexcept;

/// All mating moves in field order, room for MaxMovesOfSide; returns the count.
int GenerateMatingMoves(TChessboard& board, TMove* pList) noexcept;

}  // namespace tarnwick
