#include "engine/heuristics/bounded_mate.h"

#include "heuristic_line.h"
#include "registers/aggregated_register.h"
#include "registers/register_limits.h"
#include "support/case_name.h"

namespace tarnwick {
namespace {

struct TTrialCase {
    const char* name;
    const char* fen;
    bool bStrict, bAlmost;
    TTrialLimits limits;
    TTrialResult wanted;
};

class EdgeTrials : public testing::TestWithParam<TTrialCase> {};

TEST_P(EdgeTrials, TellWhetherTheKingIsHeld) {
    SKIP_IF_MISSING(GetParam().fen);
    const TTrialCase& c = GetParam();
    CHeuristicLine line(c.fen, SH_DONTLOSEANYFIGURES);
    const std::uint32_t keyBefore = line.Root().m_heuristicKey;
    const TTrialOptions options{c.bStrict, c.bAlmost, c.limits};
    EXPECT_EQ(TryHeuristics(line.Root(), SH_KEEPKINGONTHEEDGE, options), c.wanted);
    // What the trial put in force is gone, and so is its work.
    EXPECT_EQ(line.Root().m_heuristicFlags.Raw(), SH_DONTLOSEANYFIGURES);
    EXPECT_EQ(line.Root().m_heuristicKey, keyBefore);
    EXPECT_FALSE(line.Parameters().bKingStrict);
    EXPECT_TRUE(line.Parameters().bKingAlmostStrict);
    EXPECT_EQ(line.SearchThread().m_quickerMateNesting, 0);
    EXPECT_EQ(line.SearchThread().m_nodes, 0U);
}

constexpr TTrialLimits Short{2, 6, false};

INSTANTIATE_TEST_SUITE_P(
    Case, EdgeTrials,
    testing::Values(
        TTrialCase{"RookHolds", "7k/8/8/5K2/8/8/8/6R1", false, false, Short, TTrialResult::Kept},
        TTrialCase{"KingInTheOpen", "8/8/8/3k4/8/8/8/K5R1", false, false, Short,
                   TTrialResult::Escaped},
        TTrialCase{"KingThatHasToMove", "7k/8/8/5K2/8/8/8/6R1", true, false, Short,
                   TTrialResult::Escaped},
        TTrialCase{"KingWalledIn", "8/7p/8/8/8/p7/P1K5/kB6", true, false, Short,
                   TTrialResult::Kept},
        TTrialCase{"SwingIsAMove", "51+.17", true, false, Short, TTrialResult::Escaped},
        TTrialCase{"SwingGoesBack", "51+.17", true, true, Short, TTrialResult::Kept},
        // The knight drives the rook away that holds the king.
        TTrialCase{"HeldForOneMove",
                   "6k1/8/8/8/1K3n2/8/8/4R3",
                   false,
                   false,
                   {2, 2, false},
                   TTrialResult::Kept},
        TTrialCase{"NotHeldForThree", "6k1/8/8/8/1K3n2/8/8/4R3", false, false, Short,
                   TTrialResult::Escaped},
        TTrialCase{"MatesInOne", "7k/8/6K1/8/8/8/8/R7", false, false, Short, TTrialResult::Kept}),
    CaseName);

TEST(BoundedMate, AMateInOneIsAskedFirstIfWanted) {
    // A stopped job makes no trial, so that only the question before it can answer.
    CHeuristicLine line("7k/8/6K1/8/8/8/8/R7", SH_KEEPKINGONTHEEDGE);
    line.Task().Stop();
    EXPECT_EQ(IsBoundedMate(line.Root(), 2, 4, true), TTrialResult::Kept);
    EXPECT_EQ(IsBoundedMate(line.Root(), 2, 4, false), TTrialResult::OutOfBudget);
}

TEST(BoundedMate, BlackToMoveIsAskedToo) {
    CHeuristicLine line("7k/8/8/5K2/8/8/8/6R1", SH_KEEPKINGONTHEEDGE);
    line.Play({"Rg1-g2"});
    EXPECT_EQ(IsBoundedMate(line.Board(), 2, 6, false), TTrialResult::Kept);
    line.Restart().Play({"Rg1-a1"});
    EXPECT_EQ(IsBoundedMate(line.Board(), 2, 6, false), TTrialResult::Escaped);
}

TEST(BoundedMate, AStalemateIsAWayOut) {
    CHeuristicLine line("7k/5K2/8/6Q1/8/8/8/8", SH_KEEPKINGONTHEEDGE);
    line.Play({"Qg5-g6"});
    EXPECT_EQ(IsBoundedMate(line.Board(), 2, 2, false), TTrialResult::Escaped);
}

TEST(BoundedMate, TrialsDoNotNest) {
    CHeuristicLine line("8/8/8/3k4/8/8/8/K5R1", SH_KEEPKINGONTHEEDGE);
    line.SearchThread().m_quickerMateNesting = 1;
    EXPECT_EQ(IsBoundedMate(line.Root(), 2, 6, false), TTrialResult::Kept);
    EXPECT_EQ(line.SearchThread().m_quickerMateNesting, 1);
}

TEST(BoundedMate, ManyMenRunOutOfBudget) {
    CHeuristicLine line("r1bq1rk1/1pp1nppp/p1np4/2b1p3/4P3/1BPP1N1P/PP1N1PP1/R1BQ1RK1", 0);
    EXPECT_EQ(TryHeuristics(line.Root(), SH_KEEPKINGWITHINEXTEDGE, {false, false, {2, 40, false}}),
              TTrialResult::OutOfBudget);
}

TEST(BoundedMate, AStoppedJobEndsATrialWithoutSuccess) {
    CHeuristicLine line("7k/8/8/5K2/8/8/8/6R1", SH_KEEPKINGONTHEEDGE);
    line.Task().Stop();
    EXPECT_EQ(IsBoundedMate(line.Root(), 2, 6, false), TTrialResult::OutOfBudget);
}

class BoundedMateWithRegister : public testing::Test {
  protected:
    BoundedMateWithRegister() : m_register(TRegisterSettings{}) {
        m_register.SetBucketCount(1024, false);
        m_register.UpdateLimits(ComputeRegisterLimits(std::uint64_t{1} << 30, 16));
        m_line.SearchThread().m_pRegister = &m_register;
    }
    const TChessboard& Root() { return m_line.Root(); }
    bool IsSettled(std::uint16_t limit) {
        const TChessboardRegisterItem item = ItemOf(Root());
        return m_register.IsTrialSettled(limit, Root().m_shPlies, item, HashOf(item),
                                         Root().m_heuristicFlags.Raw(), Root().m_heuristicKey);
    }

    TAggregatedTemporaryChessboardRegister m_register;
    CHeuristicLine m_line{"7k/8/8/5K2/8/8/8/6R1", SH_KEEPKINGONTHEEDGE};
};

TEST_F(BoundedMateWithRegister, WhatIsKnownAnswersAtOnce) {
    const TChessboardRegisterItem item = ItemOf(Root());
    m_register.StoreResult(Root().m_shPlies, item, HashOf(item), false);
    EXPECT_EQ(IsBoundedMate(m_line.Root(), 2, 2, false), TTrialResult::Escaped);
}

TEST_F(BoundedMateWithRegister, ATrialThatHeldIsRemembered) {
    EXPECT_FALSE(IsSettled(4));
    EXPECT_EQ(IsBoundedMate(m_line.Root(), 4, 4, false), TTrialResult::Kept);
    EXPECT_TRUE(IsSettled(4));
    EXPECT_FALSE(IsSettled(6)) << "not further than it went";
}

TEST_F(BoundedMateWithRegister, AWayOutIsDoubtfulForTheSetThatWasTried) {
    CHeuristicLine open("8/8/8/3k4/8/8/8/K5R1", SH_KEEPKINGONTHEEDGE);
    open.SearchThread().m_pRegister = &m_register;
    const TChessboard& root = open.Root();
    EXPECT_EQ(IsBoundedMate(open.Root(), 2, 2, false), TTrialResult::Escaped);
    const TChessboardRegisterItem item = ItemOf(root);
    const std::uint32_t key = root.m_heuristicKey;
    EXPECT_EQ(m_register.FindResult(root.m_shPlies, item, SH_KEEPKINGONTHEEDGE, key),
              TRegisterResult::NoMateUnderHeuristics);
    EXPECT_EQ(m_register.FindResult(root.m_shPlies, item, SH_AREKINGSNEAR, key),
              TRegisterResult::Unknown);
}

}  // namespace
}  // namespace tarnwick
