#include "engine/heuristics/relaxation.h"

#include <gtest/gtest.h>

#include <random>

#include "engine/heuristics/heuristic_list.h"
#include "engine/heuristics/position_analysis.h"
#include "heuristic_line.h"
#include "support/case_name.h"
#include "support/fake_clock.h"

namespace tarnwick {
namespace {

/// King a1 walled in by rook and pawn, king c2: the corner, nothing to step to.
constexpr const char* CornerFen = "8/8/8/8/8/1B6/p1K5/kr5R";
/// A rook and a bishop against a king on the edge that has room.
constexpr const char* EdgeFen = "5k2/3p1n1p/1P1p4/5K2/6PB/6p1/2p5/Rr6";
/// No queen, three light figures, Black's men free: forcing moves are not exhausted.
constexpr const char* LightFen = "r1b2rk1/pppq1ppp/8/8/8/3N1N2/3K1B2/8";
constexpr const char* QueenAgainstMenFen = "8/8/1p6/1p3n2/4Q3/K7/p1r3p1/1k4n1";

/// A root with a set given as a list.
class CRelaxedLine : public CHeuristicLine {
  public:
    CRelaxedLine(const std::string& fen, const std::string& list, int plies = WhiteLinePlies)
        : CHeuristicLine(fen, 0, plies) {
        const THeuristicSet set = ParseHeuristicList(list);
        Parameters() = set.parameters;
        Root().m_captureState |= set.oneColourMode;
        Set(set.mask);
    }
    std::string Text() {
        return HeuristicListText(Root().m_heuristicFlags.Raw(), Parameters(),
                                 Root().m_captureState & OneColourMask);
    }
    std::int8_t Relax() { return TryRelaxSpecialHeuristics(Root()); }
};

struct TLadderCase {
    const char* name;
    const char* fen;
    const char* set;
    std::vector<const char*> passes;  ///< The sets that follow; the last is followed by none.
};

class Ladders : public testing::TestWithParam<TLadderCase> {};

TEST_P(Ladders, WeakenOneThingAtATime) {
    CRelaxedLine line(GetParam().fen, GetParam().set);
    std::uint32_t mask = line.Root().m_heuristicFlags.Raw();
    std::uint32_t key = line.Root().m_heuristicKey;
    for (const char* pass : GetParam().passes) {
        EXPECT_EQ(line.Relax(), Relaxed);
        EXPECT_EQ(line.Text(), pass);
        const bool bOtherKey =
            mask != line.Root().m_heuristicFlags.Raw() || key != line.Root().m_heuristicKey;
        EXPECT_TRUE(bOtherKey) << "doubtful positions of two passes would mix at " << pass;
        mask = line.Root().m_heuristicFlags.Raw();
        key = line.Root().m_heuristicKey;
    }
    EXPECT_EQ(line.Relax(), NothingToRelax);
    EXPECT_EQ(line.Root().m_heuristicFlags.Raw(), 0u);
    EXPECT_EQ(line.Root().m_heuristicKey, 0u);
}

INSTANTIATE_TEST_SUITE_P(
    Case, Ladders,
    testing::Values(
        TLadderCase{"SpecialTypesFirst",
                    EdgeFen,
                    "SH_SWEEPINGWHITEROOK, SH_ZUGZWANG(3), SH_KEEPKINGNEARCORNER(3S), "
                    "SH_DONTLEAVEMAINDIAGONAL, SH_AREKINGSNEAR",
                    {"SH_AREKINGSNEAR, SH_DONTLEAVEMAINDIAGONAL, SH_KEEPKINGNEARCORNER(3S), "
                     "SH_ZUGZWANG",
                     "SH_AREKINGSNEAR, SH_DONTLEAVEMAINDIAGONAL, SH_KEEPKINGNEARCORNER(3S)",
                     "SH_AREKINGSNEAR, SH_DONTLEAVEMAINDIAGONAL", "SH_AREKINGSNEAR"}},
        TLadderCase{"OneColourPlay",
                    EdgeFen,
                    "SH_ONECOLORPLAYPOSSIBLE(SeparatedBlackBishop), SH_AREKINGSNEAR",
                    {"SH_AREKINGSNEAR"}},
        TLadderCase{"StillKingInTheCorner",
                    CornerFen,
                    "SH_DONTLETKINGMOVE",
                    {"SH_DONTLETKINGMOVE(excptns)", "SH_KEEPKINGONTHEEDGE",
                     "SH_KEEPKINGWITHINEXTEDGE(strict)", "SH_KEEPKINGWITHINEXTEDGE",
                     "SH_ASSERTBLACKKINGSURROUNDED"}},
        TLadderCase{
            "EdgeThenExtendedEdge",
            EdgeFen,
            "SH_KEEPKINGONTHEEDGE, SH_DONTRECEDEBLACKKING",
            {"SH_KEEPKINGWITHINEXTEDGE(Astrict), SH_DONTRECEDEBLACKKING",
             "SH_KEEPKINGWITHINEXTEDGE(A), SH_DONTRECEDEBLACKKING", "SH_DONTRECEDEBLACKKING"}},
        TLadderCase{"MenBeforeTheirRoom",
                    EdgeFen,
                    "SH_DONTLETFIGUREUNBLOCK(F7,B1), SH_SINGLEQUEENMATE, SH_DONTLOSEANYFIGURES",
                    {"SH_DONTLETFIGUREUNBLOCK(F7,B1), SH_DONTLOSEANYFIGURES",
                     "SH_DONTLETFIGUREUNBLOCK(F7,B1)", "SH_DONTLETFIGUREUNBLOCK(F7)"}},
        TLadderCase{"SurroundedStrictly",
                    EdgeFen,
                    "SH_ASSERTBLACKKINGSURROUNDED(strict), SH_DONTLETBLACKQUEENCHECKTWICE, "
                    "SH_DONTLETPROMOTEDQUEENMOVE, SH_SAVEQUEEN/ROOK",
                    {"SH_DONTLETPROMOTEDQUEENMOVE, SH_SAVEQUEEN/ROOK, "
                     "SH_ASSERTBLACKKINGSURROUNDED(strict)",
                     "SH_SAVEQUEEN/ROOK, SH_ASSERTBLACKKINGSURROUNDED(strict)",
                     "SH_SAVEQUEEN/ROOK, SH_ASSERTBLACKKINGSURROUNDED", "SH_SAVEQUEEN/ROOK"}},
        TLadderCase{"ForcedMate",
                    QueenAgainstMenFen,
                    "SH_FINDFORCEDMATE(#1), SH_AREKINGSNEAR",
                    {"SH_AREKINGSNEAR, SH_FINDFORCEDMATE(#2)", "SH_AREKINGSNEAR"}}),
    CaseName);

TEST(Relaxation, SwitchedOffEmptiesTheSetAtOnce) {
    CRelaxedLine line(EdgeFen, "SH_KEEPKINGONTHEEDGE, SH_ONECOLORPLAYPOSSIBLE(WhiteFieldsOnly)");
    line.Parameters().bLetRelaxHeuristics = false;
    EXPECT_EQ(line.Relax(), NothingToRelax);
    EXPECT_EQ(line.Text(), "");
    EXPECT_EQ(line.Root().m_heuristicKey, 0u);
    EXPECT_EQ(line.Root().m_captureState & OneColourMask, 0);
}

TEST(Relaxation, WithBlackToMoveTheBoardBeforeIsRelaxed) {
    CRelaxedLine line(EdgeFen, "SH_SWEEPINGWHITEROOK, SH_ZUGZWANG(3)");
    line.Play({"Kf5-f6"});
    EXPECT_EQ(SimulateRelaxation(line.Board(), false).steps, 1);
    EXPECT_EQ(line.Text(), "SH_SWEEPINGWHITEROOK, SH_ZUGZWANG");
    EXPECT_EQ(TryRelaxSpecialHeuristics(line.Board()), Relaxed);
    EXPECT_EQ(line.Text(), "SH_ZUGZWANG");
    EXPECT_EQ(line.Board().m_heuristicFlags.Raw(), line.Root().m_heuristicFlags.Raw());
    EXPECT_EQ(line.Board().m_heuristicKey, line.Root().m_heuristicKey);
    EXPECT_EQ(line.Board().m_fields[FieldAt(5, 5)], WhiteKing);
    CRelaxedLine black(EdgeFen, "SH_ZUGZWANG(3)", BlackLinePlies);
    EXPECT_EQ(black.Relax(), NothingToRelax);  // Nothing before it.
}

TEST(Relaxation, TheSeaSnakeGoesBeforeTheEdgeAndForcesSafeMode) {
    CRelaxedLine line(EdgeFen, "SH_KEEPKINGONTHEEDGE, SH_SEASNAKE(A1-A3)");
    line.Task().m_bSafeMode = false;
    EXPECT_EQ(line.Relax(), Relaxed);
    EXPECT_EQ(line.Text(), "SH_KEEPKINGONTHEEDGE");
    EXPECT_TRUE(line.Task().m_bSafeMode);
}

TEST(Relaxation, FollowedMenStepAsideForTheStillKingAndComeBack) {
    CRelaxedLine line("8/8/8/8/8/8/p1K5/krbn3R",
                      "SH_DONTLETKINGMOVE(excptns), SH_DONTLETFIGUREUNBLOCK(B1,C1,D1)");
    line.Relax();
    EXPECT_EQ(line.Text(), "SH_DONTLETKINGMOVE(excptns)");
    line.Relax();
    EXPECT_TRUE(line.Has(SH_DONTLETFIGUREUNBLOCK));
    EXPECT_FALSE(line.Parameters().bKingStrict && line.Has(SH_KEEPKINGONTHEEDGE));
    EXPECT_EQ(line.Root().m_trackedFields[0], B1);
}

TEST(Relaxation, RemovableMenAreLetGoFirst) {
    CRelaxedLine line(EdgeFen, "SH_DONTLETFIGUREUNBLOCK(F7,B1,H7), SH_AREKINGSNEAR");
    line.Parameters().RemovableCount = 1;
    line.Parameters().RemovableFields[0] = B1;
    line.Relax();
    EXPECT_EQ(line.Text(), "SH_AREKINGSNEAR, SH_DONTLETFIGUREUNBLOCK(F7,H7)");
    line.Parameters().RemovableCount = 1;  // A man that is followed no longer.
    line.Relax();
    EXPECT_EQ(line.Text(), "SH_AREKINGSNEAR");
}

TEST(Relaxation, KeyFigureAndFollowedMenTakeTurns) {
    CRelaxedLine line(CornerFen,
                      "SH_DONTLETKINGMOVE, SH_DONTLETFIGUREUNBLOCK(B1), SH_KEYWHITEFIGURE(H1)");
    line.Relax();  // Without the rook the bishop, of the other colour, could not check the corner.
    EXPECT_EQ(line.Text(), "SH_DONTLETKINGMOVE, SH_DONTLETFIGUREUNBLOCK(B1)");
    line.Relax();
    EXPECT_EQ(line.Text(), "SH_DONTLETKINGMOVE, SH_KEYWHITEFIGURE(H1)");
    line.Relax();
    EXPECT_EQ(line.Text(), "SH_DONTLETKINGMOVE(excptns), SH_DONTLETFIGUREUNBLOCK(B1)");
}

// ---- Forcing moves

TEST(ForcedMateRelaxation, AnInitialPassGivesWayToItsSuccessor) {
    CRelaxedLine line(EdgeFen, "SH_FINDFORCEDMATE(#1-Preliminary), SH_KEEPKINGONTHEEDGE");
    line.Parameters().ForcedInitialSet = SH_FINDFORCEDMATE | SH_AREKINGSNEAR;
    line.Relax();
    EXPECT_EQ(line.Text(), "SH_AREKINGSNEAR, SH_FINDFORCEDMATE(#1)");
}

TEST(ForcedMateRelaxation, ACustomLadderRepeatsNoPass) {
    CRelaxedLine line(EdgeFen, "SH_FINDFORCEDMATE(#2-Custom), SH_AREKINGSNEAR");
    line.Relax();
    EXPECT_EQ(line.Text(), "SH_AREKINGSNEAR, SH_FINDFORCEDMATE(#2+-Custom)");
    line.Relax();
    EXPECT_EQ(line.Text(), "SH_AREKINGSNEAR");
}

struct TTimeCase {
    const char* name;
    std::int64_t elapsed;
    std::int8_t result;
    const char* told;  ///< End of the line told; null: nothing is.
};

class TimeDependentRelaxation : public testing::TestWithParam<TTimeCase> {};

TEST_P(TimeDependentRelaxation, NeedsTimeToBeLeft) {
    CFakeClock clock;
    CRelaxedLine line(LightFen, "SH_FINDFORCEDMATE(CheckOnly), SH_AREKINGSNEAR");
    line.Parameters().ForcedRelaxations = 0;
    line.Parameters().ForcedWithOthers = TForcedWithOthers::No;
    line.Task().m_startMs = NowMs();
    clock.Advance(GetParam().elapsed);
    std::string told;
    const auto listen = [&](const std::string& text) { told += text; };
    EXPECT_EQ(TryRelaxSpecialHeuristics(line.Root(), listen), GetParam().result);
    EXPECT_EQ(line.Text(), GetParam().result == RelaxedByTime
                               ? "SH_AREKINGSNEAR, SH_FINDFORCEDMATE(#1+)"
                               : "SH_AREKINGSNEAR");
    const std::string head =
        "Time dependent relaxation near the limit: calcTime=" + std::to_string(GetParam().elapsed) +
        " msec.; limit=1000 msec. ";
    EXPECT_EQ(told, GetParam().told == nullptr ? "" : head + GetParam().told);
}

INSTANTIATE_TEST_SUITE_P(Case, TimeDependentRelaxation,
                         testing::Values(TTimeCase{"Early", 0, RelaxedByTime, nullptr},
                                         TTimeCase{"JustInTime", 999, RelaxedByTime,
                                                   "(additional relaxation accepted)\n"},
                                         TTimeCase{"JustTooLate", 1000, Relaxed,
                                                   "(additional relaxation refused)\n"},
                                         TTimeCase{"Late", 1201, Relaxed, nullptr}),
                         CaseName);

// ---- The whole ladder

TEST(RelaxationSimulation, AlwaysEndsAndLeavesNoTrace) {
    std::mt19937 random(20240611);
    const char* fens[] = {CornerFen,
                          EdgeFen,
                          LightFen,
                          QueenAgainstMenFen,
                          "8/8/8/8/2N5/2BB4/3KN3/5k2",
                          "8/6p1/6P1/1p6/1P6/3Q4/4p1pr/4Kbrk"};
    for (int i = 0; i < 180; ++i) {
        CHeuristicLine line(fens[i % 6], 0);
        TSpecialHeuristics& p = line.Parameters();
        AnalyzePosition(line.Root(), false, true, nullptr);
        p.bKingStrict = random() % 2 != 0;
        p.bKingAlmostStrict = random() % 2 != 0;
        p.bSurroundedStrict = random() % 2 != 0;
        p.bUnblockSuspended = random() % 8 == 0;
        p.bKeyFigureAlternates = random() % 8 == 0;
        p.bForcedCustom = random() % 4 == 0;
        p.ForcedRelaxations = static_cast<std::uint8_t>(random() % 9);
        p.RemovableCount = static_cast<std::uint8_t>(random() % 4);
        line.Root().m_searchFlags.Assign(TSearchFlag::LongLightSort, random() % 2 != 0);
        line.Task().m_bSafeMode = false;
        const auto mask = static_cast<std::uint32_t>(random() & random() & ~0x30000100u);
        line.Set(mask);
        const std::uint32_t key = line.Root().m_heuristicKey;
        const std::string text = HeuristicListText(mask, p, 0);
        const TRelaxationCounts counts = SimulateRelaxation(line.Root(), false);
        EXPECT_LE(counts.steps, 48) << text;
        EXPECT_EQ(line.Root().m_heuristicFlags.Raw(), mask);
        EXPECT_EQ(line.Root().m_heuristicKey, key);
        EXPECT_EQ(HeuristicListText(mask, p, 0), text);
        EXPECT_FALSE(line.Task().m_bSafeMode);
        EXPECT_LE(SimulateRelaxation(line.Root(), true).steps, counts.steps);
    }
}

TEST(RelaxationSimulation, ShowsThePathAndWhatDependsOnTime) {
    CRelaxedLine line(LightFen, "SH_FINDFORCEDMATE(CheckOnly), SH_AREKINGSNEAR");
    line.Parameters().ForcedRelaxations = 0;
    const std::string text = RelaxationText(line.Root());
    const std::string path =
        "Pass 1: SH_AREKINGSNEAR, SH_FINDFORCEDMATE(CheckOnly)\n\n"
        "Pass 1b: SH_AREKINGSNEAR, SH_FINDFORCEDMATE(#1+) *\n\n";
    EXPECT_EQ(text.substr(0, path.size()), path);
    EXPECT_NE(text.find("\n\n* time-dependent relaxation (non-deterministic) - possible"),
              std::string::npos);
    CRelaxedLine snake(EdgeFen, "SH_AREKINGSNEAR, SH_SEASNAKE(A1-A3)");
    snake.Parameters().SeaSnakeAfterMove = 4;
    EXPECT_EQ(RelaxationText(snake.Root()),
              "Pass 1: SH_AREKINGSNEAR, SH_SEASNAKE(after 4 only)\n\nPass 1b: SH_AREKINGSNEAR");
    EXPECT_EQ(RelaxationText(CRelaxedLine(EdgeFen, "").Root()), "No heuristics selected.");
}

TEST(RelaxationSimulation, PassesHaveNames) {
    EXPECT_EQ(HeuristicPassName(0), "1");
    EXPECT_EQ(HeuristicPassName(1), "1b");
    EXPECT_EQ(HeuristicPassName(25), "1z");
    EXPECT_EQ(HeuristicPassName(26), "1aa");
    EXPECT_EQ(HeuristicPassName(53), "1bb");
}

}  // namespace
}  // namespace tarnwick
