#pragma once
// Mate or not: whether Black, in check, has any legal reply; and the king's mobility.

#include "chess/chessboard.h"

namespace tarnwick {

/// Black is in check (m_blackChecker valid). Stops at the first legal reply. Mate is false.
bool CanBlackEscapeCheck(const TChessboard& board) noexcept;

/// Whether the white king has a field to go to: on the board, no white man on it, not attacked by
/// Black as the board stands.
bool IsWhiteKingMovable(const TChessboard& board) noexcept;

/// Legal moves of the black king, castling not counted; the king does not shield the line behind it.
int CountBlackKingMoves(const TChessboard& board) noexcept;

/// Fields the black king may legally step to, as a set.
TFieldSet BlackKingFlights(const TChessboard& board) noexcept;

/// Whether one of the black men of `men` (no king, none pinned) takes on the field over `occupied`. En
/// passant is not counted.
bool CanMenCapture(const TChessboard& board, int field, TFieldSet men, TFieldSet occupied) noexcept;

/// Whether one of them steps onto one of the empty fields of `line`.
bool CanMenBlock(const TChessboard& board, TFieldSet line, TFieldSet men,
                 TFieldSet occupied) noexcept;

}  // namespace tarnwick
