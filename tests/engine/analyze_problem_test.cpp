#include "engine/jobs/analyze_problem.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/chess_exception.h"

#include "engine/heuristics/heuristic_bits.h"
#include "engine/heuristics/position_analysis.h"
#include "solve_support.h"

namespace tarnwick {
namespace {

using testing::HasSubstr;
using testing::SizeIs;

constexpr const char* EdgeFen = "8/8/7p/7P/2p5/2P1Q3/4p1pr/4Kbrk";
constexpr const char* BareKing = "8/8/8/8/8/2BBNN2/2K2k2/8";

TEST(AnalyzeProblem, LadderAsDataIsTheLadderOfTheText) {
    const TProblemAnalysis analysis = AnalyzeProblem(BoardOf(EdgeFen), 9);
    EXPECT_NE(analysis.set.mask & SH_KEEPKINGONTHEEDGE, 0U);
    ASSERT_GT(analysis.passes.size(), 1U);
    EXPECT_EQ(analysis.passes[0].name, "1");
    EXPECT_EQ(analysis.passes[0].heuristics, analysis.heuristics);
    EXPECT_EQ(analysis.passes[1].name, "1b");
    for (const TAnalyzedPass& pass : analysis.passes) {
        EXPECT_THAT(analysis.ladder, HasSubstr("Pass " + pass.name + ": " + pass.heuristics));
    }
}

TEST(AnalyzeProblem, FlagsComeInWords) {
    const TProblemAnalysis bare = AnalyzeProblem(BoardOf(BareKing), 6);
    EXPECT_NE(bare.flags & Bit(TPositionFlag::BareBlackKing), 0);
    EXPECT_THAT(PositionFlagTexts(bare.flags), testing::Contains("Black has only the king"));
    EXPECT_FALSE(bare.bSafeModeForced);
    EXPECT_TRUE(
        AnalyzeProblem(BoardOf("8/8/1p1p1p1p/1P1P1P1P/8/5n2/2B5/k1K5"), 20).bSafeModeForced);
}

TEST(AnalyzeProblem, WishesOfTheProblemAndOfTheUserChangeTheSet) {
    TAnalyzeProblemOptions options;
    options.adjust = [](THeuristicSet& set) { set = ParseHeuristicList("SH_AREKINGSNEAR"); };
    const TProblemAnalysis changed = AnalyzeProblem(BoardOf(EdgeFen), 9, options);
    EXPECT_EQ(changed.heuristics, "SH_AREKINGSNEAR");
    EXPECT_THAT(changed.passes, SizeIs(1));
    options.adjust = [](THeuristicSet& set) { set = {}; };
    const TProblemAnalysis emptied = AnalyzeProblem(BoardOf(EdgeFen), 9, options);
    EXPECT_THAT(emptied.passes, SizeIs(0));
    EXPECT_EQ(emptied.ladder, "No heuristics selected.");

    const char* forcing = "8/1p6/4k3/8/3p1Q2/3p4/pp1p4/rrbK4";
    EXPECT_NE(AnalyzeProblem(BoardOf(forcing), 56).set.mask & SH_FINDFORCEDMATE, 0U);
    const TProblemAnalysis calm = AnalyzeProblem(BoardOf(forcing), 56, {.bForcedMate = false});
    EXPECT_EQ(calm.set.mask & SH_FINDFORCEDMATE, 0U);
}

TEST(AnalyzeProblem, AnyLengthThatCanBeSolvedCanBeAnalysed) {
    for (const int moves : {1, 2, 5, 300}) {
        EXPECT_EQ(AnalyzeProblem(BoardOf(EdgeFen), moves).bAnalysedToSolve, moves > 5) << moves;
    }
    for (const int moves : {0, -1, 301}) {
        EXPECT_THROW(AnalyzeProblem(BoardOf(EdgeFen), moves), ChessException) << moves;
    }
    TChessboard broken = BoardOf(EdgeFen);
    broken.m_fields[E1] = 0;  // No white king.
    EXPECT_THROW(AnalyzeProblem(broken, 9), ChessException);
}

}  // namespace
}  // namespace tarnwick
