#include "engine/heuristics/heuristic_checks.h"

#include "chess/escape_check.h"
#include "engine/heuristics/edge_relaxation.h"
#include "engine/heuristics/heuristic_bits.h"
#include "engine/heuristics/heuristic_key.h"
#include "engine/heuristics/key_checks.h"
#include "engine/heuristics/king_area_checks.h"
#include "engine/heuristics/material_checks.h"
#include "engine/heuristics/reduction_check.h"
#include "engine/heuristics/sea_snake.h"
#include "engine/heuristics/single_queen_mate.h"
#include "engine/heuristics/tracked_men.h"
#include "engine/heuristics/zugzwang_position.h"

namespace tarnwick {
namespace {

constexpr std::uint32_t TestedAfterBoth = HeuristicsOfKingArea | SH_AREKINGSNEAR | SH_KEYFIELD |
                                          SH_SINGLEQUEENMATE | SH_CAPTUREKNIGHT | SH_SEASNAKE |
                                          SH_ZUGZWANG;
constexpr std::uint32_t TestedAfterWhite = TestedAfterBoth | SH_SKIPWORSTWHITEMOVES;
constexpr std::uint32_t TestedAfterBlack =
    TestedAfterBoth | SH_DONTLETBLACKQUEENCHECKTWICE | SH_3MOVESTOMATE | SH_REDUCTIONTOGLOBREGPOS;

/// Below, looking whether Black can do something costs as much as searching it.
constexpr int LeastPliesToLookAhead = 4;
/// With one ply left, White mates at once or not at all.
constexpr int LeastPliesAfterBlack = 3;

bool IsMated(const TChessboard& afterWhite) {
    return afterWhite.m_blackChecker != NoChecker && !CanBlackEscapeCheck(afterWhite);
}

/// What White's move itself tells.
bool IsMoveAgainstPlan(TChessboard& child, std::uint32_t bits) {
    return ((bits & SH_AREKINGSNEAR) != 0 && IsWhiteKingTooFar(child)) ||
           ((bits & SH_CAPTUREKNIGHT) != 0 && IsKnightCapturedTooLate(child)) ||
           ((bits & SH_SEASNAKE) != 0 && BreaksSeaSnakeAfterWhite(child)) ||
           ((bits & SH_SINGLEQUEENMATE) != 0 && StirsBesideQueen(child)) ||
           ((bits & SH_KEYFIELD) != 0 && LeavesKeyField(child)) ||
           ((bits & SH_ZUGZWANG) != 0 && MissesZugzwangPosition(child));
}

/// What Black can do after it.
bool LetsBlackDoTooMuch(TChessboard& child, std::uint32_t bits) {
    if (child.m_shPlies < LeastPliesToLookAhead) {
        return false;
    }
    if ((bits & EdgeHeuristics) != 0) {
        RelaxOnAdvancedPawn(child);
    }
    return ((bits & SH_SKIPWORSTWHITEMOVES) != 0 && IsWorstWhiteMove(child)) ||
           ((bits & HeuristicsOfKingArea) != 0 && LetsKingOutOfArea(child));
}

bool IsPlanBrokenByBlack(const TChessboard& child, std::uint32_t bits) {
    return ((bits & HeuristicsOfKingArea) != 0 && IsKingOutOfArea(child)) ||
           ((bits & SH_AREKINGSNEAR) != 0 && IsWhiteKingTooFar(child)) ||
           ((bits & SH_DONTLETBLACKQUEENCHECKTWICE) != 0 && IsSecondQueenCheck(child)) ||
           ((bits & SH_3MOVESTOMATE) != 0 && IsMateInThreeUnlikely(child)) ||
           ((bits & SH_CAPTUREKNIGHT) != 0 && IsKnightCapturedTooLate(child)) ||
           ((bits & SH_SEASNAKE) != 0 && BreaksSeaSnakeAfterBlack(child)) ||
           ((bits & SH_SINGLEQUEENMATE) != 0 && IsQueenHuntOver(child)) ||
           ((bits & SH_KEYFIELD) != 0 && HasBlackTakenKeyField(child)) ||
           ((bits & SH_REDUCTIONTOGLOBREGPOS) != 0 && IsReducedPositionLost(child));
}

}  // namespace

bool BreaksHeuristicsAfterWhite(TChessboard& child) noexcept {
    const std::uint32_t bits = child.m_heuristicFlags.Raw() & TestedAfterWhite;
    if (bits == 0 || child.m_shPlies == 0) {
        return false;
    }
    return (IsMoveAgainstPlan(child, bits) || LetsBlackDoTooMuch(child, bits)) && !IsMated(child);
}

bool BreaksHeuristicsAfterBlack(TChessboard& child) noexcept {
    if (child.m_heuristicFlags.Raw() == 0 || child.m_shPlies < LeastPliesAfterBlack) {
        return false;
    }
    if (BreaksFollowedMen(child)) {
        return true;
    }
    const std::uint32_t bits = child.m_heuristicFlags.Raw() & TestedAfterBlack;
    if (bits == 0) {
        return false;
    }
    if ((bits & SH_ZUGZWANG) != 0 && HasBlackLeftZugzwangPlan(child)) {
        SetHeuristics(child, child.m_heuristicFlags.Raw() & ~SH_ZUGZWANG);
    }
    return IsPlanBrokenByBlack(child, bits) && !MatesAtOnce(child);
}

}  // namespace tarnwick
