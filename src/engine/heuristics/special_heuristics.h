#pragma once
// TSpecialHeuristics: the parameters of a set of special heuristics. Each search thread has its own copy,
// given to it with each pass; relaxation weakens them between passes.

#include <array>
#include <cstdint>

#include "chess/fields.h"

namespace tarnwick {

inline constexpr int MaxTrackedMen = 8;
/// Value of a field parameter that is not set.
inline constexpr std::uint8_t NoHeuristicField = 255;

/// How strong a threat counts as forcing, weakest restriction last. The numbers of the dialog's list.
enum class TForcedLevel : std::uint8_t {
    CheckOnly = 0,  ///< Checks, and the built-in exceptions.
    Threat1 = 1,
    Threat1Plus = 2,
    Threat2 = 3,
    Threat2Plus = 4,
    Threat3 = 5,
    Threat4 = 6,
    Threat5 = 7
};

/// Which other heuristics hold while White is held to forcing moves.
enum class TForcedWithOthers : std::uint8_t {
    No = 0,
    Yes = 1,
    Partially = 2,
    PartiallyWithEdgePass = 3  ///< Partially, after an initial pass with the edge heuristics.
};

struct TSpecialHeuristics {
    // SH_KEEPKINGONTHEEDGE and SH_KEEPKINGWITHINEXTEDGE
    bool bKingStrict = false;       ///< Black's king must not move at all.
    bool bKingAlmostStrict = true;  ///< With bKingStrict: exceptions apply.
    /// With bKingStrict: where the king must stay; not set: where it stood when the heuristic began.
    std::uint8_t StillKingField = NoHeuristicField;
    bool bExtEdgeStrict = true;  ///< From the adjacent line the king may move to the edge only.
    bool bIncludeInnerCorners = false;  ///< b2, b7, g2 and g7 count as edge.
    // Their relaxation inside a line of play
    std::uint8_t RelaxFiguresCaptured = 0;  ///< Off when so many black figures are taken; 0: never.
    bool bRelaxExtEdgeOnly = false;
    bool bRelaxOnAdvancedPawn = false;
    bool bRelaxSkipDefer = false;     ///< No waiting while White attacks no black figure.
    bool bRelaxAutomatic = true;      ///< The analysis and relaxation may set bRelaxOnAdvancedPawn.
    std::uint16_t DeferMoves = 0;     ///< Plies that a violation may wait.
    std::uint16_t DeferSecond = 255;  ///< Distance from the edge that the king may reach meanwhile.
    // SH_ASSERTBLACKKINGSURROUNDED
    bool bSurroundedStrict = false;  ///< At most two free fields.
    // SH_KEEPKINGNEARCORNER: greatest distance, in fields if positive, in king's moves if negative.
    std::int8_t CornerDistance = 0;
    // SH_DONTLOSEANYFIGURES
    std::uint8_t LoseFiguresPawnMode = 255;  ///< 1 pawns too, 2 pawns before promotion too.
    // SH_DONTLEAVEMAINDIAGONAL
    std::uint8_t MainDiagonalBlackField = NoHeuristicField;
    // SH_DONTLETPROMOTEDQUEENMOVE and SH_DONTLETPROMOTEDFIGUREMOVE
    bool bPromotedStrict = false;
    // SH_DONTLETFIGUREUNBLOCK
    std::int8_t UnblockFieldCount = 0;
    /// Where they stood when they were set to be followed. Where they stand now is on the board.
    std::array<std::uint8_t, MaxTrackedMen> UnblockFields{};
    /// The same for men set at the root; for men set during the search, their fields at the root.
    std::array<std::uint8_t, MaxTrackedMen> UnblockInitialFields{};
    bool bUnblockEffective = false;  ///< The word of the list: a set of its own, otherwise alike.
    bool bUnblockDynamic = false;    ///< May be set during the search.
    bool bUnblockWithPawns = false;  ///< Black pawns may be followed too.
    bool bUnblockFromFields = true;  ///< The men are known by their initial fields.
    bool bUnblockFixedByUser = false;
    bool bUnblockSuspended = false;  ///< Relaxation sets the bit again in its next step.
    bool bCannotApplyDynamically = false;
    // SH_SAVEQUEENROOK
    bool bSaveIncludesRook = false;
    // Key fields
    std::uint8_t KeyField = NoHeuristicField;
    std::uint8_t KeyWhiteFigureField = NoHeuristicField;  ///< The pinning figure.
    bool bKeyFigureAlternates = false;  ///< Relaxation takes turns with SH_DONTLETFIGUREUNBLOCK.
    std::uint8_t KeyLine = NoHeuristicField;  ///< File, 0 to 7.
    std::uint8_t KeyDiagonalField1 = NoHeuristicField;
    std::uint8_t KeyDiagonalField2 = NoHeuristicField;
    // SH_ZUGZWANGTRIANGLES
    std::int8_t TriangleField1 = -1;
    std::int8_t TriangleField2 = -1;
    // SH_CAPTUREKNIGHT
    bool bCaptureKnightVariant = false;  ///< All knights must fall, not only one.
    // SH_SINGLEQUEENMATE
    std::uint8_t SingleQueenTable = 0;  ///< 0 to 3.
    // SH_SEASNAKE
    bool bSeaSnakeOn = false;
    std::uint8_t SeaSnakeApproachField = NoHeuristicField;
    std::uint8_t SeaSnakeTurnBackField = NoHeuristicField;
    std::uint8_t SeaSnakePendulumField1 = NoHeuristicField;
    std::uint8_t SeaSnakePendulumField2 = NoHeuristicField;
    std::uint16_t SeaSnakeAfterMove = 0;
    // SH_FINDFORCEDMATE
    TForcedLevel ForcedLevel = TForcedLevel::CheckOnly;
    TForcedLevel ForcedStartLevel = TForcedLevel::CheckOnly;
    bool bForcedCaptures = false;  ///< Captures beside the black king count as forcing (#2 and up).
    bool bForcedInitialPass = false;  ///< The pass with the edge heuristics that comes first.
    bool bForcedCustom = false;       ///< ForcedRelaxations is the user's own number.
    TForcedWithOthers ForcedWithOthers = TForcedWithOthers::Partially;
    std::uint8_t ForcedRelaxations = 1;  ///< Weaker levels tried before it is taken off.
    std::uint32_t ForcedInitialSet = 0;  ///< The set that follows the initial pass.
    // SH_ZUGZWANG
    std::uint16_t ZugzwangReturnMoves = 0;  ///< Moves after which the position is to return.
    // Relaxation
    bool bLetRelaxHeuristics = true;
    bool bHeuristicsFallback =
        false;  ///< Where the king is driven to the edge, the strict edge first.
    bool bRunPassWithoutHeuristics = true;
    std::uint16_t RelaxationSteps = 0;  ///< Steps of the ladder so far.
    // Men that relaxation may stop following first.
    std::uint8_t RemovableCount = 0;
    std::array<std::uint8_t, MaxTrackedMen> RemovableFields{};
};

}  // namespace tarnwick
