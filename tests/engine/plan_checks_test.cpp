// Heuristics with a plan for the whole game: key field, single queen, sea snake, zugzwang, and the short
// lists of moves that belong to them.

#include "chess/board_tables.h"
#include "engine/heuristics/heuristic_generators.h"
#include "engine/heuristics/heuristic_list.h"
#include "engine/heuristics/sea_snake.h"
#include "engine/heuristics/single_queen_mate.h"
#include "role_check_case.h"
#include "support/case_name.h"

namespace tarnwick {
namespace {

using THeuristics = TSpecialHeuristics;

class PlanChecks : public testing::TestWithParam<TRoleCase> {};

TEST_P(PlanChecks, TellWhenThePlanIsLeft) {
    CheckRoleCase(GetParam());
}

constexpr TField C4 = 26, E1 = 4;

template <TField Field>
void OfField(THeuristics& h) {
    h.KeyField = Field;
}

constexpr const char* RookOnE = "8/8/8/3k4/8/8/8/K3R3";

const TRoleCase KeyFieldCases[] = {
    {"ManLeavesIt", RookOnE, SH_KEYFIELD, "Re1-e2", true, OfField<E1>},
    {"OtherManMoves", RookOnE, SH_KEYFIELD, "Ka1-b1", false, OfField<E1>},
    {"BlackArrives", RookOnE, SH_KEYFIELD, "Ka1-b1 Kd5-c4", true, OfField<C4>},
    {"BlackPasses", RookOnE, SH_KEYFIELD, "Ka1-b1 Kd5-c5", false, OfField<C4>},
    {"BlackCanBeTakenThere", "8/8/8/3k4/1b6/8/8/K3R3", SH_KEYFIELD, "Ka1-b1 Bb4:e1", true,
     OfField<E1>},
    {"BlackIsCoveredThere", "8/8/8/3k4/1b6/8/8/3KR3", SH_KEYFIELD, "Kd1-c1 Bb4:e1", true,
     OfField<E1>},
    {"WhiteTakesBack", "8/8/8/3k4/1b6/8/8/2K1R3", SH_KEYFIELD, "Kc1-d1 Bb4:e1", false, OfField<E1>},
};

INSTANTIATE_TEST_SUITE_P(KeyField, PlanChecks, testing::ValuesIn(KeyFieldCases), CaseName);

/// The king is shut in by its bishop on b3, which the pawn's field holds.
constexpr const char* QueenHunt = "6k1/8/8/8/8/pb6/P7/K6Q";

template <int Table>
void WithTable(THeuristics& h) {
    h.SingleQueenTable = Table;
}

const TRoleCase SingleQueenCases[] = {
    {"QueenMoves", QueenHunt, SH_SINGLEQUEENMATE, "Qh1-h2", false},
    {"KingStirs", QueenHunt, SH_SINGLEQUEENMATE, "Ka1-b1", true, WithTable<1>},
    {"KingMayStep", QueenHunt, SH_SINGLEQUEENMATE, "Ka1-b1", false, WithTable<2>},
    {"KingWalksAway", QueenHunt, SH_SINGLEQUEENMATE, "Ka1-b1 Kg8-f8 Kb1-c1", true, WithTable<2>},
    {"PawnTakes", QueenHunt, SH_SINGLEQUEENMATE, "a2:b3", true, WithTable<0>},
    {"PawnMayTake", QueenHunt, SH_SINGLEQUEENMATE, "a2:b3", false, WithTable<1>},
    {"BlackFigureGoesFree", QueenHunt, SH_SINGLEQUEENMATE, "Qh1-h2 Bb3-d5", true},
    {"BlackFigureIsTaken", QueenHunt, SH_SINGLEQUEENMATE, "Qh1-h2 Bb3:a2", false},
    {"BlackKingRuns", QueenHunt, SH_SINGLEQUEENMATE, "Qh1-h2 Kg8-f8", false},
    {"QueenIsLost", QueenHunt, SH_SINGLEQUEENMATE, "Qh1-h7 Kg8:h7", true},
};

INSTANTIATE_TEST_SUITE_P(SingleQueen, PlanChecks, testing::ValuesIn(SingleQueenCases), CaseName);

TEST(SingleQueenMate, FieldsOfTheWhiteKingFollowTheTable) {
    const TRoleCase c{"", QueenHunt, SH_SINGLEQUEENMATE, "", false};
    CRoleLine line(c);
    line.Parameters().SingleQueenTable = 0;
    EXPECT_EQ(FieldsForbiddenToWhiteKing(line.Board()), ~FieldBit(A1));
    line.Parameters().SingleQueenTable = 2;
    EXPECT_EQ(FieldsForbiddenToWhiteKing(line.Board()), ~(FieldBit(A1) | KingFields[A1]));
    CRoleLine checked({"", "r5k1/8/8/8/8/p7/8/1K5Q", SH_SINGLEQUEENMATE, "", false});
    checked.Play({"Qh1-h2", "Ra8-b8"});
    EXPECT_EQ(FieldsForbiddenToWhiteKing(checked.Board()), 0U) << "out of check anywhere";
}

// Kings and blocked pawns: White walks a triangle in three moves, Black swings.
constexpr const char* Triangle = "8/8/8/p7/P7/8/6k1/4K3";

void BackAfterThree(THeuristics& h) {
    h.ZugzwangReturnMoves = 3;
}

const TRoleCase ZugzwangCases[] = {
    {"PositionIsBack", Triangle, SH_ZUGZWANG, "Ke1-d2 Kg2-g3 Kd2-d1 Kg3-g2 Kd1-e1", false,
     BackAfterThree},
    {"PositionIsNotBack", Triangle, SH_ZUGZWANG, "Ke1-d2 Kg2-g3 Kd2-d1 Kg3-g2 Kd1-c1", true,
     BackAfterThree},
    {"CannotBeBackInTime", Triangle, SH_ZUGZWANG, "Ke1-d2 Kg2-g3 Kd2-d3", true, BackAfterThree},
    {"AfterwardsFree", Triangle, SH_ZUGZWANG,
     "Ke1-d2 Kg2-g3 Kd2-d1 Kg3-g2 Kd1-e1 Kg2-g3 Ke1-e2 Kg3-g4 Ke2-e3", false, BackAfterThree},
    {"PawnMoveIsForGood", "8/8/8/p7/P7/8/4P1k1/4K3", SH_ZUGZWANG, "e2-e3", true, BackAfterThree},
};

INSTANTIATE_TEST_SUITE_P(Zugzwang, PlanChecks, testing::ValuesIn(ZugzwangCases), CaseName);

TEST(ZugzwangPosition, BlackWhoLeavesThePlanEndsIt) {
    const TRoleCase c{"", Triangle, SH_ZUGZWANG, "", false, BackAfterThree};
    CRoleLine line(c);
    EXPECT_FALSE(line.PlayAndCheck("Ke1-d2 Kg2-g3 Kd2-d1"));
    EXPECT_TRUE(line.Has(SH_ZUGZWANG));
    EXPECT_FALSE(line.PlayAndCheck("Kg3-g4"));
    EXPECT_FALSE(line.Has(SH_ZUGZWANG));
    EXPECT_EQ(line.Board().m_heuristicKey, 0U);
}

// ---- The sea snake: Black has only Ka8-b8, White's king alone can move without giving something away.

constexpr const char* SeaSnake = "51+.17";

TEST(SeaSnake, IsFoundWithItsFields) {
    SKIP_IF_MISSING(SeaSnake);
    CRoleLine line({"", SeaSnake, 0, "", false});
    ASSERT_TRUE(DetectSeaSnake(line.Root(), line.Parameters()));
    const TSpecialHeuristics& h = line.Parameters();
    EXPECT_TRUE(h.bSeaSnakeOn);
    EXPECT_EQ(h.SeaSnakePendulumField1, B8);
    EXPECT_EQ(h.SeaSnakePendulumField2, A8);
    EXPECT_EQ(FieldName(h.SeaSnakeApproachField), "c7");
    EXPECT_EQ(KingDistance(h.SeaSnakeTurnBackField, h.SeaSnakeApproachField), 2);
}

struct TNoSnakeCase {
    const char* name;
    const char* fen;
};

class NoSeaSnake : public testing::TestWithParam<TNoSnakeCase> {};

TEST_P(NoSeaSnake, LeavesTheParametersAlone) {
    CRoleLine line({"", GetParam().fen, 0, "", false});
    EXPECT_FALSE(DetectSeaSnake(line.Root(), line.Parameters()));
    EXPECT_FALSE(line.Parameters().bSeaSnakeOn);
    EXPECT_EQ(line.Parameters().SeaSnakeApproachField, NoHeuristicField);
}

INSTANTIATE_TEST_SUITE_P(
    Case, NoSeaSnake,
    testing::Values(
        TNoSnakeCase{"BlackHasAFreePawn", "k1b5/1p1p4/pP1Pp3/K2pPp2/1P1p1P2/3P1P1p/5P2/8"},
        TNoSnakeCase{"BishopIsFreeToo", "k1b5/1p6/pP1Pp3/K2pPp2/1P1p1P2/3P1P2/5P2/8"},
        TNoSnakeCase{"WhiteHasAWaitingMove", "k1b5/1p1p4/pP1Pp3/K2pPp2/1P1p1P2/3P1P2/5P1P/8"},
        TNoSnakeCase{"OpenPosition", "7k/3R4/8/8/8/8/q7/4K3"},
        TNoSnakeCase{"BareKing", "7k/8/8/5K2/8/8/8/6R1"}),
    CaseName);

/// The snake's parameters as the detection fills them; the line begins with the king's walk.
bool PlaySeaSnake(CRoleLine& line, const char* moves) {
    DetectSeaSnake(line.Root(), line.Parameters());
    line.Set(SH_SEASNAKE);
    return line.PlayAndCheck(moves);
}

TEST(SeaSnake, OnlyTheKingWalks) {
    SKIP_IF_MISSING(SeaSnake);
    CRoleLine walk({"", SeaSnake, 0, "", false});
    EXPECT_FALSE(PlaySeaSnake(walk, "Ka5-a4 Ka8-b8"));
    EXPECT_TRUE(walk.PlayAndCheck("b4-b5")) << "a quiet pawn move gives the cage away";
    CRoleLine capture({"", SeaSnake, 0, "", false});
    EXPECT_FALSE(PlaySeaSnake(capture, "Ka5-a4 Ka8-b8 b4-b5 Kb8-a8 b5:a6"));
}

TEST(SeaSnake, MayBeginAtALaterMove) {
    SKIP_IF_MISSING(SeaSnake);
    CRoleLine line({"", SeaSnake, 0, "", false});
    line.Parameters().SeaSnakeAfterMove = 3;
    EXPECT_FALSE(PlaySeaSnake(line, "Ka5-a4 Ka8-b8 b4-b5"));
}

TEST(SeaSnake, APendulumThatGetsOutBreaksIt) {
    SKIP_IF_MISSING(SeaSnake);
    // The bishop that was shut in comes out with check, covered by the pawn on b7.
    CRoleLine line({"", SeaSnake, 0, "", false});
    EXPECT_TRUE(PlaySeaSnake(line, "b4-b5 a6:b5 Ka5:b5 Bc8-a6"));
}

TEST(SeaSnake, AListOfTheUserIsCompletedWhereASnakeIs) {
    SKIP_IF_MISSING(SeaSnake);
    const TSpecialHeuristics typed = ParseHeuristicList("SH_SEASNAKE(-A4)").parameters;
    CRoleLine line({"", SeaSnake, 0, "", false});
    line.Parameters() = typed;
    CompleteSeaSnake(line.Root(), line.Parameters());
    line.Set(SH_SEASNAKE);
    EXPECT_EQ(FieldName(line.Parameters().SeaSnakeApproachField), "c7");
    EXPECT_EQ(FieldName(line.Parameters().SeaSnakeTurnBackField), "a4") << "as typed";
    EXPECT_FALSE(line.PlayAndCheck("Ka5-a4 Ka8-b8")) << "the pendulum swings";
    EXPECT_TRUE(line.PlayAndCheck("b4-b5"));
    // Without a snake there is no plan that could be left.
    CRoleLine none({"", "8/8/8/p7/P7/8/4P1k1/4K3", 0, "", false});
    none.Parameters() = typed;
    CompleteSeaSnake(none.Root(), none.Parameters());
    none.Set(SH_SEASNAKE);
    EXPECT_FALSE(none.PlayAndCheck("e2-e3"));
    EXPECT_FALSE(none.PlayAndCheck("Kg2-h2"));
}

TEST(SeaSnake, ThePlanIsFulfilledOnTheApproachField) {
    CRoleLine line({"", "k1b5/1p1pK3/pP1Pp3/3pPp2/1P1p1P2/3P1P2/5P2/8", 0, "", false});
    TSpecialHeuristics& h = line.Parameters();
    h.bSeaSnakeOn = true;
    h.SeaSnakeApproachField = D8;
    h.SeaSnakeTurnBackField = E8;
    h.SeaSnakePendulumField1 = B8;
    h.SeaSnakePendulumField2 = A8;
    line.Set(SH_SEASNAKE);
    EXPECT_FALSE(line.PlayAndCheck("Ke7-d8"));
    EXPECT_FALSE(line.Has(SH_SEASNAKE));
}

// ---- Lists of moves

std::vector<std::string> ListedMoves(CHeuristicLine& line, int* pLeftOut) {
    TMove moves[MaxMovesOfSide];
    const int count = GenerateHeuristicMoves(line.Board(), moves, pLeftOut);
    return KeyTexts(line.Board(), {moves, moves + std::max(count, 0)});
}

TEST(HeuristicGenerators, ZugzwangKeepsPawnsStill) {
    const TRoleCase c{"", "8/8/8/p7/P7/8/4P1k1/4K3", SH_ZUGZWANG, "", false, BackAfterThree};
    CRoleLine line(c);
    int leftOut = 0;
    EXPECT_EQ(ListedMoves(line, &leftOut), (std::vector<std::string>{"Ke1-d1", "Ke1-d2"}));
    EXPECT_EQ(leftOut, 2) << "e2-e3 and e2-e4";
}

TEST(HeuristicGenerators, SeaSnakeListsTheKingAndWhatHappensAtOnce) {
    SKIP_IF_MISSING(SeaSnake);
    CRoleLine line({"", SeaSnake, 0, "", false});
    PlaySeaSnake(line, "");
    int leftOut = 0;
    EXPECT_EQ(ListedMoves(line, &leftOut), (std::vector<std::string>{"Ka5-a4"}));
    EXPECT_EQ(leftOut, 1) << "b4-b5";
}

TEST(HeuristicGenerators, TrianglesListTheKingsSteps) {
    CRoleLine line({"", Triangle, 0, "", false});
    line.Parameters().TriangleField1 = 11;  // d2
    line.Parameters().TriangleField2 = 3;   // d1
    line.Set(SH_ZUGZWANGTRIANGLES);
    int leftOut = 0;
    EXPECT_EQ(ListedMoves(line, &leftOut), (std::vector<std::string>{"Ke1-d1", "Ke1-d2"}));
    EXPECT_EQ(leftOut, 1) << "Ke1-e2";
}

TEST(HeuristicGenerators, TheKeyFigureStaysInPlaceFarFromTheEnd) {
    // The bishop on e5 pins the rook on g7, which nobody covers but the king.
    for (const int plies : {7, 9}) {
        CRoleLine line({"", "7k/6r1/8/4B3/8/8/8/K7", 0, "", false, nullptr, plies});
        line.Parameters().KeyWhiteFigureField = 36;
        line.Set(SH_KEYWHITEFIGURE);
        TMove moves[MaxMovesOfSide];
        int leftOut = 0;
        const int count = GenerateHeuristicMoves(line.Board(), moves, &leftOut);
        EXPECT_EQ(count, plies == 9 ? 3 : -1);
        EXPECT_EQ(leftOut > 0, plies == 9);
    }
}

TEST(HeuristicGenerators, NoListWithoutAPlanOrWhenAllMovesFit) {
    CRoleLine empty({"", Triangle, SH_AREKINGSNEAR, "", false});
    CRoleLine allFit({"", Triangle, SH_ZUGZWANG, "", false, BackAfterThree});
    TMove moves[MaxMovesOfSide];
    int leftOut = 1;
    EXPECT_EQ(GenerateHeuristicMoves(empty.Board(), moves, &leftOut), -1);
    EXPECT_EQ(GenerateHeuristicMoves(allFit.Board(), moves, &leftOut), -1);
    EXPECT_EQ(leftOut, 0);
}

}  // namespace
}  // namespace tarnwick
