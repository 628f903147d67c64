#include "cli/analyze_command.h"

#include <utility>

#include "base/chess_exception.h"
#include "platform/stop_signals.h"

#include "chess/fen.h"
#include "cli/json_line.h"
#include "cli/problem_input.h"
#include "cli/solve_report.h"
#include "engine/heuristics/position_analysis.h"
#include "engine/jobs/analyze_problem.h"

namespace tarnwick {
namespace {

/// Names for programs: they never change.
constexpr std::pair<TPositionFlag, const char*> FlagNames[] = {
    {TPositionFlag::BareBlackKing, "bare-black-king"},
    {TPositionFlag::FreeKing, "free-king"},
    {TPositionFlag::FiguresToSpare, "figures-to-spare"},
    {TPositionFlag::BlackAhead, "black-ahead"},
    {TPositionFlag::OppositeBishops, "opposite-bishops"}};

struct TAnalyzed {
    TProblemAnalysis analysis;
    std::string refusal;  ///< Why there is no analysis; empty: there is one.
};

TAnalyzed Analyze(const TChessProblem& problem, bool bTrials) {
    TAnalyzed analyzed;
    if (const char* why = WhyNotForEngine(problem)) {
        analyzed.refusal = why;
        return analyzed;
    }
    TAnalyzeProblemOptions options;
    options.bTrials = bTrials;
    if (!problem.m_heuristicSettings.empty()) {
        options.adjust = [&problem](THeuristicSet& set) { ApplyHeuristicSettings(set, problem); };
    }
    try {
        analyzed.analysis = AnalyzeProblem(*problem.m_pBoard, MovesOfStipulation(problem), options);
    } catch (const ChessException& refused) {
        analyzed.refusal = refused.what();
    }
    return analyzed;
}

std::string AnalysisText(const TProblemAnalysis& analysis) {
    std::vector<std::string> kinds = PositionFlagTexts(analysis.flags);
    if (kinds.empty()) {
        kinds.emplace_back("nothing special");
    }
    std::string text = "Position: " + Joined(kinds, "; ") + '\n';
    text += std::string("Safe mode: ") +
            (analysis.bSafeModeForced ? "forced, --quick is ignored" : "as you choose") + '\n';
    if (!analysis.heuristics.empty()) {
        text += "Heuristics: " + analysis.heuristics + '\n';
    }
    text += analysis.ladder + '\n';
    if (!analysis.bAnalysedToSolve && !analysis.heuristics.empty()) {
        text +=
            "The problem is short: solve does not ask for this choice and takes only what the\n"
            "problem or --heuristics names\n";
    }
    return text;
}

std::string AnalysisJson(const TChessProblem& problem, const TAnalyzed& analyzed) {
    const TProblemAnalysis& analysis = analyzed.analysis;
    std::vector<std::string> flags;
    for (const auto& [flag, name] : FlagNames) {
        if ((analysis.flags & Bit(flag)) != 0) {
            flags.emplace_back(name);
        }
    }
    std::vector<CJsonLine> passes;
    for (const TAnalyzedPass& pass : analysis.passes) {
        passes.push_back(CJsonLine()
                             .Add("name", pass.name)
                             .Add("heuristics", pass.heuristics)
                             .Add("time_dependent", pass.bTimeDependent));
    }
    return CJsonLine()
        .Add("id", problem.m_id)
        .Add("fen", WriteFen(*problem.m_pBoard, true))
        .Add("mate", MovesOfStipulation(problem))
        .Add("status", analyzed.refusal.empty() ? "analyzed" : "refused")
        .Add("flags", flags)
        .Add("safe_mode_forced", analysis.bSafeModeForced)
        .Add("heuristics", analysis.heuristics)
        .Add("used_by_solve", analysis.bAnalysedToSolve)
        .Add("passes", passes)
        .Add("message", analyzed.refusal)
        .Line();
}

/// False if the problem was refused.
bool AnalyzeAndReport(const TInputProblem& input, const TAnalyzeArguments& arguments,
                      TConsole& console) {
    const TChessProblem& problem = *input.pProblem;
    const TAnalyzed analyzed = Analyze(problem, !arguments.bNoTrials);
    if (arguments.bJson) {
        console.out << AnalysisJson(problem, analyzed) << std::flush;
        return analyzed.refusal.empty();
    }
    console.out << ProblemHeadText(input, console.style, console.boardStyle)
                << (analyzed.refusal.empty()
                        ? AnalysisText(analyzed.analysis)
                        : console.style.Bad("Refused: ") + ShownText(analyzed.refusal) + '\n')
                << '\n'
                << std::flush;
    return analyzed.refusal.empty();
}

}  // namespace

TExitStatus RunAnalyze(const TAnalyzeArguments& arguments, TConsole& console) {
    const CIdList ids = CIdList::Parse(arguments.ids);
    TProblemInput input = ReadFileOrFen(arguments.file, arguments.fen, arguments.mate);
    TellRemarks(input, console.dialog);
    TExitStatus status = input.HasFault() ? TExitStatus::Unreadable : TExitStatus::Success;
    if (!SelectProblems(input, ids, console.dialog) && !ids.IsEmpty()) {
        return WorseOf(status, TExitStatus::WrongUsage);
    }
    for (const TInputProblem& problem : input.problems) {
        if (StopRequested() || !console.out) {
            return WorseOf(status, TExitStatus::Stopped);
        }
        if (!AnalyzeAndReport(problem, arguments, console)) {
            status = WorseOf(status, TExitStatus::Unreadable);
        }
    }
    return status;
}

}  // namespace tarnwick
