#include "cli/convert_command.h"

#include <algorithm>
#include <filesystem>
#include <map>
#include <optional>
#include <set>
#include <utility>
#include <vector>

#include "cli/cp_output.h"
#include "cli/problem_input.h"
#include "cli/text_output.h"
#include "problems/cp_lexer.h"
#include "problems/epd_writer.h"
#include "problems/pgn_writer.h"

namespace tarnwick {
namespace {

enum class TOutputForm {
    Cp,
    Epd,
    Pgn
};

std::optional<TOutputForm> FormNamed(std::string_view name) {
    constexpr std::pair<std::string_view, TOutputForm> Names[] = {{"cp", TOutputForm::Cp},
                                                                  {"cpx", TOutputForm::Cp},
                                                                  {"epd", TOutputForm::Epd},
                                                                  {"pgn", TOutputForm::Pgn}};
    for (const auto& [known, form] : Names) {
        if (EqualsIgnoringCase(name, known)) {
            return form;
        }
    }
    return std::nullopt;
}

std::optional<TOutputForm> FormWanted(const TConvertArguments& arguments) {
    if (!arguments.to.empty()) {
        return FormNamed(arguments.to);
    }
    const std::string ending = std::filesystem::path(arguments.out).extension().string();
    return FormNamed(std::string_view(ending).substr(ending.empty() ? 0 : 1));
}

int LineOf(const TProblemInput& input, int id) {
    const auto found = std::ranges::find_if(
        input.problems, [id](const TInputProblem& one) { return one.pProblem->m_id == id; });
    return found == input.problems.end() ? 0 : found->nLine;
}

/// A loss that many problems share is told once: in a large file nobody reads a line for each.
bool IsShared(const TExportLoss& loss, const std::map<std::string, int>& counts) {
    constexpr int FewProblems = 3;
    return counts.at(loss.what) > FewProblems;
}

std::string SharedLossText(const std::string& name, const TExportLoss& loss, int count) {
    const std::string problems = name + ": " + std::to_string(count) + " problems, from number " +
                                 std::to_string(loss.id) + " on, ";
    return problems + (loss.bLeftOut ? "are left out: " : "lose: ") + loss.what;
}

/// Tells the losses; true if a problem was left out.
bool TellLosses(const TExportedText& exported, const TProblemInput& input, CConsoleDialog& dialog) {
    std::map<std::string, int> counts;
    for (const TExportLoss& loss : exported.losses) {
        ++counts[loss.what];
    }
    std::set<std::string> told;
    for (const TExportLoss& loss : exported.losses) {
        if (IsShared(loss, counts)) {
            if (told.insert(loss.what).second) {
                dialog.Tell(SharedLossText(input.name, loss, counts[loss.what]));
            }
            continue;
        }
        const std::string verb = loss.bLeftOut ? " is left out: " : " loses: ";
        dialog.Tell(PlacedText(input.name, LineOf(input, loss.id),
                               "problem " + std::to_string(loss.id) + verb + loss.what));
    }
    return std::ranges::any_of(exported.losses, &TExportLoss::bLeftOut);
}

TExitStatus WriteExported(const TExportedText& exported, const TProblemInput& input,
                          const std::string& target, TConsole& console) {
    const TExitStatus status = TellLosses(exported, input, console.dialog) ? TExitStatus::Unreadable
                                                                           : TExitStatus::Success;
    if (exported.text.empty()) {
        console.dialog.Tell("Nothing was written: no problem is left.");
        return TExitStatus::Unreadable;
    }
    return WorseOf(status, WriteOutput(exported.text, target, console));
}

TExitStatus WriteInForm(TOutputForm form, const TTextInput& text, TProblemInput& input,
                        const std::string& target, TConsole& console) {
    if (form == TOutputForm::Cp) {
        TellCpLosses(text, input, console.dialog);
        return WriteOutput(TakeCpText(input), target, console);
    }
    std::vector<const TChessProblem*> problems;
    for (const TInputProblem& problem : input.problems) {
        problems.push_back(problem.pProblem.get());
    }
    const TExportedText exported =
        form == TOutputForm::Epd ? EpdOfProblems(problems) : PgnOfProblems(problems);
    return WriteExported(exported, input, target, console);
}

}  // namespace

TExitStatus RunConvert(const TConvertArguments& arguments, TConsole& console) {
    const std::optional<TOutputForm> form = FormWanted(arguments);
    if (!form) {
        console.dialog.Tell(
            "Say which form to write: a name that ends in .cp, .epd or .pgn, or --to cp, --to epd "
            "or --to pgn. Run with --help for more information.");
        return TExitStatus::WrongUsage;
    }
    const CIdList ids = CIdList::Parse(arguments.ids);
    const TTextInput text = ReadTextInput(arguments.in);
    TProblemInput input = ReadProblems(text);
    TellRemarks(input, console.dialog);
    if (input.HasFault()) {
        console.dialog.Tell("Nothing was written. Mend the file first.");
        return TExitStatus::Unreadable;
    }
    if (!SelectProblems(input, ids, console.dialog) && !ids.IsEmpty()) {
        return TExitStatus::WrongUsage;
    }
    TellExchangedColours(input, console.dialog);
    TellLostOperations(input, console.dialog);
    return WriteInForm(*form, text, input, arguments.out, console);
}

}  // namespace tarnwick
