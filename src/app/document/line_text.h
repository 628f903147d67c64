#pragma once
// Lines of play as text for the clipboard: "1.Qd1-d8 Ka8-b7 2.Qd8-b8#", or short: "1.Qd8 Kb7 2.Qb8#".

#include <string>

#include "problems/chess_problem.h"

namespace tarnwick {

class CPlayedLine;

/// The move with as much of its start as tells it from other legal moves, "Nbd7", "exd5", "e8Q". English
/// letters. The board is a prepared position before the move.
std::string ShortMoveText(const TChessboard& board, TMove move);

/// The whole line, wherever its cursor is; empty without moves.
std::string TextOfLine(const CPlayedLine& line, bool bShort);

/// A line of text for each variant: its name, ": " and its moves as far as they can be played. UTF-8.
std::string TextOfVariants(const TChessProblem& problem, bool bShort);

}  // namespace tarnwick
