#pragma once
// Key lines and key fields: the black king is cut off by a file or a diagonal, or a field on which
// White's plan rests must stay White's.

#include "chess/chessboard.h"

namespace tarnwick {

/// Where a key line lets the black king be: on its side of the line, or on the line if it stood there at
/// the root. All fields if no line is given.
TFieldSet AreaOfKeyLine(const TChessboard& board) noexcept;
TFieldSet AreaOfKeyDiagonal(const TChessboard& board) noexcept;

/// After White's move: the man on the key field has left it.
bool LeavesKeyField(const TChessboard& afterWhite) noexcept;

/// After Black's move: a black man has come to the key field and White cannot take it.
bool HasBlackTakenKeyField(const TChessboard& afterBlack) noexcept;

}  // namespace tarnwick
