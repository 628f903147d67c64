#include "cli/lint_command.h"

#include <algorithm>
#include <optional>

#include "base/chess_exception.h"
#include "platform/stop_signals.h"

#include "chess/board_stack.h"
#include "chess/checked_move.h"
#include "chess/move_text.h"
#include "chess/prepare_position.h"
#include "chess/start_position.h"
#include "cli/json_line.h"
#include "cli/problem_input.h"
#include "engine/heuristics/heuristic_list.h"

namespace tarnwick {
namespace {

/// The position for a task, or for looking only; prepared. Throws what is wrong with it.
TChessboard CheckedPosition(const TChessProblem& problem) {
    TChessboard board = *problem.m_pBoard;
    if (AsksForMate(problem)) {
        CheckStartPosition(board, 1, true, nullptr, nullptr);  // 1: White moves
    } else {
        PreparePosition(board, true);
    }
    board.m_shPlies = board.m_shRootPlies = 1;
    return board;
}

bool IsLegal(TMove move, const TChessboard& board) {
    try {
        TMove found;
        ParseCheckedMove(board, found, MoveToDisplayText(move, board));
        return found.SameAs(move);
    } catch (const ChessException&) {
        return false;
    }
}

/// What a reader of the file should know about the problem although it can be read.
std::vector<std::string> WarningsAbout(const TChessProblem& problem) {
    std::vector<std::string> warnings;
    if (AsksForMate(problem) && problem.m_shPlies >= MaxPlies) {
        warnings.push_back("a mate in " + std::to_string(MovesOfStipulation(problem)) +
                           " is too long to be solved: at most " + std::to_string(MaxPlies / 2));
    }
    if (problem.m_type != TProblemType::Position && !problem.m_lineBoards.empty()) {
        warnings.emplace_back(
            "the moves take the place of the stipulation: nothing will be solved");
    }
    try {
        THeuristicSet set;
        ApplyHeuristicSettings(set, problem);
    } catch (const ChessException& refused) {
        warnings.emplace_back(refused.what());
    }
    try {
        const TChessboard board = CheckedPosition(problem);
        for (const TMove move : problem.m_answers) {
            if (!IsLegal(move, board)) {
                warnings.push_back("the answer " + MoveToDisplayText(move, board) +
                                   " is no legal move");
            }
        }
    } catch (const ChessException& refused) {
        warnings.emplace_back(refused.what());
    }
    return warnings;
}

/// Remarks of the reader and warnings of our own together, by line.
std::vector<TInputRemark> FindingsIn(const TProblemInput& input) {
    std::vector<TInputRemark> findings = input.remarks;
    for (const TInputProblem& problem : input.problems) {
        const std::string start = "problem " + std::to_string(problem.pProblem->m_id) + ": ";
        for (const std::string& warning : WarningsAbout(*problem.pProblem)) {
            findings.push_back({problem.nLine, false, start + warning});
        }
    }
    std::ranges::stable_sort(findings, {}, &TInputRemark::nLine);
    return findings;
}

void Report(const std::string& name, const TInputRemark& finding, bool bJson, TConsole& console) {
    if (bJson) {
        console.out << CJsonLine()
                           .Add("file", name)
                           .Add("line", finding.nLine)
                           .Add("severity", finding.bFault ? "error" : "warning")
                           .Add("text", finding.text)
                           .Line();
        return;
    }
    const std::string kind =
        finding.bFault ? console.style.Bad("error: ") : console.style.Warning("warning: ");
    console.out << PlacedText(name, finding.nLine, kind + ShownText(finding.text)) << '\n';
}

/// What came to light, and of how many problems; errors of opening the file included.
struct TLintResult {
    std::size_t problems = 0;
    std::size_t errors = 0;
    std::size_t warnings = 0;
};

void LintFile(const std::string& path, bool bJson, TLintResult& result, TConsole& console) {
    std::string name = path == "-" ? "standard input" : path;
    std::vector<TInputRemark> findings;
    try {
        const TProblemInput input = ReadProblems(ReadTextInput(path));
        result.problems += input.problems.size();
        findings = FindingsIn(input);
    } catch (const ChessException& error) {
        findings.push_back({0, true, error.what()});
    }
    for (const TInputRemark& finding : findings) {
        Report(ShownText(name), finding, bJson, console);
        ++(finding.bFault ? result.errors : result.warnings);
    }
}

}  // namespace

TExitStatus RunLint(const TLintArguments& arguments, TConsole& console) {
    TLintResult result;
    for (const std::string& path : arguments.files) {
        if (StopRequested() || !console.out) {
            return TExitStatus::Stopped;
        }
        LintFile(path, arguments.bJson, result, console);
    }
    if (!arguments.bJson) {
        console.out << CountText(result.problems, "problem") << ", "
                    << CountText(result.errors, "error") << ", "
                    << CountText(result.warnings, "warning") << '\n';
    }
    return result.errors > 0 ? TExitStatus::Unreadable : TExitStatus::Success;
}

}  // namespace tarnwick
