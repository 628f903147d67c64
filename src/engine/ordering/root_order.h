#pragma once
// The order of the first moves.

#include <vector>

#include "chess/chessboard.h"
#include "chess/move.h"

namespace tarnwick {

/// All legal first moves of the root, fewest black replies first. A move that mates stands first.
std::vector<TMove> SortFirstMoves(TChessboard& root);

}  // namespace tarnwick
