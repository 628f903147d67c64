#include "engine/jobs/problem_job.h"

#include <algorithm>
#include <memory>

#include "engine/heuristics/heuristic_list.h"
#include "engine/jobs/job_memory.h"
#include "engine/threads/level_quantum.h"
#include "engine/threads/multithreading_level.h"

namespace tarnwick {
namespace {

constexpr std::uint8_t SchedulerLevelsNotGiven = 255;

void TakeThreads(TEngineOptions& options, const TChessProblem& problem) {
    const int levels = problem.m_threadsAux == ThreadsNotGiven ? 1 : problem.m_threadsAux;
    if (problem.m_threads != ThreadsNotGiven && MayHaveThreads(problem.m_threads, levels)) {
        options.threads = problem.m_threads;
        options.multithreadingLevels = static_cast<std::uint8_t>(levels);
    }
}

}  // namespace

bool MayHaveThreads(int threads, int levels) {
    return threads >= 1 && threads <= MostThreadsPerLevel && levels >= 1 &&
           levels <= MostThreadsPerLevel && MostThreads(threads, levels) <= MostThreadsAtOnce;
}

void TakeOptionsOfProblem(TEngineOptions& options, const TChessProblem& problem) {
    const auto& words = problem.m_shOptions;
    options.bStopOnDual = words.Has(TProblemOption::StopOnDual);
    options.bStopOn3Sol = words.Has(TProblemOption::StopOn3Sol);
    options.bAllSolutions = options.bAllSolutions || words.Has(TProblemOption::AllSolutions) ||
                            options.bStopOnDual || options.bStopOn3Sol;
    options.bQuickMode = options.bQuickMode && !words.Has(TProblemOption::SafeMode);
    TakeThreads(options, problem);
    if (problem.m_schedulerLevels != SchedulerLevelsNotGiven) {
        options.schedulerLevels = static_cast<std::uint8_t>(
            std::min<int>(problem.m_schedulerLevels, MostSchedulerLevels));
    }
    options.bStopRelaxOnFirstSolution = problem.m_bStopRelaxHeuristicsOnFirstSolution;
}

void WantAllKeys(TEngineOptions& options) {
    options.bAllSolutions = true;
    options.bStopOnDual = false;
    options.bStopOn3Sol = false;
}

void TakeHintsOfProblem(TSolveTask& task, const TChessProblem& problem, bool bMainVariantHints) {
    task.m_problemNumber = static_cast<std::uint32_t>(problem.m_id);
    task.m_sortHints = HintsOfProblem(problem, bMainVariantHints);
    if (task.m_options.heuristics == THeuristicsFrom::Analysis &&
        !problem.m_heuristicSettings.empty()) {
        // Settings of its own: the user may go on editing the problem while it is solved.
        auto pSettings = std::make_shared<TChessProblem>();
        pSettings->m_heuristicSettings = problem.m_heuristicSettings;
        task.m_adjustHeuristics = [pSettings = std::move(pSettings)](THeuristicSet& set) {
            ApplyHeuristicSettings(set, *pSettings);
        };
    }
}

}  // namespace tarnwick
