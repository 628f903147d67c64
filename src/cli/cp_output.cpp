#include "cli/cp_output.h"

#include <algorithm>

#include "chess/trimmed_text.h"
#include "cli/text_style.h"
#include "problems/cp_writer.h"
#include "problems/problem_list.h"

namespace tarnwick {
namespace {

/// The settings of the problem that the written form has no words for, as a file spells them.
std::vector<std::string> LostSettings(const TChessProblem& problem) {
    const struct {
        bool bGiven;
        const char* name;
    } settings[] = {
        {problem.m_threadsAux != ThreadsNotGiven, "the second number of THREADS"},
        {problem.m_schedulerLevels != 255, "SCHEDULERLEVELS"},
        {problem.m_lichessLevels != 0, "LICHESSLEVELS"},
        {problem.m_shOptions.Has(TProblemOption::NoGlobReg), "NOGLOBREG"},
        {problem.m_globRegMB != 0, "GLOBREGMB"},
        {!problem.m_allSolutionsRequires.empty(), "ALLSOLUTIONSREQUIRES"},
        {problem.m_bStopRelaxHeuristicsOnFirstSolution, "STOPRELAXHEURISTICSONFIRSTSOLUTION"},
        {!problem.m_heuristicSettings.empty(), "settings of heuristics"},
        {problem.m_shOptions.Has(TProblemOption::HasExpectedSort), "EXPECTEDSORTWHITEMOVES"},
    };
    std::vector<std::string> lost;
    for (const auto& setting : settings) {
        if (setting.bGiven) {
            lost.emplace_back(setting.name);
        }
    }
    return lost;
}

/// Comments that fill lines of their own; who ends a line with one will hardly miss it.
bool HasComments(std::string_view text) {
    while (!text.empty()) {
        const std::string_view line = Trimmed(text.substr(0, text.find('\n')));
        text.remove_prefix(std::min(text.find('\n'), text.size() - 1) + 1);
        constexpr std::string_view SignsOfSpecialLines = "!#@";
        const bool bSpecial =
            line.size() > 2 && SignsOfSpecialLines.find(line[2]) != std::string_view::npos;
        if (line.starts_with("/*") || (line.starts_with("//") && !bSpecial)) {
            return true;
        }
    }
    return false;
}

bool HasLineWithoutForm(const TChessProblem& problem) {
    return problem.m_type != TProblemType::Position && !problem.m_lineBoards.empty();
}

}  // namespace

void TellCpLosses(const TTextInput& text, const TProblemInput& input, CConsoleDialog& dialog) {
    for (const TInputProblem& problem : input.problems) {
        std::vector<std::string> lost = LostSettings(*problem.pProblem);
        if (HasLineWithoutForm(*problem.pProblem)) {
            lost.emplace_back("the moves");
        }
        if (!lost.empty()) {
            dialog.Tell(PlacedText(input.name, problem.nLine,
                                   "problem " + std::to_string(problem.pProblem->m_id) +
                                       " loses what has no written form: " + Joined(lost, ", ")));
        }
    }
    if (text.form == TInputForm::ProblemFile && HasComments(text.text)) {
        dialog.Tell(input.name + ": comments are not kept");
    }
}

std::string TakeCpText(TProblemInput& input) {
    TProblemList list;
    for (TInputProblem& problem : input.problems) {
        list.Insert(std::move(problem.pProblem));
    }
    return ProblemListToText(list);
}

}  // namespace tarnwick
