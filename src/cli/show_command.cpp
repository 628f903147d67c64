#include "cli/show_command.h"

#include "base/encoding.h"
#include "platform/stop_signals.h"

#include "chess/move_text.h"
#include "cli/problem_input.h"
#include "cli/solve_report.h"

namespace tarnwick {
namespace {

/// The moves of the problem's line of play: "1.Qa1-a8 Kb2-c3 2.Qa8-h8".
std::string LineText(const TChessProblem& problem) {
    std::vector<std::string> moves;
    moves.reserve(problem.m_lineBoards.size());
    for (std::size_t i = 0; i < problem.m_lineBoards.size(); ++i) {
        const TMove move = problem.m_lineBoards[i]->m_lastMove;
        const std::string number = i % 2 == 0 ? std::to_string(i / 2 + 1) + '.' : "";
        moves.push_back(number + MoveToDisplayText(move, BoardBeforeMove(problem, i)));
    }
    return Joined(moves, " ");
}

std::string AnswerText(const TChessProblem& problem) {
    std::vector<std::string> moves;
    moves.reserve(problem.m_answers.size());
    for (const TMove move : problem.m_answers) {
        moves.push_back(MoveToDisplayText(move, *problem.m_pBoard));
    }
    return Joined(moves, ", ");
}

std::string ProblemText(const TInputProblem& input, const CTextStyle& style,
                        TBoardStyle boardStyle) {
    const TChessProblem& problem = *input.pProblem;
    std::string text = ProblemHeadText(input, style, boardStyle);
    if (!problem.m_lineBoards.empty()) {
        text += "Moves: " + LineText(problem) + '\n';
    }
    if (problem.m_shOptions.Has(TProblemOption::HasAnswers) && !problem.m_answers.empty()) {
        text += "Answer: " + style.Bold(AnswerText(problem)) + '\n';
    }
    for (const auto& [key, variant] : problem.m_variants) {
        text += ShownText(ToUtf8(variant.ToText())) + '\n';
    }
    return text;
}

}  // namespace

TExitStatus RunShow(const TShowArguments& arguments, TConsole& console) {
    const CIdList ids = CIdList::Parse(arguments.ids);
    TProblemInput input = ReadFileOrFen(arguments.file, arguments.fen, 0);
    TellRemarks(input, console.dialog);
    const TExitStatus status = input.HasFault() ? TExitStatus::Unreadable : TExitStatus::Success;
    if (!SelectProblems(input, ids, console.dialog) && !ids.IsEmpty()) {
        return WorseOf(status, TExitStatus::WrongUsage);
    }
    const char* separator = "";
    for (const TInputProblem& problem : input.problems) {
        if (StopRequested() || !console.out) {
            return TExitStatus::Stopped;
        }
        console.out << separator
                    << ProblemText(problem, console.style,
                                   arguments.boardStyle.value_or(console.boardStyle));
        separator = "\n";
    }
    return status;
}

}  // namespace tarnwick
