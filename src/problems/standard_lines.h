#pragma once
// Moves from a problem's start in the standard notation of game files. They are played by all rules of
// chess, also behind the mate's length and where White cannot mate any more.

#include <memory>
#include <span>
#include <string>
#include <vector>

#include "chess/board_stack.h"
#include "problems/chess_problem.h"

namespace tarnwick {

class CStandardLines {
  public:
    /// Copies the position. Throws what PreparePosition throws for one that cannot be.
    explicit CStandardLines(const TChessProblem& problem);

    /// The texts of the moves, White's first, up to the first that is not legal, and MaxMovesOfLine at most.
    std::vector<std::string> Texts(std::span<const TMove> moves);

    /// The prepared start, White to move.
    const TChessboard& Start() const { return *m_line.m_pBoard; }

  private:
    TChessProblem m_line;
    TBoardStack m_stack;
};

}  // namespace tarnwick
