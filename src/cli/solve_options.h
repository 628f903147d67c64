#pragma once
// From the words of the user and of the problem to what the engine is told.

#include <string>

#include "cli/solve_command.h"
#include "engine/engine_options.h"
#include "engine/jobs/solve_task.h"
#include "problems/chess_problem.h"

namespace tarnwick {

/// "4" or "4^2": threads and levels of threads. Returns what is wrong with the text; empty: nothing.
std::string ThreadsFault(const std::string& text);
/// "512" or "20%": MiB, or a share of the machine's memory.
std::string MemoryFault(const std::string& text);
/// "auto", "none" or a list of heuristics.
std::string HeuristicsFault(const std::string& text);

/// What the user says goes before what the problem says, but for SafeMode: who wrote it knows that quick
/// mode overlooks the key. The arguments must have no faults.
TEngineOptions OptionsFor(const TChessProblem& problem, const TSolveArguments& arguments);

/// The job of a direct mate: options, hints, heuristics. The job keeps no pointer to the problem.
void SetUpJob(TSolveTask& task, const TChessProblem& problem, const TSolveArguments& arguments);

}  // namespace tarnwick
