#include "engine/heuristics/promoted_men.h"

#include "chess/line_history.h"
#include "engine/heuristics/exchanges.h"
#include "engine/heuristics/heuristic_bits.h"
#include "engine/heuristics/line_moves.h"

namespace tarnwick {

bool HasPromotedManMoved(const TChessboard& afterBlack) noexcept {
    if (PromotedBlackFigures(afterBlack) == 0) {
        return false;
    }
    const TFigureCode mover = LastMover(afterBlack);
    const bool bNamed = afterBlack.m_heuristicFlags.HasAny(SH_DONTLETPROMOTEDFIGUREMOVE)
                            ? IsBlack(mover) && IsFigure(mover)
                            : mover == BlackQueen &&
                                  afterBlack.m_heuristicFlags.HasAny(SH_DONTLETPROMOTEDQUEENMOVE);
    return bNamed && IsPromotedFigure(afterBlack, afterBlack.m_lastMove.to);
}

bool IsPromotedManLoose(const TChessboard& afterBlack) noexcept {
    return HasPromotedManMoved(afterBlack) &&
           GainByWhiteCapture(afterBlack, afterBlack.m_lastMove.to) == 0;
}

}  // namespace tarnwick
