#include "chess/attackers.h"
#include "chess/attacks.h"
#include "chess/make_move.h"
#include "chess/mate_in_one.h"
#include "engine/heuristics/line_moves.h"
#include "engine/heuristics/material_checks.h"

namespace tarnwick {
namespace {

bool IsQuietFigureMove(const TChessboard& afterWhite) {
    return IsFigure(LastMover(afterWhite)) && LastCaptured(afterWhite) == EmptyField &&
           afterWhite.m_blackChecker == NoChecker && !afterWhite.m_lastMove.IsPass();
}

bool CanBlackTakeForNothing(const TChessboard& afterWhite, int field) {
    const int file = FileOf(field);
    const int rank = RankOf(field);
    if (IsFieldAttackedByWhite(afterWhite, file, rank)) {
        return false;
    }
    return FindBlackFreeAttacker(afterWhite, file, rank, nullptr) ||
           KingDistance(BlackKingField(afterWhite), field) == 1;
}

bool ThreatensMate(TChessboard& afterWhite) {
    TChessboard* next = CopyToNextSlot(afterWhite);
    return PassBlack(*next) && IsMateInOne(*next);
}

}  // namespace

bool IsWorstWhiteMove(TChessboard& afterWhite) noexcept {
    return IsQuietFigureMove(afterWhite) &&
           CanBlackTakeForNothing(afterWhite, afterWhite.m_lastMove.to) &&
           !ThreatensMate(afterWhite);
}

}  // namespace tarnwick
