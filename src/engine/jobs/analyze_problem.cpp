#include "engine/jobs/analyze_problem.h"

#include <memory>
#include <utility>

#include "base/chess_exception.h"

#include "engine/engine_texts.h"
#include "engine/heuristics/heuristic_key.h"
#include "engine/heuristics/position_analysis.h"
#include "engine/heuristics/relaxation.h"
#include "engine/heuristics/search_hooks.h"
#include "engine/jobs/analysis_texts.h"
#include "engine/jobs/heuristic_passes.h"
#include "engine/jobs/prepare_root.h"
#include "engine/jobs/solve_task.h"
#include "engine/search/thread_context.h"

namespace tarnwick {
namespace {

/// The short trials remember little.
constexpr std::size_t MemoryMiB = 1;

constexpr std::pair<TPositionFlag, const TUserText*> FlagTexts[] = {
    {TPositionFlag::BareBlackKing, &BareBlackKingText},
    {TPositionFlag::FreeKing, &FreeKingText},
    {TPositionFlag::FiguresToSpare, &FiguresToSpareText},
    {TPositionFlag::BlackAhead, &BlackAheadText},
    {TPositionFlag::OppositeBishops, &OppositeBishopsText},
    {TPositionFlag::SafeModeForced, &SafeModeForcedText}};

void CheckLength(int moves) {
    if (moves < 1) {
        throw ChessException(UserText(StipulationTooShortText));
    }
    if (moves > MaxPlies / 2) {
        throw ChessException(UserText(StipulationTooLongText));
    }
}

/// On the root, which then holds the set in force.
void ProposeSet(TSolveTask& task, TThreadContext& thread, TChessboard& root,
                const TAnalyzeProblemOptions& options, TProblemAnalysis& analysis) {
    const TAnalysisOptions wishes{.bTrials = options.bTrials, .bForcedMate = options.bForcedMate};
    analysis.flags = AnalyzePosition(root, true, true, &wishes);
    analysis.bSafeModeForced = (analysis.flags & Bit(TPositionFlag::SafeModeForced)) != 0;
    // The road of a job from here on, whose analysis had the same answer.
    task.m_options.heuristics = THeuristicsFrom::User;
    task.m_givenHeuristics = {root.m_heuristicFlags.Raw(), thread.m_heuristics,
                              static_cast<std::uint8_t>(root.m_captureState & OneColourMask)};
    task.m_adjustHeuristics = options.adjust;
    ChooseHeuristics(task, thread, root);
    analysis.set = {root.m_heuristicFlags.Raw(), thread.m_heuristics,
                    static_cast<std::uint8_t>(root.m_captureState & OneColourMask)};
    analysis.heuristics = HeuristicListOf(root);
}

void ListPasses(TChessboard& root, TProblemAnalysis& analysis) {
    analysis.ladder = RelaxationText(root);
    if (analysis.set.mask == 0) {
        return;
    }
    SimulateRelaxation(root, false, [&](const TChessboard& board, bool bTimeDependent) {
        const auto number = static_cast<int>(analysis.passes.size());
        analysis.passes.push_back(
            {HeuristicPassName(number), HeuristicListOf(board), bTimeDependent});
    });
}

}  // namespace

TProblemAnalysis AnalyzeProblem(const TChessboard& position, int moves,
                                const TAnalyzeProblemOptions& options) {
    CheckLength(moves);
    TSolveTask task;
    task.m_shPlies = static_cast<std::uint16_t>(2 * moves - 1);
    task.m_shRepetitionFrom = task.m_shPlies;
    const auto pThread =
        std::make_unique<TThreadContext>(task, MemoryMiB);  // Too large for a stack.
    pThread->m_pHooks = &HeuristicMakeHooks;
    TChessboard root = PrepareRoot(task, *pThread, position);
    pThread->m_pRootBoard = &root;
    TProblemAnalysis analysis;
    analysis.bAnalysedToSolve = task.m_shPlies >= LeastPliesForAnalysis;
    ProposeSet(task, *pThread, root, options, analysis);
    ListPasses(root, analysis);
    return analysis;
}

std::vector<std::string> PositionFlagTexts(std::uint16_t flags) {
    std::vector<std::string> texts;
    for (const auto& [flag, pText] : FlagTexts) {
        if ((flags & Bit(flag)) != 0) {
            texts.emplace_back(UserText(*pText));
        }
    }
    return texts;
}

}  // namespace tarnwick
