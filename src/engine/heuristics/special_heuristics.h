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
    bool bExtEdgeStrict = true;     ///< From the adjacent line the king may move to the edge only.
    bool bIncludeInnerCorners = false;  ///< b2, b7, g2 and g7 count as edge.
    bool bEdgeToSurrounded = false;     ///< Relaxation may turn the strict edge into surrounded.
    // Their relaxation inside a line of play
    std::uint8_t RelaxFiguresCaptured = 0;  ///< Off when so many black figures are taken; 0: never.
    bool bRelaxExtEdgeOnly = false;
    bool bRelaxOnAdvancedPawn = false;
    bool bRelaxSkipDefer = false;
    bool bRelaxAutomatic = true;
    std::uint16_t DeferMoves = 0;     ///< Plies that a violation may wait.
    std::uint16_t DeferSecond = 255;  ///< The second number shown with it.
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
    std::array<std::uint8_t, MaxTrackedMen> UnblockFields{};         ///< Now; 255 once captured.
    std::array<std::uint8_t, MaxTrackedMen> UnblockInitialFields{};  ///< When they were set.
    bool bUnblockEffective = false;  ///< The set has been shrunk by relaxation.
    bool bUnblockDynamic = false;    ///< May be set during the search.
    bool bUnblockWithPawns = false;
    bool bUnblockFromFields = true;  ///< The men are known by their initial fields.
    bool bUnblockFixedByUser = false;
    bool bUnblockSuspended = false;  ///< Relaxation sets the bit again in its next step.
    bool bCannotApplyDynamically = false;
    // SH_SAVEQUEENROOK
    bool bSaveIncludesRook = false;
    // Key fields
    std::uint8_t KeyField = NoHeuristicField;
    std::uint8_t KeyWhiteFigureField = NoHeuristicField;  ///< The pinning figure.
    std::uint8_t KeyPinnedField = NoHeuristicField;
    bool bKeyFigureAlternates = false;  ///< Relaxation takes turns with SH_DONTLETFIGUREUNBLOCK.
    std::uint8_t KeyLine = NoHeuristicField;  ///< File, 0 to 7.
    std::uint8_t KeyDiagonalField1 = NoHeuristicField;
    std::uint8_t KeyDiagonalField2 = NoHeuristicField;
    // SH_ZUGZWANGTRIANGLES
    std::int8_t TriangleField1 = -1;
    std::int8_t TriangleField2 = -1;
    // SH_USEBLOCKBLACKPAWNSLEVEL: Black's pawns stand still at the ply with so many plies left; 0: never.
    std::uint16_t BlockedPawnsPlies = 0;
    // SH_CAPTUREKNIGHT
    bool bCaptureKnightVariant = false;
    // SH_SINGLEQUEENMATE
    std::uint8_t SingleQueenTable = 0;  ///< 0 to 3.
    // SH_SEASNAKE
    bool bSeaSnakeOn = false;
    bool bSeaSnakeKeepQuick = false;  ///< Dropping it does not force safe mode.
    std::uint8_t SeaSnakeApproachField = NoHeuristicField;
    std::uint8_t SeaSnakeTurnBackField = NoHeuristicField;
    std::uint8_t SeaSnakePendulumField1 = NoHeuristicField;
    std::uint8_t SeaSnakePendulumField2 = NoHeuristicField;
    std::uint16_t SeaSnakeAfterMove = 0;
    // SH_FINDFORCEDMATE
    TForcedLevel ForcedLevel = TForcedLevel::CheckOnly;
    TForcedLevel ForcedStartLevel = TForcedLevel::CheckOnly;
    bool bForcedCaptures = false;  ///< Captures beside the black king count as forcing (#2 and up).
    bool bForcedNoEdge = false;    ///< SH_ASSERTBLACKKINGSURROUNDED is off below a forced node.
    bool bForcedInitialPass = false;  ///< The pass with the edge heuristics that comes first.
    bool bForcedCustom = false;
    TForcedWithOthers ForcedWithOthers = TForcedWithOthers::Partially;
    std::uint8_t ForcedRelaxations = 1;        ///< Weaker levels tried before it is taken off.
    std::uint8_t ForcedCustomRelaxations = 0;  ///< The same with bForcedCustom.
    std::uint32_t ForcedInitialSet = 0;        ///< The set that follows the initial pass.
    // SH_ZUGZWANG
    std::uint16_t ZugzwangReturnMoves = 0;  ///< Moves after which the position is to return.
    // Relaxation
    bool bLetRelaxHeuristics = true;
    bool bHeuristicsFallback = false;
    bool bFallbackPending = false;
    bool bRunPassWithoutHeuristics = true;
    bool bRelaxQueenChecks = true;      ///< Relaxation may drop SH_DONTLETBLACKQUEENCHECKTWICE.
    bool bRelaxPromotedQueen = true;    ///< Relaxation may drop SH_DONTLETPROMOTEDQUEENMOVE.
    std::uint16_t RelaxationSteps = 0;  ///< Steps of the ladder so far.
    // Men that relaxation may stop following first.
    std::uint8_t RemovableCount = 0;
    std::array<std::uint8_t, MaxTrackedMen> RemovableFields{};
};

}  // namespace tarnwick
