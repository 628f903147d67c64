#include "engine/search/repetition.h"

#include <gtest/gtest.h>

#include "solve_support.h"
#include "support/case_name.h"

namespace tarnwick {
namespace {

constexpr int RootPlies = 41;

/// There and back for both sides.
const std::vector<std::string> RookCycle = {"Rh1-h2", "Ka8-b8", "Rh2-h1", "Kb8-a8"};
constexpr const char* RookFen = "k7/8/8/8/8/8/8/K6R";

struct TCase {
    const char* name;
    const char* fen;
    std::vector<std::string> line;
    int pliesBack;  ///< To the position found; 0: none is.
};

class Repetitions : public testing::TestWithParam<TCase> {};

TEST_P(Repetitions, AreFoundWhereTheyAre) {
    CSearchLine line(GetParam().fen, RootPlies);
    line.Play(GetParam().line);
    const TChessboard* earlier = FindRepeatedPosition(line.Board());
    ASSERT_EQ(earlier != nullptr, GetParam().pliesBack != 0);
    if (earlier != nullptr) {
        EXPECT_EQ(earlier->m_shPlies - line.Board().m_shPlies, GetParam().pliesBack);
        EXPECT_TRUE(std::equal(std::begin(earlier->m_fields), std::end(earlier->m_fields),
                               std::begin(line.Board().m_fields)));
    }
}

INSTANTIATE_TEST_SUITE_P(
    Case, Repetitions,
    testing::Values(
        TCase{"RootItself", RookFen, {}, 0},
        TCase{"FirstMoves", RookFen, {"Rh1-h2", "Ka8-b8", "Rh2-h1"}, 0},
        TCase{"BackAtTheRoot", RookFen, RookCycle, 4},
        TCase{"BackAfterTheFirstMove",
              RookFen,
              {"Rh1-h2", "Ka8-b8", "Rh2-h1", "Kb8-a8", "Rh1-h2"},
              4},
        TCase{"AnotherFieldOfTheRook", RookFen, {"Rh1-h2", "Ka8-b8", "Rh2-h3", "Kb8-a8"}, 0},
        TCase{"EightPliesBack",
              RookFen,
              {"Rh1-h2", "Ka8-b8", "Rh2-h3", "Kb8-c8", "Rh3-h2", "Kc8-b8", "Rh2-h1", "Kb8-a8"},
              8},
        TCase{"QuietSinceThePawnMove",
              "k7/7p/8/8/8/8/8/K6R",
              {"Rh1-h2", "h7-h6", "Rh2-h1", "Ka8-b8", "Rh1-h2", "Kb8-a8"},
              4},
        TCase{"BlackLosesACastling",
              "r3k3/8/8/8/8/8/8/2K4R",
              {"Rh1-h2", "Ra8-b8", "Rh2-h1", "Rb8-a8"},
              0},
        TCase{"BlackLosesACastlingByTheKing",
              "4k2r/8/8/8/8/8/8/K5R1",
              {"Rg1-g2", "Ke8-d8", "Rg2-g1", "Kd8-e8"},
              0},
        TCase{"BlackHasLostItsCastlingBefore",
              "r3k3/8/8/8/8/8/8/2K4R",
              {"Rh1-h2", "Ra8-b8", "Rh2-h1", "Rb8-a8", "Rh1-h2", "Ra8-b8", "Rh2-h1", "Rb8-a8"},
              4},
        TCase{"WhiteMayLoseACastling",
              "k7/8/8/8/8/8/8/4K2R",
              {"Rh1-h2", "Ka8-b8", "Rh2-h1", "Kb8-a8"},
              4}),
    CaseName);

TEST(RepetitionLimits, PositionsAboveTheStartOfTheRepetitionsDoNotCount) {
    CSearchLine line(RookFen, RootPlies);
    line.Play(RookCycle);
    line.Task().m_shRepetitionFrom = RootPlies - 1;
    EXPECT_EQ(FindRepeatedPosition(line.Board()), nullptr);
    line.Play({"Rh1-h2"});
    EXPECT_NE(FindRepeatedPosition(line.Board()), nullptr) << "the position after the first move";
}

/// White's move at the end of the line repeats the position four plies before it.
struct TSkipCase {
    const char* name;
    int plies;  ///< Of the node in which White makes the repeating move.
    bool bSafe;
    int quickerMateNesting;
    int cycles;  ///< Times that the position comes back.
    bool bSkip;
};

class RepetitionsToSkip : public testing::TestWithParam<TSkipCase> {};

TEST_P(RepetitionsToSkip, FollowModeAndDepth) {
    const TSkipCase& c = GetParam();
    CSearchLine line(RookFen, c.plies + 4 * c.cycles);
    for (int i = 0; i < c.cycles; ++i) {
        line.Play(RookCycle);
    }
    line.Play({"Rh1-h2"});
    TThreadContext& thread = line.SearchThread();
    line.Task().m_bSafeMode = c.bSafe;
    thread.m_quickerMateNesting = c.quickerMateNesting;
    EXPECT_EQ(IsRepetitionToSkip(thread, line.Board(), c.plies), c.bSkip);
    // A repetition that was dropped belongs to the earlier position: the node must tell.
    const int limit = thread.m_repetitionLimit[static_cast<std::size_t>(c.plies)];
    EXPECT_EQ(limit, c.bSkip ? c.plies + 3 : 0);
}

INSTANTIATE_TEST_SUITE_P(
    Case, RepetitionsToSkip,
    testing::Values(TSkipCase{"NearTheLeaves", 13, true, 0, 1, false},
                    TSkipCase{"NearTheLeavesThreeTimes", 13, true, 0, 3, false},
                    TSkipCase{"Fifteen", 15, true, 0, 1, true},
                    TSkipCase{"FifteenInQuickerMate", 15, true, 1, 1, false},
                    TSkipCase{"FifteenInQuickerMateThirdTime", 15, true, 1, 2, true},
                    TSkipCase{"FarFromTheLeaves", 17, true, 0, 1, true},
                    TSkipCase{"FarFromTheLeavesInQuickerMate", 17, true, 1, 1, true},
                    TSkipCase{"QuickModeAnywhere", 5, false, 0, 1, true},
                    TSkipCase{"QuickModeInQuickerMate", 5, false, 2, 1, true}),
    CaseName);

TEST(RepetitionLimits, AHigherLimitOfTheNodeStays) {
    CSearchLine line(RookFen, 21);
    line.Play(RookCycle).Play({"Rh1-h2"});
    line.SearchThread().m_repetitionLimit[17] = 39;
    EXPECT_TRUE(IsRepetitionToSkip(line.SearchThread(), line.Board(), 17));
    EXPECT_EQ(line.SearchThread().m_repetitionLimit[17], 39);
}

}  // namespace
}  // namespace tarnwick
