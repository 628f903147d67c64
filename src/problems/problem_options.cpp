#include "problems/problem_options.h"

#include <algorithm>
#include <limits>

namespace tarnwick {
namespace {

constexpr int MaxInt = std::numeric_limits<int>::max();
constexpr int MaxByte = std::numeric_limits<std::uint8_t>::max();
constexpr int MaxWord = std::numeric_limits<std::uint16_t>::max();

constexpr std::uint16_t Bit(TProblemOption option) {
    return static_cast<std::uint16_t>(option);
}

// clang-format off
using enum TProblemOption;
constexpr TOptionKeyword Keywords[] = {
    {"NOMIRROR",                           TOptionValue::None,            Bit(NoMirror),            "NoMirror"},
    {"MIRRORONLY",                         TOptionValue::None,            Bit(MirrorOnly),          "MirrorOnly"},
    {"ALLSOLUTIONS",                       TOptionValue::None,            Bit(AllSolutions),        "AllSolutions"},
    {"STOPONDUAL",                         TOptionValue::None,            Bit(StopOnDual),          "StopOnDual"},
    {"STOPON3SOL",                         TOptionValue::None,            Bit(StopOn3Sol),          "StopOn3Sol"},
    {"USEMAINVARIANTASSORTINDICATIONS",    TOptionValue::None,            Bit(UseMainVariant),      "UseMainVariantAsSortIndications"},
    {"THREADS",                            TOptionValue::Threads,         0,                        "THREADS"},
    {"SCHEDULERLEVELS",                    TOptionValue::SchedulerLevels, 0,                        nullptr},
    {"LICHESSLEVELS",                      TOptionValue::LichessLevels,   0,                        nullptr},
    {"NOGLOBREG",                          TOptionValue::None,            Bit(NoGlobReg),           nullptr},
    {"GLOBREGMB",                          TOptionValue::GlobRegMB,       0,                        nullptr},
    {"GUICHECK",                           TOptionValue::GuiCheckCount,   Bit(GuiCheck),            "GUICHECK"},
    {"GUICHECKBESTDEFENCE",                TOptionValue::GuiCheckCount,   Bit(GuiCheckBestDefence), "GUICHECKBESTDEFENCE"},
    // Another name of GUICHECK, under which it is written.
    {"GUICHECKBESTDEFENCEANDAUX",          TOptionValue::GuiCheckCount,   Bit(GuiCheck),            nullptr},
    {"SAFEMODE",                           TOptionValue::None,            Bit(SafeMode),            "SAFEMODE"},
    {"REQUIRES",                           TOptionValue::Requires,        0,                        "Requires"},
    {"ONLYIFAVAIL",                        TOptionValue::Requires,        0,                        nullptr},
    {"ALLSOLUTIONSREQUIRES",               TOptionValue::AllSolutionsRequires, 0,                   nullptr},
    {"REQUIRESSYZYGY",                     TOptionValue::None,            Bit(RequiresSyzygy),      "RequiresSyzygy"},
    {"ALLSOLUTIONSREQUIRESSYZYGY",         TOptionValue::None,            Bit(AllSolutionsRequiresSyzygy), "AllSolutionsRequiresSyzygy"},
    {"STOPRELAXHEURISTICSONFIRSTSOLUTION", TOptionValue::StopRelaxHeuristics, 0,                    nullptr},
};
// clang-format on

/// "4" or "4^2": one word, as "^" belongs to identifiers.
void ReadThreads(TChessProblem& problem, CCpLexer& lexer) {
    const std::string_view token = lexer.NextIdentifier();
    const std::size_t sign = std::min(token.find('^'), token.size());
    const auto threads = NumberOfToken(lexer, token.substr(0, sign), 0, MaxByte);
    if (sign < token.size()) {
        problem.m_threadsAux =
            static_cast<std::uint8_t>(NumberOfToken(lexer, token.substr(sign + 1), 0, MaxByte));
    }
    problem.m_threads = static_cast<std::uint8_t>(threads);
}

/// Whatever is no positive number belongs to what follows and is left there.
void ReadGuiCheckCount(TChessProblem& problem, CCpLexer& lexer) {
    const std::size_t before = lexer.Position();
    const std::string_view token = lexer.NextToken(true, true);
    const int count = NumberOfTokenOrNone(lexer, token, MaxWord);
    if (count < 1) {
        lexer.SetPosition(before);
    }
    problem.m_shGuiCheckCount = static_cast<std::uint16_t>(std::max(count, 1));
}

/// Two lines of the table may share a bit and its value; only one of them has a written form.
void AppendOption(std::string& text, const TChessProblem& problem, const TOptionKeyword& keyword) {
    const std::string word = std::string(" ") + keyword.written;
    switch (keyword.value) {
        case TOptionValue::Threads:
            if (problem.m_threads < ThreadsNotGiven) {
                text += word + ' ' + std::to_string(problem.m_threads);
            }
            break;
        case TOptionValue::Requires:
            for (const std::string& positionType : problem.m_requires) {
                text += word;
                text += ' ';
                text += positionType;
            }
            break;
        default:
            if (!problem.m_shOptions.HasAny(keyword.bits)) {
                break;
            }
            text += word;
            if (keyword.value == TOptionValue::GuiCheckCount && problem.m_shGuiCheckCount > 1) {
                text += ' ' + std::to_string(problem.m_shGuiCheckCount);
            }
            break;
    }
}

}  // namespace

std::span<const TOptionKeyword> OptionKeywords() {
    return Keywords;
}

const TOptionKeyword* FindOptionKeyword(std::string_view word) {
    const auto* found = std::ranges::find_if(Keywords, [word](const TOptionKeyword& keyword) {
        return EqualsIgnoringCase(keyword.keyword, word);
    });
    return found == std::end(Keywords) ? nullptr : found;
}

void ReadOptionValue(TChessProblem& problem, const TOptionKeyword& keyword, CCpLexer& lexer) {
    problem.m_shOptions.SetRaw(
        static_cast<std::uint16_t>(problem.m_shOptions.Raw() | keyword.bits));
    switch (keyword.value) {
        case TOptionValue::None:
            break;
        case TOptionValue::Threads:
            ReadThreads(problem, lexer);
            break;
        case TOptionValue::SchedulerLevels:
            problem.m_schedulerLevels =
                static_cast<std::uint8_t>(NumberOfToken(lexer, lexer.NextIdentifier(), 0, MaxByte));
            break;
        case TOptionValue::LichessLevels:
            problem.m_lichessLevels = NumberOfToken(lexer, lexer.NextIdentifier(), 0, MaxInt);
            break;
        case TOptionValue::GlobRegMB:
            problem.m_globRegMB = NumberOfToken(lexer, lexer.NextIdentifier(), 0, MaxInt);
            break;
        case TOptionValue::GuiCheckCount:
            ReadGuiCheckCount(problem, lexer);
            break;
        case TOptionValue::Requires:
            problem.m_requires.emplace(lexer.NextIdentifier());
            break;
        case TOptionValue::AllSolutionsRequires:
            problem.m_allSolutionsRequires.emplace(lexer.NextIdentifier());
            break;
        case TOptionValue::StopRelaxHeuristics:
            problem.m_bStopRelaxHeuristicsOnFirstSolution = true;
            break;
    }
}

void AppendOptions(std::string& text, const TChessProblem& problem) {
    for (const TOptionKeyword& keyword : OptionKeywords()) {
        if (keyword.written != nullptr) {
            AppendOption(text, problem, keyword);
        }
    }
}

}  // namespace tarnwick
