#include "chess/perft.h"

#include "chess/evasions.h"
#include "chess/generate_moves.h"
#include "chess/make_move.h"
#include "chess/move_list.h"
#include "chess/prepare_position.h"

namespace tarnwick {
namespace {

int ListMoves(const TChessboard& board, TMove* pList) {
    if (IsWhiteToMove(board)) {
        return board.m_whiteChecker != NoChecker ? GenerateWhiteEvasions(board, pList)
                                                 : GenerateAllWhiteMoves(board, pList);
    }
    return board.m_blackChecker != NoChecker ? GenerateBlackEvasions(board, pList)
                                             : GenerateAllBlackMoves(board, pList);
}

bool IsMade(TChessboard& board, TMove move) {
    return (IsWhiteToMove(board) ? MakeWhiteMove(board, move)
                                 : MakeBlackMove(board, move, false)) != MoveRefused;
}

}  // namespace

std::uint64_t Perft(TChessboard& board, int depth) {
    if (depth == 0) {
        return 1;
    }
    TMove moves[MaxMovesOfSide];
    const int count = ListMoves(board, moves);
    std::uint64_t sequences = 0;
    for (int i = 0; i < count; ++i) {
        TChessboard* next = CopyToNextSlot(board);
        if (IsMade(*next, moves[i])) {
            sequences += Perft(*next, depth - 1);
        }
    }
    return sequences;
}

std::uint64_t PerftOfPosition(const TChessboard& position, int depth) {
    TBoardStack stack;
    TChessboard root = position;
    root.m_pThread = &stack;
    root.m_pPrevious = nullptr;
    // Far from the horizon, and the side to move as it was.
    root.m_shPlies = static_cast<std::uint16_t>(2 * depth + (IsWhiteToMove(position) ? 1 : 2));
    root.m_shRootPlies = root.m_shPlies;
    stack.m_pRootBoard = &root;
    PreparePosition(root, true);
    return Perft(root, depth);
}

}  // namespace tarnwick
