#include "app/document/problem_state.h"

#include <algorithm>
#include <iterator>
#include <tuple>

#include "chess/board_stack.h"
#include "chess/prepare_position.h"

namespace tarnwick {
namespace {

bool AreSameMoves(const std::vector<TMove>& a, const std::vector<TMove>& b) {
    return std::ranges::equal(a, b, [](TMove x, TMove y) { return x.SameAs(y); });
}

auto PlainMembers(const TProblemState& state) {
    return std::tie(state.type, state.shPlies, state.fields, state.originalFields, state.shOptions,
                    state.threads, state.heuristicSettings, state.description, state.tags,
                    state.sortIndications);
}

/// By their texts: the main variant's name is shown in the user's language, and choosing another
/// language is no edit.
bool AreSameVariants(const TVariantMap& a, const TVariantMap& b) {
    return std::ranges::equal(a, b,
                              [](const auto& x, const auto& y) { return x.first == y.first; });
}

void SetFields(TChessboard& board, const std::array<TFigureCode, FieldCount>& fields) {
    std::ranges::copy(fields, board.m_fields);
    PreparePositionNoThrow(board, true);  // men that make no position are kept as they are
}

}  // namespace

bool TProblemState::operator==(const TProblemState& other) const {
    return PlainMembers(*this) == PlainMembers(other) &&
           AreSameVariants(variants, other.variants) && AreSameMoves(line, other.line) &&
           AreSameMoves(answers, other.answers) && AreSameMoves(expectedSort, other.expectedSort);
}

TProblemState StateOf(const TChessProblem& problem) {
    TProblemState state;
    state.type = problem.m_type;
    state.shPlies = problem.m_shPlies;
    std::ranges::copy(problem.m_pBoard->m_fields, state.fields.begin());
    std::ranges::copy(problem.m_originalBoard.m_fields, state.originalFields.begin());
    for (const auto& pBoard : problem.m_lineBoards) {
        state.line.push_back(pBoard->m_lastMove);
    }
    state.answers = problem.m_answers;
    state.expectedSort = problem.m_expectedSortWhiteMoves;
    state.shOptions = problem.m_shOptions.Raw();
    state.threads = problem.m_threads;
    state.heuristicSettings = problem.m_heuristicSettings;
    state.description = problem.m_description;
    state.tags = problem.m_tags;
    state.variants = problem.m_variants;
    state.sortIndications = problem.m_sortIndications;
    return state;
}

void TranslateMainVariant(TChessProblem& problem) {
    for (auto& [text, variant] : problem.m_variants) {
        if (IsMainVariantName(variant.m_name)) {
            variant.m_name = MainVariantName();
        }
    }
}

void RestoreState(TChessProblem& problem, const TProblemState& state) {
    ClearLine(problem);
    problem.m_type = state.type;
    SetPlies(problem, state.shPlies);
    problem.m_originalBoard.m_shPlies = problem.m_originalBoard.m_shRootPlies = state.shPlies;
    SetFields(*problem.m_pBoard, state.fields);
    SetFields(problem.m_originalBoard, state.originalFields);
    if (!state.line.empty()) {
        TBoardStack stack;
        for (const TMove move : state.line) {
            PlayOnLine(problem, move, stack);
        }
    }
    problem.m_answers = state.answers;
    problem.m_expectedSortWhiteMoves = state.expectedSort;
    problem.m_shOptions.SetRaw(state.shOptions);
    problem.m_threads = state.threads;
    problem.m_heuristicSettings = state.heuristicSettings;
    problem.m_description = state.description;
    problem.m_tags = state.tags;
    problem.m_variants = state.variants;
    TranslateMainVariant(problem);
    problem.m_sortIndications = state.sortIndications;
}

}  // namespace tarnwick
