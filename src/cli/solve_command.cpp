#include "cli/solve_command.h"

#include "platform/clock.h"
#include "platform/stop_signals.h"

#include "cli/make_folder.h"
#include "cli/problem_input.h"
#include "cli/progress_line.h"
#include "cli/register_file.h"
#include "cli/solve_options.h"
#include "cli/solve_report.h"
#include "cli/solved_folder.h"
#include "tables/register/global_register_set.h"

namespace tarnwick {
namespace {

/// Shared by all problems of the command; null for none.
using TTables = std::shared_ptr<TGlobalRegisterSet>;

/// A command runs for its problems alone, so tables may come into memory.
TTables OpenTables(const TSolveArguments& arguments, CConsoleDialog& dialog) {
    if (arguments.dataFolder.empty()) {
        return nullptr;
    }
    TTableOptions options;
    options.maxMemRatioForPrecalculatedData = arguments.dataPercent;
    options.bGlobalRegisterForceDiskAccess = false;
    options.programFolder = arguments.dataFolder;
    return std::make_shared<TGlobalRegisterSet>(options, &dialog);
}

std::string StopMessage(const TSolveTask& task, std::uint64_t elapsedMs) {
    if (StopRequested()) {
        return "stopped by the user";
    }
    if (!task.m_bLimitReached) {
        return "stopped";
    }
    const std::uint64_t timeLimitMs = task.m_options.timeLimitMs;
    const bool bTime = timeLimitMs > 0 && elapsedMs >= timeLimitMs;
    return bTime ? "time limit reached" : "node limit reached";
}

/// Nothing was found, and what could have proved that there is nothing was not wanted.
std::string OpenMessage(const TEngineOptions& options) {
    const std::string relaxation =
        options.bLetRelaxHeuristics ? "" : ", and weaker heuristics by --relax";
    return "the pass that could prove that there is no mate is switched off by --pass2" +
           relaxation;
}

/// What the answer alone does not tell; empty when it tells all.
std::string RemarkOn(const TSolveResult& result, const TSolveTask& task) {
    switch (result.status) {
        case TSolveStatus::Stopped:
            return StopMessage(task, result.elapsedMs);
        case TSolveStatus::Open:
            return OpenMessage(task.m_options);
        case TSolveStatus::Mate:
            return task.m_options.bAllSolutions && !result.bComplete
                       ? "the pass that could find further keys is switched off by --pass2"
                       : "";
        default:
            return {};
    }
}

/// One problem of this command with the files that belong to it.
TSolveResult SolveDirectMate(const TInputProblem& input, const TSolveArguments& arguments,
                             const TTables& tables, CConsoleDialog& dialog, bool* pbSaved) {
    const TChessboard& board = *input.pProblem->m_pBoard;
    const int moves = MovesOfStipulation(*input.pProblem);
    TSolveTask task;
    SetUpJob(task, *input.pProblem, arguments);
    task.m_pTables = tables;
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
    if (result.message.empty()) {
        result.message = RemarkOn(result, task);
    }
    return result;
}

TSolvedProblem SolveProblem(const TInputProblem& input, const TSolveArguments& arguments,
                            const TTables& tables, CConsoleDialog& dialog) {
    const TChessProblem& problem = *input.pProblem;
    TSolvedProblem solved;
    solved.pInput = &input;
    solved.bAll = OptionsFor(problem, arguments).bAllSolutions;
    if (const char* why = WhyNotForEngine(problem)) {
        solved.result.message = why;
    } else {
        solved.result = SolveDirectMate(input, arguments, tables, dialog, &solved.bSaved);
    }
    if (problem.m_shOptions.Has(TProblemOption::HasAnswers)) {
        solved.answers = CheckAnswers(problem.m_answers, solved.result, solved.bAll);
    }
    return solved;
}

/// The picture comes before the search, so that the user has something to look at meanwhile.
TSolvedProblem SolveAndReport(const TInputProblem& input, const TSolveArguments& arguments,
                              const TTables& tables, TConsole& console) {
    const bool bPicture = !arguments.bJson && !arguments.bBrief;
    if (bPicture) {
        console.out << ProblemHeadText(input, console.style, console.boardStyle) << std::flush;
    }
    TSolvedProblem solved = SolveProblem(input, arguments, tables, console.dialog);
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

TExitStatus RunSolve(const TSolveArguments& arguments, TConsole& console) {
    const CIdList ids = CIdList::Parse(arguments.ids);
    if (!arguments.logFolder.empty()) {
        MakeFolder(arguments.logFolder);
    }
    TProblemInput input = ReadFileOrFen(arguments.file, arguments.fen, arguments.mate);
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
    const TTables tables = OpenTables(arguments, console.dialog);
    CSolveSummary summary;
    const std::int64_t startMs = NowMs();
    for (const TInputProblem& problem : input.problems) {
        if (StopRequested() || !console.out) {
            break;
        }
        summary.Add(SolveAndReport(problem, arguments, tables, console));
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
