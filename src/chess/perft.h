#pragma once
// Counting the move sequences of a position: the test of generators and make operations as a whole, and
// the measure of their speed. Moves are made as the search makes them; every last one is made and
// counted, never taken from the length of a list.

#include <cstdint>

#include "chess/board_stack.h"
#include "chess/chessboard.h"

namespace tarnwick {

/// Number of sequences of `depth` plies that the make operations accept; 1 for depth 0. The board must
/// be prepared, with m_pThread set, its checkers valid, and m_shPlies at least `depth`; its parity is the
/// side to move. Writes the stack's slots below m_shPlies.
///
/// Counts those published for other programs where the rules of problems agree with them. They differ
/// where a position names rights that its men do not tell (castling withheld, en passant in the first
/// move), and where White keeps nothing that can mate a bare king: such moves are refused.
std::uint64_t Perft(TChessboard& board, int depth);

/// The same from the placement of the men, with a stack of its own. Throws what PreparePosition throws;
/// depth 0 to MaxPlies / 2.
std::uint64_t PerftOfPosition(const TChessboard& position, int depth);

}  // namespace tarnwick
