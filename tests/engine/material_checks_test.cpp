// Heuristics about what White's men can still do: three moves to mate, the knight that has to fall, moves
// that hang a figure, and the position without some of White's men.

#include "engine/heuristics/reduction_check.h"
#include "role_check_case.h"
#include "support/case_name.h"

namespace tarnwick {
namespace {

using THeuristics = TSpecialHeuristics;

class MaterialChecks : public testing::TestWithParam<TRoleCase> {};

TEST_P(MaterialChecks, TellWhatIsNotWorthASearch) {
    CheckRoleCase(GetParam());
}

constexpr int ThreeMovesAfterOne = 7;

// Short names, so that a case fits a line.
constexpr std::uint32_t NoGifts = SH_SKIPWORSTWHITEMOVES;

const TRoleCase ThreeMovesCases[] = {
    {"LoneBishopInTheOpen", "8/8/8/4k3/8/8/P7/K1B5", SH_3MOVESTOMATE, "Bc1-a3 Ke5-e4", true,
     nullptr, ThreeMovesAfterOne},
    {"FourMovesAreAnotherMatter", "8/8/8/4k3/8/8/P7/K1B5", SH_3MOVESTOMATE, "Bc1-a3 Ke5-e4", false,
     nullptr, ThreeMovesAfterOne + 2},
    {"QueenInTheOpen", "8/8/8/4k3/8/8/P7/K1Q5", SH_3MOVESTOMATE, "Qc1-c2 Ke5-d5", false, nullptr,
     ThreeMovesAfterOne},
    {"BishopAgainstACagedKing", "7k/7p/5K2/7p/8/8/8/2B5", SH_3MOVESTOMATE, "Kf6-f7 h5-h4", false,
     nullptr, ThreeMovesAfterOne},
    {"PawnAboutToQueen", "8/P7/8/4k3/8/8/8/K1B5", SH_3MOVESTOMATE, "Bc1-a3 Ke5-e4", false, nullptr,
     ThreeMovesAfterOne},
};

INSTANTIATE_TEST_SUITE_P(ThreeMoves, MaterialChecks, testing::ValuesIn(ThreeMovesCases), CaseName);

constexpr const char* TwoKnights = "5n1k/4n3/8/6K1/8/8/8/R7";

void AllKnights(THeuristics& h) {
    h.bCaptureKnightVariant = true;
}

const TRoleCase CaptureKnightCases[] = {
    {"NoKnightInReach", TwoKnights, SH_CAPTUREKNIGHT, "Ra1-a2 Ne7-c6", true, nullptr, 5},
    {"KnightInReach", TwoKnights, SH_CAPTUREKNIGHT, "Ra1-a8 Ne7-c8", false, nullptr, 5},
    {"TimeEnough", TwoKnights, SH_CAPTUREKNIGHT, "Ra1-a2 Ne7-c6", false, nullptr, 7},
    {"OnlyTheMateIsLeft", TwoKnights, SH_CAPTUREKNIGHT, "Ra1-a2", true, nullptr, 3},
    {"TwoKnightsTwoMoves", TwoKnights, SH_CAPTUREKNIGHT, "Ra1-a2", true, AllKnights, 5},
    {"OneHasFallen", "5n1k/8/8/8/8/8/8/K4R2", SH_CAPTUREKNIGHT, "Rf1:f8", false, nullptr, 3},
};

INSTANTIATE_TEST_SUITE_P(CaptureKnight, MaterialChecks, testing::ValuesIn(CaptureKnightCases),
                         CaseName);

const TRoleCase WorstMovesCases[] = {
    {"RookForNothing", "7k/8/8/8/8/8/7b/K4R2", NoGifts, "Rf1-f4", true},
    {"RookIsSafe", "7k/8/8/8/8/8/7b/K4R2", NoGifts, "Rf1-f3", false},
    {"RookThreatensMate", "7k/8/6K1/8/8/8/7b/5R2", NoGifts, "Rf1-f4", false},
    {"RookChecks", "5k2/8/8/8/8/8/7b/K6R", NoGifts, "Rh1-f1 Kf8-g8 Rf1-g1", false},
    {"RookIsCovered", "7k/8/8/8/8/6P1/7b/K4R2", NoGifts, "Rf1-f4", false},
};

INSTANTIATE_TEST_SUITE_P(WorstMoves, MaterialChecks, testing::ValuesIn(WorstMovesCases), CaseName);

// ---- Reductions, with made-up tables

using TAnswer = std::optional<TNodeResult>;

TAnswer NothingKnown(TChessboard&) {
    return std::nullopt;
}
TAnswer NeverWon(TChessboard&) {
    return ResultNoMate;
}
TAnswer WonWithoutPawns(TChessboard& board) {
    return board.m_whitePawns == 0 ? ResultMate : ResultNoMate;
}
TAnswer WonWithTwoBishops(TChessboard& board) {
    return board.m_whiteBishops == 2 && board.m_whitePawns == 0 ? ResultMate : ResultNoMate;
}

TEST(Reduction, IsLostWhenNoReducedPositionIsWon) {
    CHeuristicLine line("7k/8/8/8/8/8/P7/K1BR4", SH_REDUCTIONTOGLOBREGPOS);
    line.Play({"Rd1-d2", "Kh8-g8"});
    EXPECT_TRUE(IsReducedPositionLost(line.Board(), NeverWon));
    EXPECT_FALSE(IsReducedPositionLost(line.Board(), WonWithoutPawns));
    EXPECT_TRUE(IsReducedPositionLost(line.Board(), WonWithTwoBishops));
    EXPECT_FALSE(IsReducedPositionLost(line.Board(), NothingKnown));
}

TEST(Reduction, AsksOnlyForFewMenAndOnlyWhereThereIsSomethingToTakeOff) {
    CHeuristicLine many("7k/pppp4/8/8/8/8/P7/K1BR4", SH_REDUCTIONTOGLOBREGPOS);
    many.Play({"Rd1-d2", "Kh8-g8"});
    EXPECT_FALSE(IsReducedPositionLost(many.Board(), NeverWon));
    CHeuristicLine rook("7k/8/8/8/8/8/8/K2R4", SH_REDUCTIONTOGLOBREGPOS);
    rook.Play({"Rd1-d2", "Kh8-g8"});
    EXPECT_FALSE(IsReducedPositionLost(rook.Board(), NeverWon));
}

}  // namespace
}  // namespace tarnwick
