// The edge heuristics let go inside a line: after captures, with a pawn about to promote, or for a while.

#include "engine/heuristics/edge_relaxation.h"

#include "role_check_case.h"
#include "support/case_name.h"

namespace tarnwick {
namespace {

using THeuristics = TSpecialHeuristics;

class EdgeRelaxations : public testing::TestWithParam<TRoleCase> {};

TEST_P(EdgeRelaxations, DecideWhetherTheKingMayBeOut) {
    CheckRoleCase(GetParam());
}

constexpr const char* CutOff = "7k/8/8/5K2/8/8/8/6R1";

// A black rook, or a pawn of White's, that may change the balance while the king is out.
constexpr const char* WithBlackRook = "7k/8/8/5K2/8/8/3r4/6R1";
constexpr const char* RookTakesRook = "7k/8/8/5K2/8/8/3r4/3R4";
constexpr const char* WithPawn = "7k/8/1P6/5K2/8/8/8/6R1";

void OnCapture(THeuristics& h) {
    h.RelaxFiguresCaptured = 1;
}
void DeferFour(THeuristics& h) {
    h.RelaxFiguresCaptured = 1;
    h.DeferMoves = 4;
}
void DeferFourSkipIfStable(THeuristics& h) {
    DeferFour(h);
    h.bRelaxSkipDefer = true;
}
void DeferFourOnEdgeOnly(THeuristics& h) {
    DeferFour(h);
    h.DeferSecond = 0;
}
void OnAdvancedPawn(THeuristics& h) {
    h.bRelaxOnAdvancedPawn = true;
}

// Short names, so that a case fits a line.
constexpr std::uint32_t OnEdge = SH_KEEPKINGONTHEEDGE;

const TRoleCase RelaxationCases[] = {
    {"FigureCaptured", RookTakesRook, OnEdge, "Rd1:d2 Kh8-g7", false, OnCapture},
    {"CaptureDoesNotCount", RookTakesRook, OnEdge, "Rd1:d2 Kh8-g7", true},
    {"OnlyForTheExtendedEdge", RookTakesRook, OnEdge, "Rd1:d2 Kh8-g7", true,
     [](THeuristics& h) {
         OnCapture(h);
         h.bRelaxExtEdgeOnly = true;
     }},
    {"NothingCapturedYet", WithBlackRook, OnEdge, "Rg1-a1 Kh8-g7", true, OnCapture},
    {"MayWaitForTheCapture", WithBlackRook, OnEdge, "Rg1-a1 Kh8-g7", false, DeferFour},
    {"NothingToWaitFor", CutOff, OnEdge, "Rg1-a1 Kh8-g7", true, DeferFour},
    {"WaitedTooLong", WithBlackRook, OnEdge, "Rg1-a1 Kh8-g7 Ra1-b1 Kg7-f7 Rb1-a1 Kf7-g7", true,
     DeferFour},
    {"NoFigureAttacked", WithBlackRook, OnEdge, "Rg1-a1 Kh8-g7", true, DeferFourSkipIfStable},
    {"FigureAttacked", WithBlackRook, OnEdge, "Rg1-d1 Kh8-g7", false, DeferFourSkipIfStable},
    {"MayNotGoThatFar", WithBlackRook, OnEdge, "Rg1-a1 Kh8-g7", true, DeferFourOnEdgeOnly},
    {"PawnNearPromotion", WithPawn, OnEdge, "b6-b7 Kh8-h7 Rg1-a1 Kh7-g7", false, OnAdvancedPawn},
    {"PawnDoesNotCount", WithPawn, OnEdge, "b6-b7 Kh8-h7 Rg1-a1 Kh7-g7", true},
    {"PawnBlocked", "1n5k/1P6/8/5K2/8/8/8/6R1", OnEdge, "Rg1-a1 Kh8-g7", true, OnAdvancedPawn},
};

INSTANTIATE_TEST_SUITE_P(Relaxation, EdgeRelaxations, testing::ValuesIn(RelaxationCases), CaseName);

TEST(EdgeRelaxation, AnAdvancedPawnChangesTheKeyOfTheLine) {
    const TRoleCase c{"", WithPawn, SH_KEEPKINGONTHEEDGE, "", false, OnAdvancedPawn};
    CRoleLine line(c);
    const std::uint32_t keyBefore = line.Board().m_heuristicKey;
    EXPECT_FALSE(line.PlayAndCheck("b6-b7"));
    EXPECT_TRUE(line.Board().m_stateBits.Has(TStateBit::RelaxedByPawn));
    EXPECT_NE(line.Board().m_heuristicKey, keyBefore);
}

}  // namespace
}  // namespace tarnwick
