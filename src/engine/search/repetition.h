#pragma once
// Repetitions in the line of play.

#include "engine/search/thread_context.h"

namespace tarnwick {

/// The earlier position of the line with the same men and the same side to move, or null. Only quiet
/// play repeats: the four plies back to it must be neither pawn moves nor captures.
const TChessboard* FindRepeatedPosition(const TChessboard& board) noexcept;

/// After White's move in a node with nodePlies left: whether the move only repeats and is not worth a
/// search. Raises the repetition limit of the node's ply to the earlier position's.
bool IsRepetitionToSkip(TThreadContext& thread, const TChessboard& child, int nodePlies) noexcept;

}  // namespace tarnwick
