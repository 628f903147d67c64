#pragma once
// Men that can step onto an empty field, to shield their king or to block a line. The king is none.

#include "chess/attacks.h"

namespace tarnwick {

/// Room for the men that can reach one field: eight lines and eight knights; pawns come along lines.
inline constexpr int MaxInterposers = 16;

/// Writes the men that can move to the empty field: pawn steps, knights, rays in this order. Pinned men
/// are listed too. Black pawns with MarkBit, which may not advance straight, are not. Returns the count.
int ListWhiteInterposers(const TChessboard& board, int file, int rank, TFilePlace* pList) noexcept;
int ListBlackInterposers(const TChessboard& board, int file, int rank, TFilePlace* pList) noexcept;

/// The first unpinned man of ListBlackInterposers, written to *pFound unless that is null.
bool CanBlackInterpose(const TChessboard& board, int file, int rank, TFilePlace* pFound) noexcept;

/// The same lists as sets.
TFieldSet WhiteInterposersOf(const TChessboard& board, int field) noexcept;
TFieldSet BlackInterposersOf(const TChessboard& board, int field) noexcept;

}  // namespace tarnwick
