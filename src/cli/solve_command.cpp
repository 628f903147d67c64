#include "cli/solve_command.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>
#include <string_view>

#include "base/chess_exception.h"
#include "platform/clock.h"
#include "platform/memory_info.h"
#include "platform/stop_signals.h"

#include "cli/make_folder.h"
#include "cli/problem_input.h"
#include "cli/progress_line.h"
#include "cli/register_file.h"
#include "cli/solve_report.h"
#include "cli/solved_folder.h"
#include "engine/engine_texts.h"
#include "engine/jobs/job_memory.h"
#include "engine/threads/multithreading_level.h"

namespace tarnwick {
namespace {

TProblemInput ReadInput(const TSolveArguments& arguments) {
    return arguments.file.empty() ? ReadTypedProblem(arguments.fen, arguments.mate)
                                  : ReadProblems(ReadTextInput(arguments.file));
}

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

/// The limit in milliseconds, at least one: a short limit is not no limit.
std::uint64_t LimitMs(double seconds) {
    constexpr double MostSeconds = 1e9;  // thirty years, in range of all types on the way
    return static_cast<std::uint64_t>(std::ceil(std::min(seconds, MostSeconds) * 1000));
}

/// The problem's own options, unless the user asks for all keys.
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
    options.bScout = !arguments.bNoScout;
    options.bLogMoves = !arguments.logFolder.empty();
    options.logFolder = arguments.logFolder;
    return options;
}

TSolveResult Refused(const char* message) {
    TSolveResult result;
    result.message = message;
    return result;
}

std::string StopMessage(const TSolveTask& task, std::uint64_t elapsedMs) {
    if (StopRequested()) {
        return "stopped by the user";
    }
    const std::uint64_t timeLimitMs = task.m_options.timeLimitMs;
    const bool bTime = timeLimitMs > 0 && elapsedMs >= timeLimitMs;
    return bTime ? "time limit reached" : "node limit reached";
}

/// One problem of this command with the files that belong to it.
TSolveResult SolveDirectMate(const TInputProblem& input, const TSolveArguments& arguments,
                             const TEngineOptions& options, CConsoleDialog& dialog, bool* pbSaved) {
    const TChessboard& board = *input.pProblem->m_pBoard;
    const int moves = MovesOfStipulation(*input.pProblem);
    TSolveTask task;
    task.m_options = options;
    task.m_sortHints = HintsOfProblem(*input.pProblem);
    task.m_problemNumber = static_cast<std::uint32_t>(input.pProblem->m_id);
    task.m_callbacks.onError = [&dialog](const std::string& title, const std::string& text) {
        dialog.Tell(title + ": " + text);
    };
    CSolvedFolder solved(arguments.solvedFolder, board, task, dialog);
    CRegisterFile file(arguments, moves, task, dialog);
    TSolveResult result;
    {
        const CSolveWatcher watcher(task, board, dialog,
                                    ProblemName(input) + ", #" + std::to_string(moves));
        result = StartSolving(task, board, moves);
    }
    const bool bRegisterSaved = file.SaveAtEnd();
    const bool bAnswerSaved = solved.SaveAtEnd();
    *pbSaved = bRegisterSaved && bAnswerSaved;
    if (result.status == TSolveStatus::Stopped && result.message.empty()) {
        result.message = StopMessage(task, result.elapsedMs);
    }
    return result;
}

TSolvedProblem SolveProblem(const TInputProblem& input, const TSolveArguments& arguments,
                            CConsoleDialog& dialog) {
    const TChessProblem& problem = *input.pProblem;
    const TEngineOptions options = OptionsFor(problem, arguments);
    TSolvedProblem solved;
    solved.pInput = &input;
    solved.bAll = options.bAllSolutions;
    if (AsksForMate(problem)) {
        solved.result = SolveDirectMate(input, arguments, options, dialog, &solved.bSaved);
    } else if (problem.m_type == TProblemType::SelfMate) {
        solved.result = Refused("self-mates are not solved");
    } else {
        solved.result = Refused("a position without a stipulation asks for nothing");
    }
    if (problem.m_shOptions.Has(TProblemOption::HasAnswers)) {
        solved.answers = CheckAnswers(problem.m_answers, solved.result, solved.bAll);
    }
    return solved;
}

/// The picture comes before the search, so that the user has something to look at meanwhile.
TSolvedProblem SolveAndReport(const TInputProblem& input, const TSolveArguments& arguments,
                              TConsole& console) {
    const bool bPicture = !arguments.bJson && !arguments.bBrief;
    if (bPicture) {
        console.out << ProblemHeadText(input, console.style, console.boardStyle) << std::flush;
    }
    TSolvedProblem solved = SolveProblem(input, arguments, console.dialog);
    if (arguments.bJson) {
        console.out << OutcomeJson(solved);
    } else if (arguments.bBrief) {
        console.out << BriefText(solved, console.style) << '\n';
    } else {
        console.out << OutcomeText(solved, console.style) << '\n';
    }
    console.out << std::flush;
    return solved;
}

void TellUntried(std::size_t count, CConsoleDialog& dialog) {
    if (count > 0) {
        dialog.Tell("Stopped: " + CountText(count, "problem") + " not tried");
    }
}

/// A register belongs to one problem.
bool IsRegisterOfManyProblems(const TSolveArguments& arguments, const TProblemInput& input,
                              CConsoleDialog& dialog) {
    if (arguments.registerFile.empty() || input.problems.size() <= 1) {
        return false;
    }
    dialog.Tell("--register keeps what is known of one problem: choose it with --id");
    return true;
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

TExitStatus RunSolve(const TSolveArguments& arguments, TConsole& console) {
    const CIdList ids = CIdList::Parse(arguments.ids);
    if (!arguments.logFolder.empty()) {
        MakeFolder(arguments.logFolder);
    }
    TProblemInput input = ReadInput(arguments);
    TellRemarks(input, console.dialog);
    TExitStatus status = input.HasFault() ? TExitStatus::Unreadable : TExitStatus::Success;
    if (!SelectProblems(input, ids, console.dialog) && !ids.IsEmpty()) {
        return WorseOf(status, TExitStatus::WrongUsage);
    }
    if (IsRegisterOfManyProblems(arguments, input, console.dialog)) {
        return WorseOf(status, TExitStatus::WrongUsage);
    }
    if (input.problems.empty() && !input.HasFault()) {
        console.dialog.Tell(input.name + ": nothing to solve");
    }
    CSolveSummary summary;
    const std::int64_t startMs = NowMs();
    for (const TInputProblem& problem : input.problems) {
        if (StopRequested() || !console.out) {
            break;
        }
        summary.Add(SolveAndReport(problem, arguments, console));
    }
    TellUntried(input.problems.size() - summary.Count(), console.dialog);
    if (!arguments.bJson && input.problems.size() > 1) {
        const auto elapsedMs = static_cast<std::uint64_t>(NowMs() - startMs);
        console.out << summary.Text(console.style, elapsedMs) << std::flush;
    }
    if (summary.Count() < input.problems.size()) {
        status = WorseOf(status, TExitStatus::Stopped);
    }
    return WorseOf(status, summary.Status());
}

}  // namespace tarnwick
