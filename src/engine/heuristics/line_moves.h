#pragma once
// What the last move of a board did, read from the board before it. For the heuristics, which judge a
// child by what led there.

#include "chess/board_tables.h"
#include "chess/chessboard.h"

namespace tarnwick {

/// The mark in the promotion byte of a black move that NoteBlackMove found worth watching: by a promoted
/// or followed man, or the loss of a white figure. White's answers to it are then screened.
inline constexpr std::uint8_t WatchedMoveMark = NearBestMark;

inline bool IsWatchedMove(TMove move) {
    return (move.promotion & WatchedMoveMark) != 0;
}

/// The man as it stood before the last move: a pawn when it has just promoted. Empty at the root.
inline TFigureCode LastMover(const TChessboard& board) {
    return board.m_pPrevious == nullptr ? EmptyField
                                        : board.m_pPrevious->m_fields[board.m_lastMove.from];
}

/// The man that the last move took; empty at the root and after a pass.
inline TFigureCode LastCaptured(const TChessboard& board) {
    if (board.m_pPrevious == nullptr || board.m_lastMove.IsPass()) {
        return EmptyField;
    }
    if (board.m_lastMove.IsEnPassant()) {
        return IsWhite(LastMover(board)) ? BlackPawn : WhitePawn;
    }
    return board.m_pPrevious->m_fields[board.m_lastMove.to];
}

/// Queen, rook, bishop or knight of either colour.
constexpr bool IsFigure(TFigureCode code) {
    return TypeOf(code) >= TypeBishop;
}

}  // namespace tarnwick
