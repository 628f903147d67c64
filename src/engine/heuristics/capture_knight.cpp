#include "chess/attacks.h"
#include "engine/heuristics/material_checks.h"
#include "engine/search/thread_context.h"

namespace tarnwick {
namespace {

/// Black knights that have yet to fall: all of them, or one of those that Black had at the root.
int KnightsToCapture(const TChessboard& board) {
    if (Thread(board).m_heuristics.bCaptureKnightVariant) {
        return board.m_blackKnights;
    }
    const TChessboard* pRoot = Thread(board).m_pRootBoard;
    const bool bNoneHasFallen = pRoot == nullptr || board.m_blackKnights >= pRoot->m_blackKnights;
    return board.m_blackKnights > 0 && bNoneHasFallen ? 1 : 0;
}

bool AttacksKnight(const TChessboard& board) {
    for (TFieldSet knights = board.m_knights & board.m_blackMen; knights != 0;) {
        const int knight = PopLowest(knights);
        if (IsFieldAttackedByWhite(board, FileOf(knight), RankOf(knight))) {
            return true;
        }
    }
    return false;
}

}  // namespace

bool IsKnightCapturedTooLate(const TChessboard& board) noexcept {
    const int knights = KnightsToCapture(board);
    const int movesBeforeMate = (board.m_shPlies + 1) / 2 - 1;
    if (knights == 0 || movesBeforeMate > knights) {
        return false;
    }
    // With Black to move a knight may still run into an attack.
    return movesBeforeMate < knights || (IsWhiteToMove(board) && !AttacksKnight(board));
}

}  // namespace tarnwick
