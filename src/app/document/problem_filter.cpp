#include "app/document/problem_filter.h"

#include <algorithm>
#include <sstream>

#include "app/document/text_folding.h"

namespace tarnwick {
namespace {

std::vector<std::string> FoldedWords(std::wstring_view words) {
    std::istringstream stream(FoldedText(words));
    std::vector<std::string> folded;
    for (std::string word; stream >> word;) {
        folded.push_back(word);
    }
    return folded;
}

}  // namespace

std::vector<int> CProblemFilter::Matching(const std::vector<TChessProblem*>& problems,
                                          std::wstring_view words) {
    const std::vector<std::string> wanted = FoldedWords(words);
    m_foldedTexts.reserve(problems.size());
    std::vector<int> ids;
    for (const TChessProblem* pProblem : problems) {
        const auto isInProblem = [&](const std::string& word) {
            return FoldedTextOf(*pProblem).find(word) != std::string::npos;
        };
        if (std::ranges::all_of(wanted, isInProblem)) {
            ids.push_back(pProblem->m_id);
        }
    }
    return ids;
}

const std::string& CProblemFilter::FoldedTextOf(const TChessProblem& problem) {
    const auto [place, bNew] = m_foldedTexts.try_emplace(problem.m_id);
    if (bNew) {
        std::wstring text = std::to_wstring(problem.m_id) + L'\n' + problem.m_description;
        for (const std::wstring& tag : problem.m_tags) {
            text += L'\n' + tag;
        }
        place->second = FoldedText(text);
    }
    return place->second;
}

}  // namespace tarnwick
