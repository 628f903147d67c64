#pragma once
// The recursion: can White force mate within the plies left. Two mutually recursive node functions; a
// node copies its board into the next ply's slot, moves there and asks the other function.
//
// All run on a search thread whose TThreadContext the board's m_pThread points to, with m_pTask set.
// They never throw and never allocate. A node that is told to stop answers ResultNoMate and stores
// nothing; the caller sees from the engine state that this answer means nothing.

#include "chess/chessboard.h"
#include "engine/search/node_result.h"

namespace tarnwick {

/// White to move, m_shPlies odd. bConsultRegisters is true at every call of the search itself.
TNodeResult FindMateWhiteToMove(TChessboard& board, bool bConsultRegisters) noexcept;

/// Black to move, m_shPlies even, possibly 0.
TNodeResult FindMateBlackToMove(TChessboard& board) noexcept;

/// Their twins for jobs that log all moves; quicker-mate work is not logged.
TNodeResult FindMateWhiteToMoveLogged(TChessboard& board, bool bConsultRegisters) noexcept;
TNodeResult FindMateBlackToMoveLogged(TChessboard& board) noexcept;

/// After a black move (White to move): a mate shorter than the plies left, by iterative deepening. True
/// proves the position without searching it to its full depth.
bool LookForQuickerMate(TChessboard& child) noexcept;

/// White to move: mate in at most two, or three, moves, whatever m_shPlies says (it is put back).
bool IsWhiteMateInTwo(TChessboard& board) noexcept;
bool IsWhiteMateInThree(TChessboard& board) noexcept;

}  // namespace tarnwick
