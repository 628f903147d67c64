#include "app/setup/setup_result.h"

#include <algorithm>
#include <utility>

#include "base/filled_text.h"

#include "app/document/played_line.h"
#include "app/document/problem_state.h"
#include "app/setup/setup_texts.h"
#include "chess/board_stack.h"
#include "chess/castling.h"

namespace tarnwick {
namespace {

bool HasSameMen(const TChessProblem& problem, const TNewPosition& position) {
    return std::ranges::equal(position.fields, problem.m_pBoard->m_fields);
}

std::uint16_t NewPlies(const TChessProblem& problem, const TNewPosition& position) {
    return problem.m_type == TProblemType::Position
               ? problem.m_shPlies
               : PliesOfStipulation(problem.m_type, position.nMoves);
}

/// Without a limit to the moves: a variant may show more than the stipulation asks for.
bool CanBePlayed(const TVariant& variant, const TSetupFields& fields) {
    TChessProblem start;
    start.m_type = TProblemType::Position;
    SetPlies(start, PliesOfPosition);
    std::ranges::copy(fields, start.m_pBoard->m_fields);
    CPlayedLine line;
    line.Start(start);
    return std::ranges::all_of(variant.m_entries, [&](const TVariantEntry& entry) {
        return line.Play(entry.m_move) == TMoveRefusal::None;
    });
}

/// The variants that stay.
TVariantMap PlayableVariants(const TChessProblem& problem, const TNewPosition& position) {
    TVariantMap playable = problem.m_variants;
    if (!HasSameMen(problem, position)) {
        std::erase_if(playable, [&](const auto& entry) {
            return !CanBePlayed(entry.second, position.fields);
        });
    }
    return playable;
}

void ClearOption(TProblemState& state, TProblemOption option) {
    state.shOptions &= static_cast<std::uint16_t>(~static_cast<unsigned>(option));
}

void ForgetKeys(TProblemState& state) {
    state.answers.clear();
    state.expectedSort.clear();
    ClearOption(state, TProblemOption::HasAnswers);
    ClearOption(state, TProblemOption::HasExpectedSort);
    ClearOption(state, TProblemOption::ExpectedSortOnly);
}

std::string CastlingsOf(const TSetupFields& fields, TCastling kingSide, TCastling queenSide) {
    const auto isHome = [&](TCastling castling) {
        const TCastlingFields& home = FieldsOf(castling);
        return fields[home.kingFrom] == home.king && fields[home.rookFrom] == home.rook;
    };
    std::string castlings = isHome(kingSide) ? "0-0" : "";
    if (isHome(queenSide)) {
        castlings += castlings.empty() ? "0-0-0" : " 0-0-0";
    }
    return castlings;
}

}  // namespace

TSetupCost CostOf(const TChessProblem& problem, const TNewPosition& position) {
    const std::size_t kept = PlayableVariants(problem, position).size();
    const bool bSame =
        HasSameMen(problem, position) && NewPlies(problem, position) == problem.m_shPlies;
    return {.variants = static_cast<int>(problem.m_variants.size() - kept),
            .bKeys = !bSame && !problem.m_answers.empty()};
}

void SetPosition(TChessProblem& problem, const TNewPosition& position) {
    const std::uint16_t shPlies = NewPlies(problem, position);
    if (HasSameMen(problem, position) && shPlies == problem.m_shPlies) {
        return;
    }
    TProblemState state = StateOf(problem);
    state.variants = PlayableVariants(problem, position);
    state.fields = position.fields;
    state.originalFields = position.fields;
    state.shPlies = shPlies;
    ForgetKeys(state);
    const std::vector<TMove> line = std::exchange(state.line, {});
    RestoreState(problem, state);
    if (!line.empty()) {
        TBoardStack stack;
        static_cast<void>(std::ranges::all_of(
            line, [&](TMove move) { return PlayOnLine(problem, move, stack); }));
    }
}

std::string CastlingsOf(const TSetupFields& fields) {
    const std::string white = CastlingsOf(fields, TCastling::WhiteShort, TCastling::WhiteLong);
    const std::string black = CastlingsOf(fields, TCastling::BlackShort, TCastling::BlackLong);
    std::string all = white.empty() ? "" : FilledText(WhiteCastlingsText, {white});
    if (!black.empty()) {
        all += (all.empty() ? "" : ", ") + FilledText(BlackCastlingsText, {black});
    }
    return all.empty() ? UserText(NoCastlingsText) : all;
}

}  // namespace tarnwick
