#pragma once
// Moves tried on a copy of the board, apart from the thread's boards: for tests of single positions that
// have to know what is legal. Some hundred nanoseconds a move.

#include "chess/generate_moves.h"
#include "chess/lines.h"
#include "chess/make_move.h"

namespace tarnwick {

/// The board without its thread, heuristics and one-colour play. Its plies are those of a short line, so
/// that moves of either side can be tried.
inline TChessboard ScratchOf(const TChessboard& board) noexcept {
    TChessboard scratch = board;
    scratch.m_pThread = nullptr;
    scratch.m_heuristicFlags.SetRaw(0);
    scratch.m_captureState &= static_cast<std::uint8_t>(~OneColourMask);
    scratch.m_shPlies = static_cast<std::uint16_t>(IsWhiteToMove(board) ? 9 : 8);
    return scratch;
}

/// Calls visit(position after the move, move) for each legal move of the black man on the field, whoever
/// is to move, until it answers true. Whether it did.
template <class TVisit>
bool AnyBlackMove(const TChessboard& board, int field, TVisit visit) noexcept {
    TMove moves[MaxMovesOfMan];
    const int count = GenerateBlackMoves(board, field, moves);
    for (int i = 0; i < count; ++i) {
        TChessboard after = ScratchOf(board);
        if (MakeBlackMove(after, moves[i], false) != MoveRefused && visit(after, moves[i])) {
            return true;
        }
    }
    return false;
}

/// The same for White.
template <class TVisit>
bool AnyWhiteMove(const TChessboard& board, int field, TVisit visit) noexcept {
    TMove moves[MaxMovesOfMan];
    const int count = GenerateWhiteMoves(board, field, moves);
    for (int i = 0; i < count; ++i) {
        TChessboard after = ScratchOf(board);
        if (MakeWhiteMoveToTry(after, moves[i]) == MoveMade && visit(after, moves[i])) {
            return true;
        }
    }
    return false;
}

inline bool CanBlackManMove(const TChessboard& board, int field) noexcept {
    return AnyBlackMove(board, field, [](const TChessboard&, TMove) { return true; });
}
inline bool CanWhiteManMove(const TChessboard& board, int field) noexcept {
    return AnyWhiteMove(board, field, [](const TChessboard&, TMove) { return true; });
}

/// Men of the set that have a legal move.
inline TFieldSet MovableBlackMen(const TChessboard& board, TFieldSet men) noexcept {
    TFieldSet movable = 0;
    for (; men != 0; men &= men - 1) {
        movable |= CanBlackManMove(board, LowestField(men)) ? men & -men : 0;
    }
    return movable;
}
inline TFieldSet MovableWhiteMen(const TChessboard& board, TFieldSet men) noexcept {
    TFieldSet movable = 0;
    for (; men != 0; men &= men - 1) {
        movable |= CanWhiteManMove(board, LowestField(men)) ? men & -men : 0;
    }
    return movable;
}

}  // namespace tarnwick
