#include "problems/exported_text.h"

#include "base/language.h"

#include "problems/export_texts.h"
#include "problems/problem_options.h"

namespace tarnwick {
namespace {

/// Also those that a .cp file is read with and never written with.
bool HasOptions(const TChessProblem& problem) {
    std::string written;
    AppendOptions(written, problem);
    TFlagWord<TProblemOption> bits = problem.m_shOptions;
    bits.Clear(TProblemOption::HasAnswers);
    return !written.empty() || bits.Raw() != 0 || problem.m_globRegMB != 0 ||
           problem.m_lichessLevels != 0 || !problem.m_heuristicSettings.empty();
}

}  // namespace

std::vector<std::string> LossesOfAnyExport(const TChessProblem& problem) {
    std::vector<std::string> lost;
    if (!problem.m_tags.empty()) {
        lost.emplace_back(UserText(LostTagsText));
    }
    if (HasOptions(problem)) {
        lost.emplace_back(UserText(LostOptionsText));
    }
    if (!problem.m_sortIndications.empty()) {
        lost.emplace_back(UserText(LostSortIndicationsText));
    }
    return lost;
}

void AddLoss(TExportedText& exported, const TChessProblem& problem,
             const std::vector<std::string>& parts) {
    if (parts.empty()) {
        return;
    }
    std::string what;
    for (const std::string& part : parts) {
        what += (what.empty() ? "" : ", ") + part;
    }
    exported.losses.push_back({.id = problem.m_id, .bLeftOut = false, .what = std::move(what)});
}

}  // namespace tarnwick
