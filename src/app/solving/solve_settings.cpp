#include "app/solving/solve_settings.h"

#include "engine/jobs/problem_job.h"

namespace tarnwick {

TEngineOptions JobOptions(const TChessProblem& problem, const TSolveSettings& settings,
                          const TSolveWish& wish) {
    TEngineOptions options;
    options.bQuickMode = settings.bQuickMode;
    options.threads = settings.threads;
    options.multithreadingLevels = settings.multithreadingLevels;
    options.schedulerLevels = settings.schedulerLevels;
    options.bCustomScheduler = settings.bCustomScheduler;
    options.memoryPercent = settings.memoryPercent;
    options.bCheckRegisterCoherency = settings.bCheckRegisterCoherency;
    options.bLogMoves = settings.bLogMoves;
    options.bRegisterInfoLog = settings.bRegisterInfoLog;
    options.bRelaxationLog = settings.bRelaxationLog;
    options.logFolder = settings.logFolder;
    TakeOptionsOfProblem(options, problem);
    if (wish.bAllKeys) {
        WantAllKeys(options);
    }
    options.heuristics = wish.heuristics;
    options.bLetRelaxHeuristics = wish.bLetRelaxHeuristics;
    options.bRunPassWithoutHeuristics = wish.bRunPassWithoutHeuristics;
    return options;
}

}  // namespace tarnwick
