// Heuristics that a node of the first moves sets for what is below it.

#include "engine/heuristics/dynamic_heuristics.h"

#include <gtest/gtest.h>

#include "engine/heuristics/king_area_checks.h"
#include "engine/heuristics/tracked_men.h"
#include "heuristic_line.h"

namespace tarnwick {
namespace {

std::vector<TField> FollowedFields(const TChessboard& board) {
    std::vector<TField> fields;
    std::copy_if(std::begin(board.m_trackedFields), std::end(board.m_trackedFields),
                 std::back_inserter(fields), [](TField field) { return field != NoField; });
    return fields;
}

TEST(DynamicUnblock, BeginsWhenTheKingShutsItsMenIn) {
    constexpr const char* Corner = "8/8/8/8/8/1k3K2/p1pp4/rqb5";
    CHeuristicLine line(Corner, 0, BlackLinePlies);
    EXPECT_TRUE(CanUnblockBeSetDynamically(line.Play({"Kb3-b2"}).Board()));
    EXPECT_FALSE(CanUnblockBeSetDynamically(line.Restart().Play({"Kb3-a3"}).Board()));
    EXPECT_FALSE(CanUnblockBeSetDynamically(line.Restart().Play({"Kb3-c4"}).Board()));
    line.Restart().Play({"Kb3-b2"});
    line.Parameters().bCannotApplyDynamically = true;
    EXPECT_FALSE(CanUnblockBeSetDynamically(line.Board()));
}

TEST(DynamicUnblock, FollowsTheMenWithinItsScope) {
    CHeuristicLine line("8/8/8/8/8/1k3K2/p1pp4/rqb5", SH_DONTRECEDEBLACKKING, BlackLinePlies);
    line.Play({"Kb3-b2"});
    const std::uint32_t key = line.Board().m_heuristicKey;
    {
        const CFollowedMenScope scope(line.Board());
        EXPECT_TRUE(line.Has(SH_DONTLETFIGUREUNBLOCK));
        EXPECT_NE(line.Board().m_heuristicKey, key);
        EXPECT_EQ(FollowedFields(line.Board()), (std::vector<TField>{A1, B1, C1}));
        line.Play({"Kf3-f4", "Kb2-b3", "Kf4-f3", "Bc1-a3"});
        EXPECT_TRUE(BreaksFollowedMen(line.Board()));
        line.Restart().Play({"Kb3-b2"});
    }
    EXPECT_EQ(line.Board().m_heuristicFlags.Raw(), SH_DONTRECEDEBLACKKING);
    EXPECT_EQ(line.Board().m_heuristicKey, key);
    EXPECT_EQ(line.Parameters().UnblockFieldCount, 0);
    EXPECT_TRUE(FollowedFields(line.Board()).empty());
}

TEST(DynamicUnblock, SearchFindsTheMateOfTheShutInKing) {
    CHeuristicLine line("8/4B3/1N6/8/2K5/k7/p1pp4/rqb5", SH_DONTRECEDEBLACKKING, 18);
    line.Play({"Ka3-b2"});
    EXPECT_FALSE(MatesWithTrackedFields(line.Board()));  // The parameter is off.
    line.Parameters().bUnblockDynamic = true;
    EXPECT_TRUE(MatesWithTrackedFields(line.Board()));
    EXPECT_EQ(line.Board().m_heuristicFlags.Raw(), SH_DONTRECEDEBLACKKING);
    line.Board().m_pass = 2;
    EXPECT_FALSE(MatesWithTrackedFields(line.Board()));
}

TEST(DynamicFallback, NeedsAKingJustDrivenToTheEdge) {
    const auto canFallBack = [](const char* fen, const std::vector<std::string>& moves) {
        CHeuristicLine line(fen, 0, BlackLinePlies);
        return CanFallBack(line.Play(moves).Board());
    };
    // The white king stops the pawn from below, in opposition.
    constexpr const char* StoppedPawn = "8/6B1/8/8/8/8/pk1pK3/r7";
    EXPECT_TRUE(canFallBack(StoppedPawn, {"Kb2-b1", "Ke2-d1"}));
    EXPECT_FALSE(canFallBack(StoppedPawn, {"Kb2-b1", "Ke2:d2"}));
    EXPECT_FALSE(canFallBack("8/8/8/8/8/8/pk1pK3/r7", {"Kb2-b1", "Ke2-d1"}));  // b2 is free.
    // Minor pieces only.
    constexpr const char* Minors = "8/8/8/8/8/1k1K4/8/5Bn1";
    EXPECT_TRUE(canFallBack(Minors, {"Kb3-a3", "Kd3-c3"}));
    EXPECT_FALSE(canFallBack(Minors, {"Kb3-b2", "Kd3-d2"}));
    EXPECT_FALSE(canFallBack("8/8/8/8/8/k2K4/8/5Bn1", {"Ka3-a2", "Kd3-c3"}));
    EXPECT_FALSE(canFallBack("8/8/8/8/8/1k1K4/8/5Bnr", {"Kb3-a3", "Kd3-c3"}));
}

TEST(StrictEdgeScope, HoldsTheKingWhereItStandsNow) {
    CHeuristicLine line("8/8/8/8/8/1k1K4/8/5Bn1", SH_KEEPKINGONTHEEDGE, BlackLinePlies);
    line.Play({"Kb3-a3", "Kd3-c3"});
    const CStrictEdgeScope scope(line.Board());
    line.Parameters().bKingAlmostStrict = false;
    line.Play({"Ng1-f3", "Bf1-e2"});
    EXPECT_FALSE(IsKingOutOfArea(line.Board()));
    line.Play({"Ka3-a4", "Be2-f1"});
    EXPECT_TRUE(IsKingOutOfArea(line.Board()));
}

TEST(StrictEdgeScope, IsPutBack) {
    CHeuristicLine line("8/8/8/8/8/1k1K4/8/5Bn1", SH_DONTRECEDEBLACKKING, BlackLinePlies);
    const std::uint32_t key = line.Board().m_heuristicKey;
    {
        const CStrictEdgeScope scope(line.Board());
        EXPECT_TRUE(line.Has(SH_KEEPKINGONTHEEDGE) && line.Parameters().bKingStrict);
        EXPECT_NE(line.Board().m_heuristicKey, key);
    }
    EXPECT_EQ(line.Board().m_heuristicFlags.Raw(), SH_DONTRECEDEBLACKKING);
    EXPECT_FALSE(line.Parameters().bKingStrict);
    EXPECT_EQ(line.Board().m_heuristicKey, key);
}

}  // namespace
}  // namespace tarnwick
