#pragma once
// SH_KEYWHITEFIGURE: a safe white figure pins an important black man against a king that does not move.
// While that stands, moves of the key figure, and captures of the pinned man that lose material, are left
// out of White's list. It stands until the king moves or the pin ends.

#include "chess/chessboard.h"

namespace tarnwick {

/// The black man that the key figure pins: the only man between it and the black king. NoField if the
/// key figure is gone or pins nothing.
TField PinnedByKeyFigure(const TChessboard& board) noexcept;

/// After a black move with the bit set: clears it, and computes the key anew, when the pin is over. The
/// first time that the black king has moved in the line, it must stand on a diagonal of the key field.
void UpdateKeyWhiteFigure(TChessboard& afterBlack) noexcept;

/// White to move with the bit set: the move is one of those that are left out. For the generator.
bool IsLeftOutByKeyFigure(const TChessboard& board, TMove move) noexcept;

}  // namespace tarnwick
