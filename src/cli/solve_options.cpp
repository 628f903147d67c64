#include "cli/solve_options.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>
#include <string_view>

#include "base/chess_exception.h"
#include "platform/memory_info.h"

#include "engine/engine_texts.h"
#include "engine/heuristics/heuristic_list.h"
#include "engine/jobs/job_memory.h"
#include "engine/threads/level_quantum.h"
#include "engine/threads/multithreading_level.h"

namespace tarnwick {
namespace {

constexpr std::uint8_t SchedulerLevelsNotGiven = 255;

struct TTypedThreads {
    int threads = 1;
    int levels = 1;
};

/// The whole text as a number; nothing for any other text.
std::optional<int> WholeNumber(std::string_view text) {
    int number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    const bool bWhole = error == std::errc() && end == text.data() + text.size() && !text.empty();
    return bWhole ? std::optional(number) : std::nullopt;
}

std::optional<TTypedThreads> ParseThreads(std::string_view text) {
    const std::size_t sign = text.find('^');
    const auto threads = WholeNumber(text.substr(0, sign));
    const auto levels =
        sign == std::string_view::npos ? std::optional(1) : WholeNumber(text.substr(sign + 1));
    if (!threads || !levels || *threads < 1 || *threads > MostThreadsPerLevel || *levels < 1 ||
        *levels > MostThreadsPerLevel) {
        return std::nullopt;
    }
    return TTypedThreads{*threads, *levels};
}

void SetThreads(TEngineOptions& options, const std::string& text) {
    const TTypedThreads typed =
        ParseThreads(text).value_or(TTypedThreads{ProcessorsOfMachine().physical, 1});
    options.threads = static_cast<std::uint16_t>(std::min(typed.threads, MostThreadsPerLevel));
    options.multithreadingLevels = static_cast<std::uint8_t>(typed.levels);
}

/// The problem's own wish as the command line would write it; empty if it has none that makes sense.
std::string ThreadsOf(const TChessProblem& problem) {
    if (problem.m_threads == ThreadsNotGiven) {
        return "";
    }
    std::string text = std::to_string(problem.m_threads);
    if (problem.m_threadsAux != ThreadsNotGiven) {
        text += "^" + std::to_string(problem.m_threadsAux);
    }
    return ThreadsFault(text).empty() ? text : "";
}

void SetMemory(TEngineOptions& options, std::string_view text) {
    if (text.ends_with('%')) {
        options.memoryPercent = *WholeNumber(text.substr(0, text.size() - 1));
    } else if (!text.empty()) {
        options.memoryMiB = *WholeNumber(text);
    }
}

void SetScheduler(TEngineOptions& options, const TChessProblem& problem,
                  const TSolveArguments& arguments) {
    const int ofProblem = problem.m_schedulerLevels == SchedulerLevelsNotGiven
                              ? options.schedulerLevels
                              : problem.m_schedulerLevels;
    options.schedulerLevels = static_cast<std::uint8_t>(
        std::min(arguments.schedulerLevels.value_or(ofProblem), MostSchedulerLevels));
    options.bCustomScheduler = arguments.bCustomScheduler;
}

bool IsAutomatic(const TSolveArguments& arguments) {
    return arguments.heuristics.empty() || arguments.heuristics == "auto";
}

void SetHeuristicPasses(TEngineOptions& options, const TChessProblem& problem,
                        const TSolveArguments& arguments) {
    if (IsAutomatic(arguments)) {
        options.heuristics = THeuristicsFrom::Analysis;
    } else {
        options.heuristics =
            arguments.heuristics == "none" ? THeuristicsFrom::None : THeuristicsFrom::User;
    }
    options.bLetRelaxHeuristics = arguments.relax != "off";
    options.bStopRelaxOnFirstSolution =
        arguments.relax.empty() && problem.m_bStopRelaxHeuristicsOnFirstSolution;
    options.bRunPassWithoutHeuristics = arguments.finalPass != "off";
    options.bForcedMatePasses = !arguments.bNoForced;
}

/// The limit in milliseconds, at least one: a short limit is not no limit.
std::uint64_t LimitMs(double seconds) {
    constexpr double MostSeconds = 1e9;  // thirty years, in range of all types on the way
    return static_cast<std::uint64_t>(std::ceil(std::min(seconds, MostSeconds) * 1000));
}

}  // namespace

std::string ThreadsFault(const std::string& text) {
    const auto typed = ParseThreads(text);
    if (!typed) {
        return "must be threads, or threads^levels, from 1 to 64 each, like 4 or 4^2";
    }
    return MostThreads(typed->threads, typed->levels) > MostThreadsAtOnce
               ? UserText(TooManyThreadsText)
               : "";
}

std::string MemoryFault(const std::string& text) {
    const bool bPercent = text.ends_with('%');
    const auto number = WholeNumber(std::string_view(text).substr(0, text.size() - bPercent));
    const int most = bPercent ? 100 : 1 << 24;
    return number && *number >= 0 && *number <= most
               ? ""
               : "must be a number of MiB, or a share of the machine's memory like 20%";
}

std::string HeuristicsFault(const std::string& text) {
    if (text == "auto" || text == "none") {
        return "";
    }
    try {
        const bool bSome = ParseHeuristicList(text).mask != 0;
        return bSome ? "" : "must be auto, none, or a list of heuristics";
    } catch (const ChessException& error) {
        return error.what();
    }
}

TEngineOptions OptionsFor(const TChessProblem& problem, const TSolveArguments& arguments) {
    const bool bStopOnDual = problem.m_shOptions.Has(TProblemOption::StopOnDual);
    const bool bStopOn3Sol = problem.m_shOptions.Has(TProblemOption::StopOn3Sol);
    const bool bManyKeys = problem.m_shOptions.Has(TProblemOption::AllSolutions);
    TEngineOptions options;
    options.bAllSolutions = arguments.bAll || bManyKeys || bStopOnDual || bStopOn3Sol;
    options.bStopOnDual = !arguments.bAll && bStopOnDual;
    options.bStopOn3Sol = !arguments.bAll && bStopOn3Sol;
    options.timeLimitMs = LimitMs(arguments.seconds);
    options.nodeLimit = arguments.nodes;
    options.bQuickMode = arguments.bQuick && !problem.m_shOptions.Has(TProblemOption::SafeMode);
    SetThreads(options, arguments.threads.empty() ? ThreadsOf(problem) : arguments.threads);
    SetMemory(options, arguments.memory);
    SetScheduler(options, problem, arguments);
    SetHeuristicPasses(options, problem, arguments);
    options.bScout = !arguments.bNoScout;
    options.bLogMoves = !arguments.logFolder.empty();
    options.logFolder = arguments.logFolder;
    return options;
}

void SetUpJob(TSolveTask& task, const TChessProblem& problem, const TSolveArguments& arguments) {
    task.m_options = OptionsFor(problem, arguments);
    task.m_sortHints = HintsOfProblem(problem);
    task.m_problemNumber = static_cast<std::uint32_t>(problem.m_id);
    if (task.m_options.heuristics == THeuristicsFrom::User) {
        task.m_givenHeuristics = ParseHeuristicList(arguments.heuristics);
    } else if (IsAutomatic(arguments) && !problem.m_heuristicSettings.empty()) {
        task.m_adjustHeuristics = [&problem](THeuristicSet& set) {
            ApplyHeuristicSettings(set, problem);
        };
    }
}

}  // namespace tarnwick
