#pragma once
// Which of White's moves force Black: checks, threats of mate that are short enough for the level, and a
// few exceptions without which hardly any forced line would be found. The levels only ever grow: what
// forces at one level forces at all above it.
//
// Everything here only chooses moves, so a wrong answer costs a solution of the forced pass, or time, and
// never makes a mate.

#include "chess/chessboard.h"
#include "chess/move_list.h"
#include "engine/heuristics/special_heuristics.h"

namespace tarnwick {

/// White to move, at least 5 plies left. Writes the legal moves that force at the level of the board's
/// thread, the one that leaves Black the fewest replies first (room for MaxMovesOfSide). Returns their
/// count. Works in the slots below the board.
int ListForcedMoves(TChessboard& board, TMove* pList) noexcept;

/// One pseudo-legal move of that board: legal and forcing.
bool IsForcedMove(TChessboard& board, TMove move) noexcept;

/// After White's move, Black to move: would White mate in at most so many moves if Black passed. False
/// when Black is in check. Never looks beyond the plies left. Up to two moves the answer is exact; a
/// longer threat counts only if checks and threats of mate in one carry it out, because this is asked of
/// every move.
bool ThreatensMate(TChessboard& afterWhite, int moves) noexcept;

}  // namespace tarnwick
