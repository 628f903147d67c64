#pragma once
// What the user reads when a job is over, in his language.

#include <cstdint>
#include <string>

#include "engine/jobs/start_solving.h"

namespace tarnwick {

/// Title of the box that shows a result.
std::string ResultTitle();

/// The text that a stop rule leaves behind when it has ended the search; empty for the rule of the first
/// key, which needs no word.
std::string StopRuleText(const TEngineOptions& options, int solutions);

/// What the engine did beyond the search itself.
struct TRunNotes {
    bool bRelaxationOff = false;  ///< One pass with heuristics only, by the user's wish.
    bool bFinalPassOff = false;   ///< No pass without heuristics, by the user's wish.
};

/// The text of the box: several keys, none, or a stop by the user. Empty for a single key, which is shown
/// on the board.
std::string ResultText(const TSolveResult& result, const TEngineOptions& options, int moves,
                       const TRunNotes& notes);

/// "Engine stopped: %s" or "Engine has completed: %s" with the text of the options.
std::string EndLine(const TSolveResult& result, const TEngineOptions& options);

/// " 2thrd(s)SnglSolution," and the like: options as the logs name them.
std::string OptionsText(const TEngineOptions& options);

/// One line for the result panel: the problem, its length and its keys, or that there are none.
std::string PanelText(const TSolveResult& result, std::uint32_t problem, int moves,
                      const std::string& keys, const TRunNotes& notes);

/// The line of the log when a problem's thread is through.
std::string ThreadEndText(std::uint32_t problem, const TSolveResult& result);
/// The same for a thread that an exception ended.
std::string ThreadErrorText(std::uint32_t problem, const std::string& error);

/// Lines of a regression run. `moves` is empty when there is no solution.
std::string RegressionProblemLine(const std::string& options, std::uint32_t problem, bool bMirrored,
                                  const std::string& moves, std::uint64_t ms);
std::string RegressionOkLine(const std::string& options, std::uint32_t problem, bool bMirrored,
                             std::uint64_t ms, bool bSortOnly);
std::string RegressionFailedLine(const std::string& options, std::uint32_t problem, bool bMirrored,
                                 const std::string& why);
std::string RegressionDifferenceLine(const std::string& options, std::uint32_t problem,
                                     bool bMirrored, const std::string& found,
                                     const std::string& expected);

}  // namespace tarnwick
