#pragma once
// What a problem says itself about how it wants to be solved, put into a job. The command line and the
// window both begin with defaults of their own, let the problem override them here, and end with what the
// user wants of this one run.

#include "engine/engine_options.h"
#include "engine/jobs/solve_task.h"
#include "problems/chess_problem.h"

namespace tarnwick {

/// Whether a job may have so many threads at the root and so many levels of them.
bool MayHaveThreads(int threads, int levels);

/// Puts what the problem says over the defaults in `options`: which keys are wanted, safe mode (who wrote
/// it knows that quick mode overlooks the key), threads, scheduler, the end of relaxation. A number of
/// threads that nobody may have is passed over.
void TakeOptionsOfProblem(TEngineOptions& options, const TChessProblem& problem);

/// Every key is wanted, whatever stop rules are in the options.
void WantAllKeys(TEngineOptions& options);

/// The problem's number and hints for the order of moves and, where the engine chooses the heuristics, the
/// problem's changes to its choice. m_options must be filled. bMainVariantHints: the moves of the main
/// variant are hints also where the problem does not ask for it. The job keeps no pointer to the problem.
void TakeHintsOfProblem(TSolveTask& task, const TChessProblem& problem, bool bMainVariantHints);

}  // namespace tarnwick
