#include "chess/board_stack.h"
#include "chess/escape_check.h"
#include "chess/evasions.h"
#include "chess/generate_moves.h"
#include "chess/make_move.h"
#include "chess/mate_in_one.h"
#include "engine/jobs/root_search.h"
#include "engine/search/find_mate.h"

namespace tarnwick {
namespace {

/// Longest of the fixed-depth tests.
constexpr int SievePlies = 5;

bool IsProvedShort(TChessboard& afterReply) {
    const int plies = afterReply.m_shPlies;
    return IsMateInOne(afterReply) || (plies >= 3 && IsWhiteMateInTwo(afterReply)) ||
           (plies >= 5 && IsWhiteMateInThree(afterReply));
}

}  // namespace

TRootResult SieveFirstMove(TChessboard& root, TMove move) {
    TChessboard* child = CopyToNextSlot(root);
    if (MakeWhiteMove(*child, move) == MoveRefused) {
        return TRootResult::NoMate;
    }
    const bool bInCheck = child->m_blackChecker != NoChecker;
    TMove replies[MaxMovesOfSide];
    const int count =
        bInCheck ? GenerateBlackEvasions(*child, replies) : GenerateAllBlackMoves(*child, replies);
    bool bLegalReply = false;
    for (int i = 0; i < count; ++i) {
        TChessboard* next = CopyToNextSlot(*child);
        const int made = MakeBlackMove(*next, replies[i], false);
        if (made == MoveRefused) {
            continue;
        }
        bLegalReply = true;
        if (made == MoveMadeHopeless) {
            return TRootResult::NoMate;
        }
        if (!IsProvedShort(*next)) {
            return next->m_shPlies <= SievePlies ? TRootResult::NoMate : TRootResult::Unknown;
        }
    }
    return bLegalReply || bInCheck ? TRootResult::Mate : TRootResult::NoMate;
}

}  // namespace tarnwick
