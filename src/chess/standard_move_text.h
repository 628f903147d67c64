#pragma once
// Moves in the standard algebraic notation of game files (PGN, the export format): "Nbd7", "exd5",
// "e8=Q+", "O-O-O#". English letters, capital.

#include <string>

#include "chess/chessboard.h"

namespace tarnwick {

/// A legal move, told apart from the other legal moves by as little as possible: by its file, else by its
/// rank, else by both. `before` and `after` are the prepared positions around it, of which the latter knows
/// its history; castling must be the king's step of two fields.
std::string StandardMoveText(const TChessboard& before, TMove move, const TChessboard& after);

}  // namespace tarnwick
