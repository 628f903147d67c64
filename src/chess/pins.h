#pragma once
// Pins: a man that stands alone between its own king and an enemy slider of that line's kind may leave
// the line only by exposing the king.

#include "chess/chessboard.h"
#include "chess/fields.h"

namespace tarnwick {

/// Whether the white, or black, man on the field is pinned to its king. The field must hold a man of
/// that colour; its king is never pinned. A pinned man may still move along the pin line.
bool IsWhiteFigurePinned(const TChessboard& board, int file, int rank) noexcept;
bool IsBlackFigurePinned(const TChessboard& board, int file, int rank) noexcept;

/// All pinned men of one colour.
TFieldSet PinnedWhiteMen(const TChessboard& board) noexcept;
TFieldSet PinnedBlackMen(const TChessboard& board) noexcept;

/// Whether the three fields lie on one straight line of any slope; a pinned man (b) may go to a field
/// (c) that is collinear with its king (a).
constexpr bool AreCollinear(int a, int b, int c) {
    return (FileOf(b) - FileOf(a)) * (RankOf(c) - RankOf(a)) ==
           (FileOf(c) - FileOf(a)) * (RankOf(b) - RankOf(a));
}

}  // namespace tarnwick
