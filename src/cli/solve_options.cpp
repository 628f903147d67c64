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
#include "engine/jobs/problem_job.h"
#include "engine/threads/level_quantum.h"
#include "engine/threads/multithreading_level.h"

namespace tarnwick {
namespace {

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
    if (const auto typed = ParseThreads(text)) {
        options.threads = static_cast<std::uint16_t>(typed->threads);
        options.multithreadingLevels = static_cast<std::uint8_t>(typed->levels);
    }
}

void SetMemory(TEngineOptions& options, std::string_view text) {
    if (text.ends_with('%')) {
        options.memoryPercent = *WholeNumber(text.substr(0, text.size() - 1));
    } else if (!text.empty()) {
        options.memoryMiB = *WholeNumber(text);
    }
}

void SetScheduler(TEngineOptions& options, const TSolveArguments& arguments) {
    if (arguments.schedulerLevels) {
        options.schedulerLevels =
            static_cast<std::uint8_t>(std::min(*arguments.schedulerLevels, MostSchedulerLevels));
    }
    options.bCustomScheduler = arguments.bCustomScheduler;
}

bool IsAutomatic(const TSolveArguments& arguments) {
    return arguments.heuristics.empty() || arguments.heuristics == "auto";
}

void SetHeuristicPasses(TEngineOptions& options, const TSolveArguments& arguments) {
    if (IsAutomatic(arguments)) {
        options.heuristics = THeuristicsFrom::Analysis;
    } else {
        options.heuristics =
            arguments.heuristics == "none" ? THeuristicsFrom::None : THeuristicsFrom::User;
    }
    options.bLetRelaxHeuristics = arguments.relax != "off";
    options.bStopRelaxOnFirstSolution =
        arguments.relax.empty() && options.bStopRelaxOnFirstSolution;
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
    TEngineOptions options;
    options.bQuickMode = arguments.bQuick;
    options.threads =
        static_cast<std::uint16_t>(std::min(ProcessorsOfMachine().physical, MostThreadsPerLevel));
    TakeOptionsOfProblem(options, problem);
    if (arguments.bAll) {
        WantAllKeys(options);
    }
    options.timeLimitMs = LimitMs(arguments.seconds);
    options.nodeLimit = arguments.nodes;
    SetThreads(options, arguments.threads);
    SetMemory(options, arguments.memory);
    SetScheduler(options, arguments);
    SetHeuristicPasses(options, arguments);
    options.bScout = !arguments.bNoScout;
    options.bLogMoves = !arguments.logFolder.empty();
    options.logFolder = arguments.logFolder;
    return options;
}

void SetUpJob(TSolveTask& task, const TChessProblem& problem, const TSolveArguments& arguments) {
    task.m_options = OptionsFor(problem, arguments);
    TakeHintsOfProblem(task, problem, false);
    if (task.m_options.heuristics == THeuristicsFrom::User) {
        task.m_givenHeuristics = ParseHeuristicList(arguments.heuristics);
    }
}

}  // namespace tarnwick
