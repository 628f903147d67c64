#include "engine/heuristics/position_analysis.h"

#include <gtest/gtest.h>

#include "engine/heuristics/heuristic_list.h"
#include "engine/heuristics/relaxation.h"
#include "heuristic_line.h"
#include "support/case_name.h"

namespace tarnwick {
namespace {

constexpr const char* TwoKnights = "k7/2r5/1p6/1K6/8/3N4/2N5/7q";
constexpr const char* SingleQueen = "51+.04";
constexpr const char* Duel = "8/8/1p1p1p1p/1P1P1P1P/8/5n2/2B5/k1K5";

/// A position, analysed.
class CAnalysedLine : public CHeuristicLine {
  public:
    CAnalysedLine(const std::string& fen, int moves, const TAnalysisOptions& options = {})
        : CHeuristicLine(fen, 0, 2 * moves - 1),
          m_flags(AnalyzePosition(Root(), false, false, &options)) {}

    bool HasFlag(TPositionFlag flag) const { return (m_flags & Bit(flag)) != 0; }
    std::uint32_t Mask() { return Root().m_heuristicFlags.Raw(); }
    std::string Text() {
        return HeuristicListText(Mask(), Parameters(), Root().m_captureState & OneColourMask);
    }

  private:
    std::uint16_t m_flags;
};

struct TExpected {
    const char* name;
    const char* fen;
    int moves;
    std::uint32_t with;
    std::uint32_t without;
};

class ChosenHeuristics : public testing::TestWithParam<TExpected> {};

TEST_P(ChosenHeuristics, FitThePosition) {
    SKIP_IF_MISSING(GetParam().fen);
    CAnalysedLine line(GetParam().fen, GetParam().moves);
    EXPECT_EQ(line.Mask() & GetParam().with, GetParam().with) << line.Text();
    EXPECT_EQ(line.Mask() & GetParam().without, 0u) << line.Text();
}

INSTANTIATE_TEST_SUITE_P(
    Case, ChosenHeuristics,
    testing::Values(
        TExpected{"KingInCorner", "9-10.12", 9,
                  SH_KEEPKINGONTHEEDGE | SH_DONTLETFIGUREUNBLOCK | SH_3MOVESTOMATE,
                  SH_FINDFORCEDMATE | SH_AREKINGSNEAR},
        TExpected{"LoneKnight", "31-50.18", 42,
                  SH_KEEPKINGONTHEEDGE | SH_DONTLETFIGUREUNBLOCK | SH_DONTLOSEANYFIGURES,
                  SH_FINDFORCEDMATE | SH_SAVEQUEENROOK},
        TExpected{"SingleQueen", SingleQueen, 56, SH_SINGLEQUEENMATE | SH_FINDFORCEDMATE,
                  SH_SWEEPINGWHITEROOK},
        TExpected{"SweepingRook", "16-20.25", 19,
                  SH_SWEEPINGWHITEROOK | SH_SAVEQUEENROOK | SH_KEEPKINGWITHINEXTEDGE,
                  SH_FINDFORCEDMATE},
        TExpected{"SeaSnake", "51+.17", 72, SH_SEASNAKE,
                  SH_FINDFORCEDMATE | SH_DONTRECEDEBLACKKING},
        TExpected{"KeyFigure", "21-30.20", 26,
                  SH_KEYWHITEFIGURE | SH_CAPTUREKNIGHT | SH_KEEPKINGWITHINEXTEDGE,
                  SH_KEEPKINGONTHEEDGE},
        TExpected{"MiniatureWithoutPawns", "8/8/8/8/8/1K3N2/6B1/k7", 33, SH_AREKINGSNEAR,
                  SH_ASSERTBLACKKINGSURROUNDED},
        TExpected{"QueensAndRooks", "31-50.16", 40, SH_DONTLETBLACKQUEENCHECKTWICE,
                  SH_AREKINGSNEAR | SH_DONTRECEDEBLACKKING},
        TExpected{"KingInTheOpen", "6-8.23", 8, SH_DONTLETPROMOTEDQUEENMOVE, EdgeHeuristics},
        TExpected{"Zugzwang", "kbK5/pp6/RP6/8/8/8/8/8", 13, SH_ZUGZWANG, SH_SEASNAKE},
        TExpected{"NoPawnInTime", "k7/pp6/8/8/8/8/6PP/R5K1", 4, 0,
                  SH_DONTLETPROMOTEDQUEENMOVE | SH_DONTLETPROMOTEDFIGUREMOVE},
        TExpected{"OppositeBishops", "16-20.01", 16, SH_ONECOLORPLAYPOSSIBLE, SH_CAPTUREKNIGHT}),
    CaseName);

TEST(PositionAnalysis, TwoKnightsAloneFollowBlacksFiguresAndNoEdge) {
    CAnalysedLine line(TwoKnights, 30);
    EXPECT_FALSE(line.Has(EdgeHeuristics));
    ASSERT_TRUE(line.Has(SH_DONTLETFIGUREUNBLOCK));
    EXPECT_EQ(line.Parameters().UnblockFieldCount, 2);  // The pawn is none.
    EXPECT_EQ(line.Root().m_trackedFields[0], H1);
    EXPECT_EQ(line.Root().m_trackedFields[1], FieldAt(2, 6));
    EXPECT_EQ(line.Root().m_trackedFields[2], NoField);
}

TEST(PositionAnalysis, FlagsTellTheKindOfPosition) {
    SKIP_IF_MISSING(SingleQueen);
    const CAnalysedLine bare("6-8.05", 6);
    EXPECT_TRUE(bare.HasFlag(TPositionFlag::BareBlackKing));
    EXPECT_TRUE(bare.HasFlag(TPositionFlag::FiguresToSpare));
    EXPECT_FALSE(bare.HasFlag(TPositionFlag::BlackAhead));
    EXPECT_FALSE(bare.HasFlag(TPositionFlag::GlobalRegisterAsked));
    const CAnalysedLine queen(SingleQueen, 56, {.bGlobalRegister = true});
    EXPECT_FALSE(queen.HasFlag(TPositionFlag::BareBlackKing));
    EXPECT_TRUE(queen.HasFlag(TPositionFlag::BlackAhead));
    EXPECT_TRUE(queen.HasFlag(TPositionFlag::GlobalRegisterAsked));
    EXPECT_TRUE(CAnalysedLine("16-20.01", 16).HasFlag(TPositionFlag::OppositeBishops));
}

TEST(PositionAnalysis, ADuelOfMinorsForcesSafeModeButNotFromTheDialog) {
    CHeuristicLine line(Duel, 0);
    line.Task().m_bSafeMode = false;
    EXPECT_NE(AnalyzePosition(line.Root(), true, false) & Bit(TPositionFlag::SafeModeForced), 0);
    EXPECT_FALSE(line.Task().m_bSafeMode);
    AnalyzePosition(line.Root(), false, false);
    EXPECT_TRUE(line.Task().m_bSafeMode);
}

TEST(PositionAnalysis, OnlyLongProblemsAreTriedOut) {
    // The king walks out of any edge here, which nobody tries to find out in twelve moves.
    const char* fen = "5k2/8/8/8/8/8/pppppp2/R3K3";
    CAnalysedLine shortOne(fen, 12);
    EXPECT_TRUE(shortOne.Has(SH_KEEPKINGONTHEEDGE));
    EXPECT_FALSE(shortOne.Task().m_bEdgeHardToHold);
    CAnalysedLine longOne(fen, 13);
    EXPECT_FALSE(longOne.Has(SH_KEEPKINGONTHEEDGE));
    EXPECT_TRUE(longOne.Task().m_bEdgeHardToHold);
    EXPECT_TRUE(CAnalysedLine(fen, 13, {.bTrials = false}).Has(SH_KEEPKINGONTHEEDGE));
}

TEST(PositionAnalysis, TellsTheUserOnceAndKeepsItsOptions) {
    SKIP_IF_MISSING(SingleQueen);
    int told = 0;
    const TAnalysisOptions options{.bForcedMate = false, .tell = [&](const char*) { ++told; }};
    CAnalysedLine line(SingleQueen, 56, options);
    EXPECT_FALSE(line.Has(SH_FINDFORCEDMATE));
    AnalyzePosition(line.Root(), false, true, &options);
    EXPECT_EQ(told, 1);
}

TEST(PositionAnalysis, ForgetsWhatRelaxationLeftButNotTheUsersChoices) {
    SKIP_IF_MISSING("51+.23");
    CAnalysedLine line("51+.23", 120);
    const std::string first = line.Text();
    const std::uint32_t key = line.Root().m_heuristicKey;
    line.Parameters().bRunPassWithoutHeuristics = false;
    while (TryRelaxSpecialHeuristics(line.Root()) != NothingToRelax) {
    }
    AnalyzePosition(line.Root(), false, true);
    EXPECT_EQ(line.Text(), first);
    EXPECT_EQ(line.Root().m_heuristicKey, key);
    EXPECT_FALSE(line.Parameters().bRunPassWithoutHeuristics);

    line.Parameters().bUnblockFixedByUser = true;
    line.Parameters().UnblockFieldCount = 1;
    line.Parameters().UnblockInitialFields[0] = FieldAt(0, 3);
    AnalyzePosition(line.Root(), false, true);
    EXPECT_NE(line.Text().find("SH_DONTLETFIGUREUNBLOCK(A4)"), std::string::npos) << line.Text();
}

}  // namespace
}  // namespace tarnwick
