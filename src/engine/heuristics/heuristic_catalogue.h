#pragma once
// The catalogue of special heuristics: one entry for each, with what the user reads about it, and the
// controls of the dialog that set their parameters. Lists, the command line and the dialog walk it.

#include <cstdint>
#include <span>

#include "base/language.h"

#include "engine/heuristics/special_heuristics.h"

namespace tarnwick {

struct THeuristicEntry {
    std::uint32_t bit = 0;
    const char* name = nullptr;  ///< As problem files, lists on the screen and logs spell it.
    TUserText label;             ///< Of its check box; all null: only the engine sets it.
    const TUserText* pTooltip = nullptr;  ///< What it is for; null without a check box.
};

/// In the order of their bits.
std::span<const THeuristicEntry> HeuristicCatalogue() noexcept;

/// The entry of that single bit; null if the bit is not used.
const THeuristicEntry* FindHeuristic(std::uint32_t bit) noexcept;

/// Controls of the dialog beside the check boxes of the heuristics, in its order.
enum class THeuristicOption : std::uint8_t {
    KingMustNotMove,  ///< Check box of its own for the strict form of SH_KEEPKINGONTHEEDGE.
    AllowExceptions,
    InnerCorners,
    ExtEdgeStrict,  ///< Check box of its own for the strict form of SH_KEEPKINGWITHINEXTEDGE.
    DistanceInSquares,
    DistanceInMoves,
    SurroundedStrict,
    DynamicRelaxationGroup,
    RelaxOnAdvancedPawn,
    RelaxOnCaptures,
    RelaxOnCapturesZero,
    DeferCheck,
    DeferCheckUnit,
    RelaxExtEdgeOnly,
    RelaxSkipDefer,
    RelaxAutomatic,
    LosePawns,
    LosePromotablePawns,
    MainDiagonalBlackPiece,
    PromotedQueen,
    PromotedAnyFigure,
    PromotedStrict,
    UnblockDynamic,
    ZugzwangAfter,
    SeaSnakeApproach,
    SeaSnakeTurnBack,
    SeaSnakePendulum,
    SeaSnakeOnlyAfter,
    ForcedCaptures,
    ForcedWithOthersGroup,
    RelaxForced,
    RelaxForcedUnit,
    LetRelax,
    ShowRelaxation,
    RunFinalPass,
    Fallback,
    SortIndications
};
inline constexpr int HeuristicOptionCount = 37;

struct THeuristicOptionEntry {
    THeuristicOption option{};
    std::uint32_t bits = 0;  ///< The heuristics that it belongs to; 0: to all passes.
    TUserText label;
    const TUserText* pTooltip = nullptr;  ///< Null: that of the heuristic is enough.
};

const THeuristicOptionEntry& HeuristicOption(THeuristicOption option) noexcept;

/// Which threats count as forcing, as the dialog offers them.
const TUserText& ForcedLevelLabel(TForcedLevel level) noexcept;

/// The choices of "FFM with other heuristics".
const TUserText& ForcedWithOthersLabel(TForcedWithOthers choice) noexcept;

}  // namespace tarnwick
