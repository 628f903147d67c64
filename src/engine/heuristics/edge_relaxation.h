#pragma once
// When the heuristics that hold the black king near the edge let go inside a line of play: some black
// figures are gone, a white pawn is about to promote, or one of the two can still come about and the king
// may stay out for a while.

#include <cstdint>

#include "chess/chessboard.h"

namespace tarnwick {

/// Whether the edge heuristic of that bit is off on this board. bit: one of EdgeHeuristics.
bool IsEdgeRelaxed(const TChessboard& board, std::uint32_t bit) noexcept;

/// After a white move: marks the board, and so the line below it, when White has got a pawn near
/// promotion and the parameters say that this is enough. Computes the key anew.
void RelaxOnAdvancedPawn(TChessboard& afterWhite) noexcept;

/// A black king that stands out since so many plies may stay out for now, because what would relax the
/// heuristics can still come in time.
bool MayEdgeWait(const TChessboard& afterBlack, int pliesOut) noexcept;

}  // namespace tarnwick
