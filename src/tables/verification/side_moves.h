#pragma once
// All legal moves of a side on the board of the rules, each made in the next slot of its stack.

#include "chess/board_stack.h"
#include "chess/chessboard.h"
#include "chess/evasions.h"
#include "chess/generate_moves.h"
#include "chess/make_move.h"

namespace tarnwick {

/// Calls visit(board after the move, move) for each legal move of White until it returns false; returns
/// whether it never did.
template <typename TVisit>
bool ForEachWhiteMove(TChessboard& board, const TVisit& visit) {
    TMove moves[MaxMovesOfSide];
    const int count = board.m_whiteChecker != NoChecker ? GenerateWhiteEvasions(board, moves)
                                                        : GenerateAllWhiteMoves(board, moves);
    for (int i = 0; i < count; ++i) {
        TChessboard* pNext = CopyToNextSlot(board);
        if (MakeWhiteMove(*pNext, moves[i]) != MoveRefused && !visit(*pNext, moves[i])) {
            return false;
        }
    }
    return true;
}

/// The same for Black: visit(board, move, bHopeless), the last where White has no force to mate any more.
template <typename TVisit>
bool ForEachBlackMove(TChessboard& board, const TVisit& visit) {
    TMove moves[MaxMovesOfSide];
    const int count = board.m_blackChecker != NoChecker ? GenerateBlackEvasions(board, moves)
                                                        : GenerateAllBlackMoves(board, moves);
    for (int i = 0; i < count; ++i) {
        TChessboard* pNext = CopyToNextSlot(board);
        const int made = MakeBlackMove(*pNext, moves[i], false);
        if (made != MoveRefused && !visit(*pNext, moves[i], made == MoveMadeHopeless)) {
            return false;
        }
    }
    return true;
}

}  // namespace tarnwick
