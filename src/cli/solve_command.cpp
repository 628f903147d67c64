#include "cli/solve_command.h"

#include <algorithm>
#include <cmath>

#include "base/chess_exception.h"
#include "platform/clock.h"
#include "platform/stop_signals.h"

#include "cli/problem_input.h"
#include "cli/progress_line.h"
#include "cli/solve_report.h"

namespace tarnwick {
namespace {

TProblemInput ReadInput(const TSolveArguments& arguments) {
    return arguments.file.empty() ? ReadTypedProblem(arguments.fen, arguments.mate)
                                  : ReadProblems(ReadTextInput(arguments.file));
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
    options.memoryMiB = arguments.memoryMiB;
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

TSolveResult SolveDirectMate(const TInputProblem& input, const TEngineOptions& options,
                             CConsoleDialog& dialog) {
    const TChessboard& board = *input.pProblem->m_pBoard;
    const int moves = MovesOfStipulation(*input.pProblem);
    TSolveTask task;
    task.m_options = options;
    task.m_sortHints = HintsOfProblem(*input.pProblem);
    TSolveResult result;
    {
        const CSolveWatcher watcher(task, board, dialog,
                                    ProblemName(input) + ", #" + std::to_string(moves));
        result = StartSolving(task, board, moves);
    }
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
        solved.result = SolveDirectMate(input, options, dialog);
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

}  // namespace

TExitStatus RunSolve(const TSolveArguments& arguments, TConsole& console) {
    const CIdList ids = CIdList::Parse(arguments.ids);
    TProblemInput input = ReadInput(arguments);
    TellRemarks(input, console.dialog);
    TExitStatus status = input.HasFault() ? TExitStatus::Unreadable : TExitStatus::Success;
    if (!SelectProblems(input, ids, console.dialog) && !ids.IsEmpty()) {
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
