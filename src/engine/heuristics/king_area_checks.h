#pragma once
// Where the black king may be. Each heuristic here draws a region, or forbids the king to move, and
// counts on White to hold it there; when the king gets out the mate is doubtful.
//
// After White's move they look one ply ahead: a legal king's move out of the region, which White cannot
// answer by mate at once, breaks them already. So most of White's moves that let go of the king fall
// before Black's replies are ordered or searched.
//
// An immediate mate is the caller's affair after Black's move.

#include <cstdint>

#include "chess/chessboard.h"
#include "engine/heuristics/heuristic_bits.h"

namespace tarnwick {

/// The heuristics with a region.
inline constexpr std::uint32_t HeuristicsOfKingArea =
    EdgeHeuristics | SH_KEEPKINGNEARCORNER | SH_KEYLINE | SH_KEYDIAGONAL;

/// After Black's move (White to move): the king is not where it has to be, or made a move that it must
/// not make.
bool IsKingOutOfArea(const TChessboard& afterBlack) noexcept;

/// After White's move (Black to move): the king can get out and is not mated at once there.
bool LetsKingOutOfArea(TChessboard& afterWhite) noexcept;

/// Either side to move: the white king cannot come near the black one in White's moves left, the last of
/// which is to mate.
bool IsWhiteKingTooFar(const TChessboard& board) noexcept;

/// After Black's move: a black queen checks for the second time in the line, and White cannot take her.
bool IsSecondQueenCheck(const TChessboard& afterBlack) noexcept;

/// White, to move, mates at once. Far from the leaves, and where trials do not nest, a mate in two is
/// at once too.
bool MatesAtOnce(TChessboard& afterBlack) noexcept;

/// The man is a black pawn that will be stopped by a white man on its file, so that its moves end.
bool IsPawnStoppedAhead(const TChessboard& board, int field) noexcept;

}  // namespace tarnwick
