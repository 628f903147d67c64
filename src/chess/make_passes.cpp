// Passes: no moves of chess, but how threats are found.

#include "chess/make_move.h"
#include "chess/make_parts.h"

namespace tarnwick {

bool PassBlack(TChessboard& board) noexcept {
    if (board.m_blackChecker != NoChecker) {
        return false;
    }
    FinishPly(board, MakePass(static_cast<TField>(BlackKingField(board))), false);
    board.m_whiteChecker = NoChecker;
    return true;
}

bool PassWhite(TChessboard& board) noexcept {
    if (board.m_whiteChecker != NoChecker) {
        return false;
    }
    FinishPly(board, MakePass(static_cast<TField>(WhiteKingField(board))), false);
    board.m_blackChecker = NoChecker;
    return true;
}

}  // namespace tarnwick
