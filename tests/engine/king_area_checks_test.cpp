// The heuristics that hold the black king in a part of the board.

#include "engine/heuristics/king_area_checks.h"

#include "role_check_case.h"
#include "support/case_name.h"

namespace tarnwick {
namespace {

class KingAreaChecks : public testing::TestWithParam<TRoleCase> {};

TEST_P(KingAreaChecks, TellWhenTheKingIsNotHeld) {
    CheckRoleCase(GetParam());
}

using THeuristics = TSpecialHeuristics;

void NotStrict(THeuristics& h) {
    h.bExtEdgeStrict = false;
}
void WithInnerCorners(THeuristics& h) {
    h.bIncludeInnerCorners = true;
}
void Strict(THeuristics& h) {
    h.bKingStrict = true;
    h.bKingAlmostStrict = false;
}
void AlmostStrict(THeuristics& h) {
    h.bKingStrict = true;
    h.bKingAlmostStrict = true;
}

/// A rook holds the king on the h-file and the eighth rank by the g-file.
constexpr const char* CutOff = "7k/8/8/5K2/8/8/8/6R1";
/// The king steps to g7 and is mated there by the queen.
constexpr const char* MatedOffEdge = "R7/7k/1R6/8/8/8/8/K1Q5";

// Short names, so that a case fits a line.
constexpr std::uint32_t OnEdge = SH_KEEPKINGONTHEEDGE;
constexpr std::uint32_t NearEdge = SH_KEEPKINGWITHINEXTEDGE;
constexpr std::uint32_t InCorner = SH_KEEPKINGNEARCORNER;
constexpr std::uint32_t QueenChecks = SH_DONTLETBLACKQUEENCHECKTWICE;

const TRoleCase EdgeCases[] = {
    {"RookKeepsTheFile", CutOff, OnEdge, "Rg1-g2", false},
    {"RookLeavesTheFile", CutOff, OnEdge, "Rg1-a1", true},
    {"KingAlongTheEdge", CutOff, OnEdge, "Rg1-a1 Kh8-g8", false},
    {"KingOffTheEdge", CutOff, OnEdge, "Rg1-a1 Kh8-g7", true},
    {"InnerCornerGivenAway", CutOff, OnEdge, "Rg1-a1", false, WithInnerCorners},
    {"KingOnInnerCorner", CutOff, OnEdge, "Rg1-a1 Kh8-g7", false, WithInnerCorners},
    {"FieldBesideInnerCorner", CutOff, OnEdge, "Rg1-a1 Kh8-g7 Ra1-a2 Kg7-f7", true,
     WithInnerCorners},
    {"StepOutIsMated", MatedOffEdge, OnEdge, "Ka1-a2", false},
    {"SteppedOutToMate", MatedOffEdge, OnEdge, "Ka1-a2 Kh7-g7", false},
    {"StepOutWithoutQueen", "R7/7k/1R6/8/8/8/8/K7", OnEdge, "Ka1-a2", true, nullptr, 9},
};

INSTANTIATE_TEST_SUITE_P(Edge, KingAreaChecks, testing::ValuesIn(EdgeCases), CaseName);

const TRoleCase ExtendedEdgeCases[] = {
    {"FieldsInsideHeld", "8/6k1/8/4K3/8/8/8/R7", NearEdge, "Ra1-a6", false, NotStrict},
    {"KingLetsGoOfF6", "8/6k1/8/4K3/8/8/8/R7", NearEdge, "Ke5-d5", true, NotStrict},
    {"AlongTheAdjacentLine", "8/6k1/8/4K3/8/8/8/R7", NearEdge, "Ra1-a6 Kg7-f7", false, NotStrict},
    {"AlongTheAdjacentLineIsStrictlyOut", "8/6k1/8/4K3/8/8/8/R7", NearEdge, "Ra1-a6 Kg7-f7", true},
    {"DrivenToTheEdge", "8/6k1/8/5K2/8/8/8/R7", NearEdge, "Ra1-a7", false},
    {"NotDrivenToTheEdge", "8/6k1/8/5K2/8/8/8/R7", NearEdge, "Ra1-a2", true},
};

INSTANTIATE_TEST_SUITE_P(ExtendedEdge, KingAreaChecks, testing::ValuesIn(ExtendedEdgeCases),
                         CaseName);

/// The king's only step is the capture on b1, while the white king lets go of it.
constexpr const char* WalledIn = "8/7p/8/8/8/p7/P1K5/kB6";
/// The king swings between h8 and g8 as long as the bishop guards f8. The a-pawn will be stopped, the
/// c-pawn will not.
constexpr const char* Swing = "7k/7p/p4K1P/8/PB6/8/8/8";
constexpr const char* SwingAndFreePawn = "7k/2p4p/5K1P/8/1B6/8/8/8";

const TRoleCase KingThatMustNotMoveCases[] = {
    {"MovesAndEndsAnotherHeuristic", CutOff, OnEdge | SH_KEYWHITEFIGURE, "Rg1-g2 Kh8-h7", true,
     Strict},
    {"StaysWalledIn", WalledIn, OnEdge, "Kc2-c1", false, Strict},
    {"MayCapture", WalledIn, OnEdge, "Kc2-c3", true, Strict},
    {"Captures", WalledIn, OnEdge, "Kc2-c3 Ka1:b1", true, Strict},
    {"PawnMoves", WalledIn, OnEdge, "Kc2-c1 h7-h6", false, Strict},
    {"EvenAStepBetween", Swing, OnEdge, "Bb4-a3", true, Strict},
    {"StepOutAllowed", Swing, OnEdge, "Bb4-a3 Kh8-g8", false, AlmostStrict},
    {"ForcedBack", Swing, OnEdge, "Bb4-a3 Kh8-g8 Ba3-b4", false, AlmostStrict},
    {"GoneBack", Swing, OnEdge, "Bb4-a3 Kh8-g8 Ba3-b4 Kg8-h8", false, AlmostStrict},
    {"NotForcedBack", Swing, OnEdge, "Bb4-a3 Kh8-g8 Ba3-c1", true, AlmostStrict},
    {"WentFurther", Swing, OnEdge, "Bb4-a3 Kh8-g8 Ba3-c1 Kg8-f8", true, AlmostStrict},
    {"StoppedPawnMovesBetween", Swing, OnEdge, "Bb4-a3 Kh8-g8 Ba3-b4 a6-a5", false, AlmostStrict},
    {"FreePawnCanMoveBetween", SwingAndFreePawn, OnEdge, "Bb4-a3 Kh8-g8 Ba3-b4", true,
     AlmostStrict},
    {"FreePawnMovesBetween", SwingAndFreePawn, OnEdge, "Bb4-a3 Kh8-g8 Ba3-b4 c7-c6", true,
     AlmostStrict},
};

INSTANTIATE_TEST_SUITE_P(KingThatMustNotMove, KingAreaChecks,
                         testing::ValuesIn(KingThatMustNotMoveCases), CaseName);

template <int Distance>
void NearCorner(THeuristics& h) {
    h.CornerDistance = Distance;
}

const TRoleCase CornerCases[] = {
    {"OneMoveAway", CutOff, InCorner, "Rg1-g2 Kh8-h7", false, NearCorner<-1>},
    {"DiagonalIsOneMove", CutOff, InCorner, "Rg1-a1 Kh8-g7", false, NearCorner<-1>},
    {"DiagonalIsTwoSquares", CutOff, InCorner, "Rg1-a1 Kh8-g7", true, NearCorner<1>},
    {"GoesTwoMovesAway", CutOff, InCorner, "Rg1-g2 Kh8-h7 Rg2-g1", true, NearCorner<-1>},
    {"TwoMovesAllowed", CutOff, InCorner, "Rg1-g2 Kh8-h7 Rg2-g1", false, NearCorner<-2>},
};

INSTANTIATE_TEST_SUITE_P(Corner, KingAreaChecks, testing::ValuesIn(CornerCases), CaseName);

template <int File>
void KeyFile(THeuristics& h) {
    h.KeyLine = File;
}
void LongDiagonal(THeuristics& h) {
    h.KeyDiagonalField1 = A1;
    h.KeyDiagonalField2 = H8;
}

constexpr const char* RookOnE = "8/8/8/3k4/8/8/8/K3R3";
constexpr const char* BishopOnDiagonal = "8/8/8/3k4/8/5K2/1B5P/8";

const TRoleCase KeyLinesCases[] = {
    {"RookKeepsTheKeyFile", RookOnE, SH_KEYLINE, "Re1-e2", false, KeyFile<4>},
    {"RookLeavesTheKeyFile", RookOnE, SH_KEYLINE, "Re1-h1", true, KeyFile<4>},
    {"KingStaysOnItsSide", RookOnE, SH_KEYLINE, "Re1-h1 Kd5-d6", false, KeyFile<4>},
    {"KingReachesTheKeyFile", RookOnE, SH_KEYLINE, "Re1-h1 Kd5-e5", true, KeyFile<4>},
    {"KingIsHeldOnTheFile", RookOnE, SH_KEYLINE, "Re1-e2 Kd5-c5", true, KeyFile<3>},
    {"BishopHoldsTheDiagonal", BishopOnDiagonal, SH_KEYDIAGONAL, "Bb2-a1", false, LongDiagonal},
    {"BishopLeavesTheDiagonal", BishopOnDiagonal, SH_KEYDIAGONAL, "Bb2-c1", true, LongDiagonal},
    {"KingSlipsAcross", BishopOnDiagonal, SH_KEYDIAGONAL, "Kf3-f2", true, LongDiagonal},
    {"FieldsOfNoDiagonal", BishopOnDiagonal, SH_KEYDIAGONAL, "Bb2-c1", false,
     [](THeuristics& h) {
         h.KeyDiagonalField1 = A1;
         h.KeyDiagonalField2 = G8;
     }},
};

INSTANTIATE_TEST_SUITE_P(KeyLines, KingAreaChecks, testing::ValuesIn(KeyLinesCases), CaseName);

constexpr const char* FarKings = "8/8/8/8/8/8/7k/K5R1";
constexpr const char* QueenHunt = "7k/3R4/8/8/8/8/q7/4K3";

const TRoleCase KingsAndQueensCases[] = {
    {"KingsTooFarForThree", FarKings, SH_AREKINGSNEAR, "Rg1-g4", true, nullptr, 5},
    {"TimeToComeNear", FarKings, SH_AREKINGSNEAR, "Rg1-g4", false},
    {"MateNeedsNoKing", "8/8/8/8/8/1R6/7k/K1R5", SH_AREKINGSNEAR,
     "Rb3-b2 Kh2-h3 Rc1-c3 Kh3-h4 Rb2-b4 Kh4-h5", true, nullptr, 9},
    {"FirstQueenCheck", QueenHunt, QueenChecks, "Rd7-d6 Qa2-a1", false},
    {"SecondQueenCheck", QueenHunt, QueenChecks, "Rd7-d6 Qa2-a1 Ke1-e2 Qa1-a2", true},
    {"QueenEnPrise", QueenHunt, QueenChecks, "Rd7-d6 Qa2-a1 Ke1-e2 Qa1-d1", false},
    {"QueenMovesWithoutCheck", QueenHunt, QueenChecks, "Rd7-d6 Qa2-a1 Ke1-e2 Qa1-a5", false},
};

INSTANTIATE_TEST_SUITE_P(KingsAndQueens, KingAreaChecks, testing::ValuesIn(KingsAndQueensCases),
                         CaseName);

TEST(KingAreaChecksOfMates, AMateIsNeverBroken) {
    // The white king is far, and Black is mated.
    const TRoleCase c{"", "7k/8/1R6/8/8/8/8/K1R5", SH_AREKINGSNEAR, "", false, nullptr, 5};
    CRoleLine line(c);
    EXPECT_TRUE(line.PlayAndCheck("Rb6-b7"));
    EXPECT_FALSE(line.PlayAndCheck("Kh8-g8 Rc1-c8"));
}

TEST(KingAreaChecksOfMates, FarFromTheLeavesAMateInTwoIsAtOnceToo) {
    // On g7 the black king is mated by the two rooks in two moves.
    for (const int plies : {9, 21}) {
        CRoleLine line(
            {"", "R7/7k/1R6/8/8/8/8/K7", SH_KEEPKINGONTHEEDGE, "", false, nullptr, plies});
        EXPECT_EQ(line.PlayAndCheck("Ka1-a2"), plies == 9);
        EXPECT_EQ(line.PlayAndCheck("Kh7-g7"), plies == 9);
    }
}

}  // namespace
}  // namespace tarnwick
