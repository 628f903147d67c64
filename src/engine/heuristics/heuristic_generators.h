#pragma once
// Shorter lists of White's moves: heuristics that know which moves belong to their plan.

#include "chess/chessboard.h"

namespace tarnwick {

/// White to move, with some bit of HeuristicsWithGenerators set. Writes the moves of the first heuristic
/// with a list of its own (sea snake, zugzwang, key figure) and returns their count: legal, in
/// order of search, room for MaxMovesOfSide. *pLeftOut receives the number of legal moves left out.
///
/// In the play on one colour of fields the moves to the other colour are left out as well, even if that
/// leaves none: the make operation refuses them, and the node has to know that it did not see all.
///
/// -1 when no heuristic shortens the list, or its plan has no move: then all moves are to be searched.
int GenerateHeuristicMoves(TChessboard& board, TMove* pList, int* pLeftOut) noexcept;

}  // namespace tarnwick
