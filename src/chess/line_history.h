#pragma once
// Questions about the line of play, answered by walking the chain of previous boards.

#include "chess/chessboard.h"

namespace tarnwick {

/// Whether the man on the field came from a pawn in the line of play. False at the root.
bool IsPromotedFigure(const TChessboard& board, int field);

/// The field in the root position of the man now on the field; NoField if it came to be by promotion
/// or the field is empty.
TField OriginalFieldOf(const TChessboard& board, int field);

/// A cheap repetition test for endings with a white knight; shMinMoves counts full moves.
bool HasPositionRepeated(const TChessboard& board, std::uint16_t shMinMoves);

}  // namespace tarnwick
