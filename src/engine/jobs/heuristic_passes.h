#pragma once
// The passes with heuristics of one job: which set comes first, and what comes after it.

#include <cstdint>
#include <string>
#include <vector>

#include "chess/chessboard.h"
#include "engine/jobs/heuristic_rung.h"
#include "engine/search/thread_context.h"

namespace tarnwick {

/// Shorter problems are searched in full sooner than a heuristic could help, so that the analysis is not
/// asked for them. Where all keys are wanted the full search has to be run anyway: there the passes before
/// it pay only when it is out of reach. A set that the user gives holds for all lengths.
inline constexpr int LeastPliesForAnalysis = 11;
inline constexpr int LeastPliesForAnalysisOfAllKeys = 17;

/// Puts the first set on the root and into its thread, from the options of the job: none, the analysis'
/// or the user's, and what the problem itself wants. Tells about safe mode. Throws ChessException for
/// settings of the problem that make no sense.
void ChooseHeuristics(TSolveTask& task, TThreadContext& thread, TChessboard& root);

/// The set of the root first (without the preliminary pass, if it has one), then those that relaxation
/// makes of it. Empty without heuristics.
std::vector<THeuristicRung> HeuristicLadder(TChessboard& root);

/// The rung on a root and its thread.
void TakeRung(const THeuristicRung& rung, TThreadContext& thread, TChessboard& root);
THeuristicRung RungOf(const TThreadContext& thread, const TChessboard& root);

/// The list of the heuristics on the board, for the user.
std::string HeuristicListOf(const TChessboard& board);

}  // namespace tarnwick
