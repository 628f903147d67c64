#pragma once
// Moves that somebody typed, pasted or stored, checked against the position before they are played.

#include <string_view>

#include "chess/chessboard.h"

namespace tarnwick {

/// Reads a move in full notation for the side to move and checks it by all rules of chess: castling and
/// en passant by the history, the own king's safety, a promotion exactly when a pawn reaches the last
/// rank. The board must be a prepared position; its thread may be null.
///
/// Throws ChessException, the move then as it was: what ReadMoveText throws; "Short notation not
/// supported."; "Improper move description" when another man than the named one stands on the first
/// field; "Illegal move". A capture that leaves White without the force to mate is legal here: that
/// only the make operations refuse.
void ParseCheckedMove(const TChessboard& board, TMove& move, std::string_view text);

/// Reads the move as ParseCheckedMove does and makes it in the next slot of the board's stack, which
/// must not be null. Returns the board after the move.
///
/// Throws ChessException "Invalid move in MakeMove() : " + the text for whatever is wrong with it: the
/// text, the move, no ply left to play, or a refusal of the make operation.
TChessboard* MakeMoveFromText(TChessboard& board, std::string_view text);

/// A legal move by its men alone, for positions without a stipulation: there also moves are played that the
/// make operations drop because White could not mate behind them. Takes one ply off.
void MoveMenAlone(TChessboard& board, TMove move);

}  // namespace tarnwick
