// Rules about where the kings are.

#include "chess/board_tables.h"
#include "chess/pins.h"
#include "engine/heuristics/analysis_rules.h"
#include "engine/heuristics/board_questions.h"
#include "engine/heuristics/bounded_mate.h"
#include "engine/heuristics/free_fields.h"
#include "engine/heuristics/position_tests.h"
#include "engine/heuristics/relaxation_ladder.h"
#include "engine/search/thread_context.h"

namespace tarnwick {
namespace {

/// From so many plies a pass on a wrong guess costs more than a trial.
constexpr int LongRootPlies = 23;
constexpr TTrialLimits Limits{.from = 2, .to = 6};
constexpr TFieldSet MainDiagonals = 0x8040201008040201ULL | 0x0102040810204080ULL;

/// Two white men, both bishops, one of them on a main diagonal.
bool DoBishopsHoldMainDiagonal(const TChessboard& board) {
    const TFieldSet bishops = board.m_diagonalSliders & board.m_whiteMen;
    return board.m_whiteBishops == 2 && WhiteFigureCount(board) + board.m_whitePawns == 2 &&
           (bishops & MainDiagonals) != 0;
}

/// A black pawn beside the white king that no pin holds: the king may have to step back to stop it.
bool HasLoosePawnAtWhiteKing(const TChessboard& board) {
    TFieldSet pawns = board.m_pawns & board.m_blackMen &
                      KingFields[static_cast<std::size_t>(WhiteKingField(board))];
    pawns &= ~PinnedBlackMen(board);
    return pawns != 0;
}

bool Holds(TAnalysis& a, std::uint32_t set) {
    const TTrialOptions options{.bKingStrict = a.parameters.bKingStrict,
                                .bKingAlmostStrict = a.parameters.bKingAlmostStrict,
                                .limits = Limits};
    return TryHeuristics(a.board, set, options) == TTrialResult::Kept;
}

/// The strictest form of the edge that a short trial can hold; false if none.
bool FindEdgeThatHolds(TAnalysis& a) {
    TSpecialHeuristics& p = a.parameters;
    if (Holds(a, a.set)) {
        return true;
    }
    if (!p.bKingAlmostStrict) {
        p.bKingAlmostStrict = true;
        if (Holds(a, a.set)) {
            return true;
        }
    }
    Thread(a.board).m_task.m_bEdgeHardToHold = true;
    if (!p.bKingStrict) {
        return false;
    }
    p.bKingStrict = false;
    return Holds(a, a.set);
}

}  // namespace

void BringKingsTogether(TAnalysis& a) {
    if (!a.options.bTrials || !IsMiniature(a.board) || a.Has(SH_SEASNAKE)) {
        return;
    }
    if (TryEdgeStrict(a.board, Limits) != TTrialResult::Kept) {
        a.Add(SH_AREKINGSNEAR);
    }
}

void KeepWhiteKingNear(TAnalysis& a) {
    const bool bMustStep = DistanceOfKings(a.board) == 2 && HasLoosePawnAtWhiteKing(a.board);
    if (IsMiniature(a.board) && !a.Has(SH_SEASNAKE) && !bMustStep) {
        a.Add(SH_DONTRECEDEBLACKKING);
    }
}

void HoldKingOnEdge(TAnalysis& a) {
    const TChessboard& board = a.board;
    if (BlackKingEdgeDistance(board) > 0) {
        if (BlackKingEdgeDistance(board) == 1 && CanHoldWithinExtendedEdge(board)) {
            SetExtendedEdge(board, a.parameters, a.set);
        }
        return;
    }
    a.Add(SH_KEEPKINGONTHEEDGE);
    a.parameters.bRelaxOnAdvancedPawn = a.parameters.bRelaxAutomatic && HasAdvancedWhitePawn(board);
    if (IsKingInCorner(board)) {
        a.parameters.bKingStrict = true;
        if (DoBishopsHoldMainDiagonal(board)) {
            a.Add(SH_DONTLEAVEMAINDIAGONAL);
        }
    } else {
        a.parameters.bKingStrict = MajorCount(board) > 0 && !HasKingField(board);
    }
}

void SurroundKing(TAnalysis& a) {
    AddSurrounded(a.board, a.set);
    if (!a.Has(SH_KEEPKINGONTHEEDGE) && BlackKingEdgeDistance(a.board) <= 1) {
        AddHoldOfFewMen(a.board, a.parameters, a.set);
    }
    if (a.Has(SH_ASSERTBLACKKINGSURROUNDED)) {
        a.Clear(SH_DONTRECEDEBLACKKING);
    }
}

void WidenEdgeForFreeKing(TAnalysis& a) {
    const bool bNeedsRoom = a.Has(SH_CAPTUREKNIGHT) ||
                            (a.HasFlag(TPositionFlag::FreeKing) && a.board.m_blackPawns == 0);
    if (bNeedsRoom && a.Has(SH_KEEPKINGONTHEEDGE)) {
        a.Clear(SH_KEEPKINGONTHEEDGE);
        SetExtendedEdge(a.board, a.parameters, a.set);
    }
}

void JudgeMiniature(TAnalysis& a) {
    const TChessboard& board = a.board;
    const bool bFewFigures = a.whiteFigures <= 2 && board.m_whiteQueens == 0;
    if (bFewFigures && board.m_whitePawns + board.m_blackPawns == 0) {
        a.Clear(SH_ASSERTBLACKKINGSURROUNDED);
        a.Add(SH_AREKINGSNEAR);
    }
}

void HoldBareKing(TAnalysis& a) {
    const TChessboard& board = a.board;
    const bool bHeld = a.Has(EdgeHeuristics | SH_ASSERTBLACKKINGSURROUNDED);
    if (a.HasFlag(TPositionFlag::BareBlackKing) && BlackKingEdgeDistance(board) == 1 && !bHeld &&
        (MajorCount(board) > 0 || board.m_whiteBishops >= 2)) {
        SetExtendedEdge(board, a.parameters, a.set);
    }
}

void TryEdgeOfLongProblem(TAnalysis& a) {
    if (!a.options.bTrials || a.board.m_shRootPlies <= LongRootPlies ||
        !a.Has(SH_KEEPKINGONTHEEDGE) || FindEdgeThatHolds(a)) {
        return;
    }
    a.Clear(SH_KEEPKINGONTHEEDGE);
    if (Holds(a, SH_KEEPKINGWITHINEXTEDGE)) {
        SetExtendedEdge(a.board, a.parameters, a.set);
    }
}

}  // namespace tarnwick
