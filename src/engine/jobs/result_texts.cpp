#include "engine/jobs/result_texts.h"

#include <algorithm>
#include <cstdio>

#include "engine/engine_texts.h"

namespace tarnwick {
namespace {

std::string MirrorMark(bool bMirrored, std::uint32_t problem) {
    return bMirrored ? " M" + std::to_string(problem) : "";
}

std::string Milliseconds(std::uint64_t ms) {
    return "(" + std::to_string(ms) + " msec)";
}

std::string TestHead(const std::string& options, std::uint32_t problem, bool bMirrored) {
    return "[" + options + "] Test #" + std::to_string(problem) + MirrorMark(bMirrored, problem);
}

std::string NoSolutionText(const TSolveResult& result, int moves, const TRunNotes& notes) {
    std::string text = UserText(NoSolutionsText) + std::to_string(moves);
    if (!notes.bRelaxationOff && !notes.bFinalPassOff && result.bSafeMode) {
        return text;
    }
    text += UserText(NoteText);
    text += notes.bRelaxationOff ? UserText(NoRelaxationNote) : "";
    text += notes.bFinalPassOff ? UserText(NoFinalPassNote) : "";
    return text + (result.bSafeMode ? "" : UserText(QuickModeNote));
}

}  // namespace

std::string ResultTitle() {
    return UserText(ResultTitleText);
}

std::string StopRuleText(const TEngineOptions& options, int solutions) {
    if (!options.bAllSolutions) {
        return {};
    }
    return options.bStopOnDual && solutions >= 2 ? UserText(StoppedOnDualText)
                                                 : UserText(StoppedOnThreeText);
}

std::string ResultText(const TSolveResult& result, const TEngineOptions& options, int moves,
                       const TRunNotes& notes) {
    const auto keys = static_cast<int>(result.keys.size());
    if (result.status == TSolveStatus::Refused) {
        return result.message;
    }
    if (result.status == TSolveStatus::Stopped) {
        return UserText(StoppedByUserText);
    }
    if (keys == 0) {
        return NoSolutionText(result, moves, notes);
    }
    if (keys == 1) {
        return {};
    }
    if (options.bStopOnDual) {
        return UserText(StoppedOnDualText);
    }
    return options.bStopOn3Sol && keys >= 3 ? UserText(StoppedOnThreeText)
                                            : UserText(ManySolutionsText) + std::to_string(keys);
}

std::string EndLine(const TSolveResult& result, const TEngineOptions& options) {
    return UserText(result.status == TSolveStatus::Stopped ? EngineStoppedText
                                                           : EngineCompletedText) +
           OptionsText(options);
}

std::string OptionsText(const TEngineOptions& options) {
    std::string threads = std::to_string(options.threads);
    threads.insert(0, threads.size() < 2 ? 2 - threads.size() : 0, ' ');
    return threads + "thrd(s)" + (options.bAllSolutions ? "AllSolutions," : "SnglSolution,");
}

std::string PanelText(const TSolveResult& result, std::uint32_t problem, int moves,
                      const std::string& keys, const TRunNotes& notes) {
    std::string text = std::to_string(problem) + " >> #" + std::to_string(moves) + " | ";
    if (!result.keys.empty()) {
        return text + keys + (result.bFromResultsCache ? UserText(FromRegisterText) : "");
    }
    char seconds[32];
    std::snprintf(seconds, sizeof seconds, "%.1f", static_cast<double>(result.elapsedMs) / 1000);
    text.append(UserText(NoSolutionFoundText)).append(" (").append(seconds);
    text.append(UserText(SecondsText)).append(")");
    return text + (notes.bFinalPassOff ? UserText(FinalPassOffPanelNote) : "");
}

std::string ThreadEndText(std::uint32_t problem, const TSolveResult& result) {
    const std::string number = std::to_string(problem);
    const std::string head = UserText(ThreadSolvingText) + number + UserText(CompletedWellText);
    return head + " " +
           (result.keys.empty()
                ? UserText(NoSolutionOfText) + number
                : std::to_string(result.keys.size()) + UserText(SolutionsOfText) + number);
}

std::string ThreadErrorText(std::uint32_t problem, const std::string& error) {
    return UserText(ThreadSolvingText) + std::to_string(problem) + UserText(CompletedBadlyText) +
           "\n\n\"" + error + "\"";
}

std::string RegressionProblemLine(const std::string& options, std::uint32_t problem, bool bMirrored,
                                  const std::string& moves, std::uint64_t ms) {
    return "[" + options + "] Prob.#" + std::to_string(problem) + MirrorMark(bMirrored, problem) +
           " " + (moves.empty() ? "No solution" : moves) + " " + Milliseconds(ms) + ".\n";
}

std::string RegressionOkLine(const std::string& options, std::uint32_t problem, bool bMirrored,
                             std::uint64_t ms, bool bSortOnly) {
    return TestHead(options, problem, bMirrored) + " ok " + Milliseconds(ms) +
           (bSortOnly ? " - ExpectedSortWhiteMovesOnly" : "") + ".\n";
}

std::string RegressionFailedLine(const std::string& options, std::uint32_t problem, bool bMirrored,
                                 const std::string& why) {
    return TestHead(options, problem, bMirrored) + " failed: " + why + "\n";
}

std::string RegressionDifferenceLine(const std::string& options, std::uint32_t problem,
                                     bool bMirrored, const std::string& found,
                                     const std::string& expected) {
    return TestHead(options, problem, bMirrored) + " failed:\n\tfound:\n" + found +
           "\tshould be:\n" + expected;
}

}  // namespace tarnwick
