#include "engine/heuristics/edge_relaxation.h"

#include <algorithm>
#include <bit>

#include "chess/attacks.h"
#include "engine/heuristics/board_questions.h"
#include "engine/heuristics/heuristic_bits.h"
#include "engine/heuristics/heuristic_key.h"
#include "engine/heuristics/line_moves.h"
#include "engine/search/thread_context.h"

namespace tarnwick {
namespace {

constexpr int SeventhRankNumber = 6;

/// The captured men that a stack notes are the first three of the line, pawns among them; when they are
/// full, what is missing since the root tells more. Promotions hide a loss: then fewer are counted.
int BlackFiguresCaptured(const TChessboard& board) {
    const TThreadContext& thread = Thread(board);
    const int noted = BlackMenCaptured(board.m_captureState);
    int figures = 0;
    for (int i = 0; i < noted; ++i) {
        figures += IsFigure(thread.m_blackCaptured[static_cast<std::size_t>(i)].code) ? 1 : 0;
    }
    if (thread.m_pRootBoard == nullptr) {
        return figures;
    }
    return std::max(figures, BlackFigureCount(*thread.m_pRootBoard) - BlackFigureCount(board));
}

/// The next field is free, or a black man can be taken on the last rank.
bool CanPawnGoOn(const TChessboard& board, int pawn) {
    const TFieldSet step = FieldBit(pawn + 8) & ~OccupiedFields(board);
    return (step | (WhitePawnTargets[static_cast<std::size_t>(pawn)] & board.m_blackMen)) != 0;
}

/// On the seventh rank and able to promote, or on the sixth with a free way.
bool HasAdvancedPawn(const TChessboard& board) {
    TFieldSet pawns = board.m_pawns & board.m_whiteMen & (SixthRank | SeventhRank);
    const TFieldSet occupied = OccupiedFields(board);
    while (pawns != 0) {
        const int pawn = PopLowest(pawns);
        const bool bNear = RankOf(pawn) == SeventhRankNumber
                               ? CanPawnGoOn(board, pawn)
                               : ((FieldBit(pawn + 8) | FieldBit(pawn + 16)) & occupied) == 0;
        if (bNear) {
            return true;
        }
    }
    return false;
}

/// White attacks a black figure at this moment: the balance of men may change.
bool AttacksFigure(const TChessboard& board) {
    for (TFieldSet figures = BlackFigures(board); figures != 0;) {
        const int field = PopLowest(figures);
        if (IsAttackedByWhiteOver(board, field, OccupiedFields(board))) {
            return true;
        }
    }
    return false;
}

bool CanStillCapture(const TChessboard& board, const TSpecialHeuristics& parameters) {
    return parameters.RelaxFiguresCaptured > 0 &&
           BlackFiguresCaptured(board) + BlackFigureCount(board) >=
               parameters.RelaxFiguresCaptured &&
           (!parameters.bRelaxSkipDefer || AttacksFigure(board));
}

/// Some white pawn, unhindered, is on the seventh rank within so many white moves.
bool CanStillAdvance(const TChessboard& board, const TSpecialHeuristics& parameters, int moves) {
    if (!parameters.bRelaxOnAdvancedPawn) {
        return false;
    }
    for (TFieldSet pawns = board.m_pawns & board.m_whiteMen; pawns != 0;) {
        const int pawn = PopLowest(pawns);
        if (SeventhRankNumber - RankOf(pawn) <= moves && CanPawnGoOn(board, pawn)) {
            return true;
        }
    }
    return false;
}

}  // namespace

bool IsEdgeRelaxed(const TChessboard& board, std::uint32_t bit) noexcept {
    const TSpecialHeuristics& parameters = Thread(board).m_heuristics;
    if (parameters.bRelaxExtEdgeOnly && bit != SH_KEEPKINGWITHINEXTEDGE) {
        return false;
    }
    return board.m_stateBits.Has(TStateBit::RelaxedByPawn) ||
           (parameters.RelaxFiguresCaptured > 0 &&
            BlackFiguresCaptured(board) >= parameters.RelaxFiguresCaptured);
}

void RelaxOnAdvancedPawn(TChessboard& afterWhite) noexcept {
    if (!Thread(afterWhite).m_heuristics.bRelaxOnAdvancedPawn ||
        afterWhite.m_stateBits.Has(TStateBit::RelaxedByPawn) || !HasAdvancedPawn(afterWhite)) {
        return;
    }
    afterWhite.m_stateBits.Set(TStateBit::RelaxedByPawn);
    UpdateHeurParams(afterWhite);
}

bool MayEdgeWait(const TChessboard& afterBlack, int pliesOut) noexcept {
    const TSpecialHeuristics& parameters = Thread(afterBlack).m_heuristics;
    // The second number bounds how far from the edge the king may go meanwhile.
    if (pliesOut > parameters.DeferMoves ||
        BlackKingEdgeDistance(afterBlack) > parameters.DeferSecond) {
        return false;
    }
    const int movesToWait = (parameters.DeferMoves - pliesOut) / 2 + 1;
    return CanStillCapture(afterBlack, parameters) ||
           CanStillAdvance(afterBlack, parameters, movesToWait);
}

}  // namespace tarnwick
