// The analysis from above: what is reset, the order of the rules, and what becomes of their result.

#include "engine/heuristics/position_analysis.h"

#include <bit>

#include "engine/engine_texts.h"
#include "engine/heuristics/analysis_rules.h"
#include "engine/heuristics/heuristic_key.h"
#include "engine/heuristics/position_tests.h"
#include "engine/heuristics/tracked_men.h"
#include "engine/search/thread_context.h"

namespace tarnwick {
namespace {

constexpr TAnalysisRule Rules[] = {
    JudgeMaterial,       RecogniseSeaSnake,    CountBlockedMen,       JudgeFewBlackFigures,
    JudgeRoomOnEdge,     KeepRookWithBishops,  PlayOnOneColour,       WatchQueenChecks,
    SaveQueenFromPawn,   HoldPromotedMen,      BringKingsTogether,    KeepWhiteKingNear,
    SaveFigures,         HoldKingOnEdge,       SurroundKing,          WidenEdgeForFreeKing,
    JudgeMiniature,      RelaxSavingOfFigures, HoldBareKing,          FollowMenAgainstKnights,
    RecogniseZugzwang,   RecogniseSingleQueen, RecogniseSweepingRook, RecogniseKeyFigure,
    RecogniseBlockedMen, TryEdgeOfLongProblem, LetPromotedQueenMove,  ForceSafeModeInDuels,
    StartWithForcedMate, CheckThreeMoves};

/// What an earlier analysis, or the relaxation after it, left in the parameters. The user's own choices
/// about relaxation and followed men stay.
void ResetProposals(TSpecialHeuristics& p) {
    const TSpecialHeuristics old = p;
    p = TSpecialHeuristics{};
    p.bLetRelaxHeuristics = old.bLetRelaxHeuristics;
    p.bHeuristicsFallback = old.bHeuristicsFallback;
    p.bRunPassWithoutHeuristics = old.bRunPassWithoutHeuristics;
    p.bRelaxAutomatic = old.bRelaxAutomatic;
    if (old.bUnblockFixedByUser) {
        p.bUnblockFixedByUser = true;
        p.UnblockFieldCount = old.UnblockFieldCount;
        p.UnblockFields = p.UnblockInitialFields = old.UnblockInitialFields;
    }
    p.LoseFiguresPawnMode = 0;
}

void PutOnBoard(TAnalysis& a) {
    if (a.Has(SH_DONTLETFIGUREUNBLOCK)) {
        StartFollowing(a.board, a.parameters);
    }
    SetHeuristics(a.board, a.set);
}

}  // namespace

bool IsMiniature(const TChessboard& board) noexcept {
    return std::popcount(OccupiedFields(board)) <= MostMenOfMiniature;
}

std::uint16_t AnalyzePosition(TChessboard& board, bool bFromDialog, bool bSecondCall,
                              const TAnalysisOptions* pOptions) {
    static const TAnalysisOptions Defaults;
    const TAnalysisOptions& options = pOptions != nullptr ? *pOptions : Defaults;
    if (!bSecondCall && options.tell) {
        options.tell(UserText(InitialCheckText));
    }
    ResetProposals(Thread(board).m_heuristics);
    board.m_pass = 1;  // The trials are of a pass with heuristics.
    board.m_captureState &= static_cast<std::uint8_t>(~OneColourMask);
    TAnalysis a{.board = board, .parameters = Thread(board).m_heuristics, .options = options};
    for (const TAnalysisRule rule : Rules) {
        rule(a);
    }
    PutOnBoard(a);
    MarkForHeuristics(board);
    if (a.HasFlag(TPositionFlag::SafeModeForced) && !bFromDialog) {
        ForceSafeMode(Thread(board).m_task);
    }
    if (options.bGlobalRegister) {
        a.flags |= Bit(TPositionFlag::GlobalRegisterAsked);
    }
    return a.flags;
}

void MarkForHeuristics(TChessboard& root) noexcept {
    root.m_searchFlags.Set(TSearchFlag::LongLightSort);
    if (BlackFigureCount(root) + root.m_blackPawns == 0) {
        root.m_searchFlags.Set(TSearchFlag::BareBlackKing);
    }
}

void ForceSafeMode(TSolveTask& task) noexcept {
    task.m_bSafeMode = true;
    if (task.m_pRegister != nullptr) {
        task.m_pRegister->SetSafeMode(true);
    }
}

}  // namespace tarnwick
