#pragma once
// Making moves on a fresh copy of the board, in the slot of the next ply. The caller takes the slot
// (CopyToNextSlot), makes the move there, and abandons the copy when the answer is 0. There is no undo.
//
// The check state is kept by these operations: after a white move m_blackChecker is right and
// m_whiteChecker is cleared, and the other way round.

#include "chess/board_stack.h"
#include "chess/chessboard.h"

namespace tarnwick {

inline constexpr int MoveRefused = 0;
inline constexpr int MoveMade = 1;
/// Made, but White's force can no longer mate whatever Black does.
inline constexpr int MoveMadeHopeless = -1;

/// The move must be pseudo-legal (generate_moves.h). Returns MoveMade, or MoveRefused when it leaves
/// the king in check, its castling is not allowed, a heuristic forbids it, or it leaves White without
/// the force to mate.
int MakeWhiteMove(TChessboard& board, TMove move) noexcept;
/// MoveMade, MoveRefused or MoveMadeHopeless. bSkipLegality: the move is known not to expose the king.
int MakeBlackMove(TChessboard& board, TMove move, bool bSkipLegality) noexcept;

/// MakeWhiteMove without the hooks of the search, for trying a mating move.
int MakeWhiteMoveToTry(TChessboard& board, TMove move) noexcept;

/// The side to move makes no move; refused when it is in check.
bool PassBlack(TChessboard& board) noexcept;
bool PassWhite(TChessboard& board) noexcept;

}  // namespace tarnwick
