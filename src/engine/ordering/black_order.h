#pragma once
// The order of Black's defences: the one most likely to refute first.

#include "chess/chessboard.h"
#include "chess/move_list.h"

namespace tarnwick {

/// What ordering found out about Black's moves.
struct TBlackOrder {
    int count = 0;          ///< Legal moves, ordered in place.
    bool bRefuted = false;  ///< The first move leaves White without the force to mate.
};

/// Drops illegal moves and orders the others by the signed score in their fourth byte, ascending.
TBlackOrder SortBlackMoves(TChessboard& board, int count, TMove* pMoves) noexcept;

}  // namespace tarnwick
