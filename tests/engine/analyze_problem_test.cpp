#include "engine/jobs/analyze_problem.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/chess_exception.h"

#include "engine/heuristics/heuristic_bits.h"
#include "solve_support.h"

namespace tarnwick {
namespace {

using testing::SizeIs;

constexpr const char* EdgeFen = "9-10.12";

TEST(AnalyzeProblem, WishesOfTheProblemAndOfTheUserChangeTheSet) {
    SKIP_IF_MISSING(EdgeFen);
    TAnalyzeProblemOptions options;
    options.adjust = [](THeuristicSet& set) { set = ParseHeuristicList("SH_AREKINGSNEAR"); };
    const TProblemAnalysis changed = AnalyzeProblem(BoardOf(EdgeFen), 9, options);
    EXPECT_EQ(changed.heuristics, "SH_AREKINGSNEAR");
    EXPECT_THAT(changed.passes, SizeIs(1));
    options.adjust = [](THeuristicSet& set) { set = {}; };
    const TProblemAnalysis emptied = AnalyzeProblem(BoardOf(EdgeFen), 9, options);
    EXPECT_THAT(emptied.passes, SizeIs(0));
    EXPECT_EQ(emptied.ladder, "No heuristics selected.");
}

TEST(AnalyzeProblem, AnyLengthThatCanBeSolvedCanBeAnalysed) {
    SKIP_IF_MISSING(EdgeFen);
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
