#pragma once
// From the 64 fields to a complete position: counters, lists, king caches, checkers.

#include "chess/chessboard.h"

namespace tarnwick {

/// Derives all members that follow from m_fields, which is the only input. m_shPlies, the pointers and
/// the last move stay as they are. With bClearFlags also zeroes m_searchFlags and m_heuristicFlags.
///
/// Throws ChessException: "Pawns cannot occupy 1st nor 8th line of the chessboard.", "Illegal number of
/// kings." or "Both kings attacked."; the board is unusable then.
void PreparePosition(TChessboard& board, bool bClearFlags);

/// The same without exceptions: false where PreparePosition throws.
bool PreparePositionNoThrow(TChessboard& board, bool bClearFlags) noexcept;

/// Scans the board for White's figures and lists them if they are within the listed limits (one queen,
/// two rooks, two knights, two bishops on opposite colours); sets m_bWhiteFiguresListed. The counters
/// must be right already.
void ListWhiteFigures(TChessboard& board) noexcept;

}  // namespace tarnwick
