// What Black's moves do to the heuristics that follow men through the line, and whether they break them.

#include "chess/mate_in_one.h"
#include "engine/heuristics/heuristic_bits.h"
#include "engine/heuristics/key_white_figure.h"
#include "engine/heuristics/line_moves.h"
#include "engine/heuristics/promoted_men.h"
#include "engine/heuristics/saved_figures.h"
#include "engine/heuristics/tracked_men.h"
#include "engine/heuristics/zugzwang_triangle.h"

namespace tarnwick {
namespace {

constexpr std::uint32_t BreakableHeuristics =
    SH_DONTLETFIGUREUNBLOCK | SH_SAVEQUEENROOK | SH_DONTLOSEANYFIGURES | PromotedHeuristics;
constexpr std::uint32_t NotedHeuristics =
    BreakableHeuristics | SH_KEYWHITEFIGURE | SH_ZUGZWANGTRIANGLES;

bool Has(const TChessboard& board, std::uint32_t bits) {
    return board.m_heuristicFlags.HasAny(bits);
}

/// White's answers to the move have to pass the screens of the white node.
bool IsWorthWatching(const TChessboard& afterBlack) {
    return (Has(afterBlack, SH_DONTLOSEANYFIGURES) && HasJustLostMan(afterBlack)) ||
           (Has(afterBlack, PromotedHeuristics) && HasPromotedManMoved(afterBlack)) ||
           (Has(afterBlack, SH_DONTLETFIGUREUNBLOCK) && !AreFollowedMenAtHome(afterBlack));
}

bool IsLossSerious(TChessboard& afterBlack) {
    return HasLostManForNothing(afterBlack) || IsLossStanding(afterBlack);
}

bool BreaksAny(TChessboard& afterBlack) {
    return (Has(afterBlack, SH_DONTLETFIGUREUNBLOCK) && HasManUnblocked(afterBlack)) ||
           (Has(afterBlack, SH_SAVEQUEENROOK) && IsSavedForceGone(afterBlack)) ||
           (Has(afterBlack, SH_DONTLOSEANYFIGURES) && IsLossSerious(afterBlack)) ||
           (Has(afterBlack, PromotedHeuristics) && IsPromotedManLoose(afterBlack));
}

}  // namespace

void NoteBlackMove(TChessboard& afterBlack) noexcept {
    if (!Has(afterBlack, NotedHeuristics) || afterBlack.m_pPrevious == nullptr) {
        return;
    }
    if (Has(afterBlack, SH_SAVEQUEENROOK)) {
        NoteSavedFigure(afterBlack);
    }
    if (Has(afterBlack, SH_KEYWHITEFIGURE)) {
        UpdateKeyWhiteFigure(afterBlack);
    }
    if (Has(afterBlack, SH_ZUGZWANGTRIANGLES)) {
        UpdateZugzwangTriangles(afterBlack);
    }
    if (!afterBlack.m_lastMove.IsPass() && IsWorthWatching(afterBlack)) {
        afterBlack.m_lastMove.promotion |= WatchedMoveMark;
    }
}

bool BreaksFollowedMen(TChessboard& afterBlack) noexcept {
    if (!Has(afterBlack, NotedHeuristics)) {
        return false;
    }
    NoteBlackMove(afterBlack);
    return Has(afterBlack, BreakableHeuristics) && BreaksAny(afterBlack) &&
           !IsMateInOne(afterBlack);
}

}  // namespace tarnwick
