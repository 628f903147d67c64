#pragma once
// Capacities of the move lists, which live on the stack of their node.

#include "chess/move.h"

namespace tarnwick {

/// Moves of one man: a queen in the open has 27; a king 8 and two castlings; a pawn 12 promotions.
inline constexpr int MaxMovesOfMan = 28;

/// All moves of one side in any set-up, promoted figures without limit included. Each empty or enemy
/// field is reached by at most 8 lines and 8 knights; the balance of men against free fields keeps the
/// sum under 450, pawns about to promote add at most 88, castlings 2.
inline constexpr int MaxMovesOfSide = 640;

}  // namespace tarnwick
