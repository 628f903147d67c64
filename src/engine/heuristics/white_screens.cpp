#include "engine/heuristics/white_screens.h"

#include "chess/line_history.h"
#include "engine/heuristics/heuristic_bits.h"
#include "engine/heuristics/line_moves.h"
#include "engine/heuristics/tracked_men.h"
#include "engine/search/thread_context.h"

namespace tarnwick {
namespace {

bool Has(const TChessboard& board, std::uint32_t bit) {
    return board.m_heuristicFlags.HasAny(bit);
}

/// A forced search has its own idea of which moves are worth a look.
bool IsRoomScreened(const TChessboard& child) {
    return Has(child, SH_ASSERTBLACKKINGSURROUNDED) &&
           !(Has(child, SH_FINDFORCEDMATE) && Thread(child).m_bInForcedLevel) &&
           IsScreenedByKingsRoom(child);
}

/// The bishop that holds the king in the corner gives up its diagonals.
bool LeavesKingsDiagonal(const TChessboard& child) {
    if (!Has(child, SH_DONTLEAVEMAINDIAGONAL) || !Has(child, SH_KEEPKINGONTHEEDGE) ||
        !Thread(child).m_heuristics.bKingStrict || LastMover(child) != WhiteBishop) {
        return false;
    }
    const TFieldSet diagonals = DiagonalRays[static_cast<std::size_t>(BlackKingField(child))];
    return (diagonals & FieldBit(child.m_lastMove.from)) != 0 &&
           (diagonals & FieldBit(child.m_lastMove.to)) == 0;
}

/// A promoted queen has just moved and White does not take it.
bool LetsPromotedQueenMove(const TChessboard& child) {
    const TChessboard& before = *child.m_pPrevious;
    const int field = before.m_lastMove.to;
    return Has(child, SH_DONTLETPROMOTEDQUEENMOVE) && before.m_fields[field] == BlackQueen &&
           LastMover(before) == BlackQueen && child.m_lastMove.to != field &&
           IsPromotedFigure(before, field);
}

bool LetsPromotedFigureMove(const TChessboard& child) {
    const TChessboard& before = *child.m_pPrevious;
    const int field = before.m_lastMove.to;
    return Has(child, SH_DONTLETPROMOTEDFIGUREMOVE) && IsFigure(LastMover(before)) &&
           child.m_lastMove.to != field && IsPromotedFigure(before, field);
}

bool IsScreenedByStrictness(const TChessboard& child) {
    if (!Thread(child).m_heuristics.bPromotedStrict) {
        return false;
    }
    if (Has(child, SH_DONTLETFIGUREUNBLOCK) && !AreFollowedMenAtHome(child)) {
        return true;
    }
    return PromotedBlackFigures(child) > 0 && LetsPromotedQueenMove(child);
}

}  // namespace

bool IsScreenedOut(TChessboard& child) noexcept {
    if (Has(child, SH_SWEEPINGWHITEROOK) && IsScreenedBySweepingRook(child)) {
        return true;
    }
    if (IsRoomScreened(child) || LeavesKingsDiagonal(child)) {
        return true;
    }
    const TChessboard* before = child.m_pPrevious;
    if (before == nullptr || !IsWatchedMove(before->m_lastMove)) {
        return false;
    }
    if (IsScreenedByStrictness(child) || LetsPromotedFigureMove(child)) {
        return true;
    }
    if (Has(child, SH_DONTLOSEANYFIGURES) && IsWhite(LastCaptured(*before)) &&
        IsFigure(LastCaptured(*before))) {
        child.m_stateBits.Set(TStateBit::FigureLost);
    }
    return false;
}

}  // namespace tarnwick
