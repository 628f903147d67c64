#pragma once
// Small questions about a board that more than one heuristic, or the analysis and the relaxation, ask.

#include "chess/board_tables.h"
#include "chess/chessboard.h"

namespace tarnwick {

/// Fields of the first and last rank and of the two outer files.
inline constexpr TFieldSet EdgeFields = 0xFF818181818181FFULL;
inline constexpr TFieldSet CornerFields = 0x8100000000000081ULL;
inline constexpr TFieldSet SixthRank = TFieldSet{0xFF} << 40;
inline constexpr TFieldSet SeventhRank = TFieldSet{0xFF} << 48;

/// The black king stands in a corner.
inline bool IsKingInCorner(const TChessboard& board) noexcept {
    return (CornerFields & FieldBit(BlackKingField(board))) != 0;
}

/// In king's moves.
inline int DistanceOfKings(const TChessboard& board) noexcept {
    return KingDistance(WhiteKingField(board), BlackKingField(board));
}

/// White's queens and rooks.
inline int MajorCount(const TChessboard& board) noexcept {
    return board.m_whiteQueens + board.m_whiteRooks;
}

/// Black's men without king and pawns.
inline TFieldSet BlackFigures(const TChessboard& board) noexcept {
    return board.m_blackMen & ~board.m_pawns & ~FieldBit(BlackKingField(board));
}

}  // namespace tarnwick
