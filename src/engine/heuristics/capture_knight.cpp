#include "chess/attacks.h"
#include "engine/heuristics/material_checks.h"
#include "engine/search/thread_context.h"

namespace tarnwick {
namespace {

/// Black knights that have yet to fall.
int KnightsToCapture(const TChessboard& board) {
    const TThreadContext& thread = Thread(board);
    if (thread.m_heuristics.bCaptureKnightVariant) {
        return board.m_blackKnights;
    }
    const bool bNoneCaptured = thread.m_pRootBoard == nullptr ||
                               board.m_blackKnights >= thread.m_pRootBoard->m_blackKnights;
    return board.m_blackKnights > 0 && bNoneCaptured ? 1 : 0;
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
    const int missing = KnightsToCapture(board);
    const int movesLeft = (board.m_shPlies + 1) / 2;
    if (missing == 0 || missing < movesLeft) {
        return false;
    }
    // Each move left has to take a knight, the last one mating with it. With Black to move a knight may
    // still run into an attack.
    return missing > movesLeft || (IsWhiteToMove(board) && !AttacksKnight(board));
}

}  // namespace tarnwick
