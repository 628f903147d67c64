#include "engine/jobs/start_solving.h"

#include <algorithm>
#include <memory>

#include "base/chess_exception.h"
#include "platform/clock.h"

#include "engine/engine_texts.h"
#include "engine/jobs/root_search.h"
#include "engine/search/engine_state.h"

namespace tarnwick {
namespace {

TSolveResult Refusal(std::string text) {
    TSolveResult result;
    result.message = std::move(text);
    return result;
}

/// A root of the job on the thread's stack of boards.
TChessboard PrepareRoot(TSolveTask& task, TThreadContext& thread, const TChessboard& position) {
    TChessboard root = EmptyChessboard();
    std::copy(std::begin(position.m_fields), std::end(position.m_fields), root.m_fields);
    CheckStartPosition(root, task.m_shPlies, true, nullptr, &task.m_material);
    root.m_pTask = &task;
    root.m_pThread = &thread;
    return root;
}

std::string StopRuleText(const TEngineOptions& options, int solutions) {
    if (!options.bAllSolutions) {
        return {};
    }
    return options.bStopOnDual && solutions >= 2 ? UserText(StoppedOnDualText)
                                                 : UserText(StoppedOnThreeText);
}

TSolveResult Summarise(const TRootSearch& search) {
    TSolveResult result;
    bool bAllSettled = true;
    for (const TRootMove& rootMove : search.moves) {
        if (rootMove.result == TRootResult::Mate) {
            result.keys.push_back(rootMove.move);
        }
        bAllSettled = bAllSettled && rootMove.result != TRootResult::Unknown;
    }
    std::sort(result.keys.begin(), result.keys.end(),
              [](TMove a, TMove b) { return a.from != b.from ? a.from < b.from : a.to < b.to; });
    result.bComplete = bAllSettled && !search.bStopRuleMet;
    if (search.bStopRuleMet) {
        result.status = TSolveStatus::Mate;
        result.message = StopRuleText(search.task.m_options, search.solutions);
    } else if (!bAllSettled) {
        result.status = TSolveStatus::Stopped;
    } else {
        result.status = result.keys.empty() ? TSolveStatus::NoMate : TSolveStatus::Mate;
    }
    return result;
}

}  // namespace

TSolveResult StartSolving(TSolveTask& task, const TChessboard& position, int moves) {
    if (moves < 1) {
        return Refusal(UserText(StipulationTooShortText));
    }
    if (moves > MaxPlies / 2) {
        return Refusal(UserText(StipulationTooLongText));
    }
    task.m_shPlies = static_cast<std::uint16_t>(2 * moves - 1);
    task.m_shRepetitionFrom = task.m_shPlies;
    task.m_startMs = NowMs();
    try {
        const auto thread = std::make_unique<TThreadContext>(task);
        TChessboard root = PrepareRoot(task, *thread, position);
        thread->m_pRootBoard = &root;
        TRootSearch search{.task = task, .thread = *thread, .root = root, .moves = {}};
        FindMateAtRoot(search);
        TellNodesAndCheckLimits(*thread);
        TSolveResult result = Summarise(search);
        result.nodes = task.m_nodes;
        result.workNodes = task.m_workNodes;
        result.elapsedMs = static_cast<std::uint64_t>(NowMs() - task.m_startMs);
        return result;
    } catch (const ChessException& refused) {
        return Refusal(refused.what());
    }
}

}  // namespace tarnwick
