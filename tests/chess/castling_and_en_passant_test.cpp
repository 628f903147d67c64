#include <gtest/gtest.h>

#include <algorithm>

#include "chess/castling.h"
#include "chess/escape_check.h"
#include "chess/mate_in_one.h"
#include "support/board_line.h"
#include "support/case_name.h"

namespace tarnwick {
namespace {

using TTexts = std::vector<std::string>;

struct TCase {
    const char* name;
    const char* fen;
    TTexts line;  ///< Played before the question.
    const char* move;
    bool isPossible;
};

const TCase Cases[] = {
    {"RootAllowsWhatItsMenAllow", "4k3/8/8/8/8/8/8/R3K2R", {}, "0-0-0", true},
    {"KingThatCameHomeMayNotCastle",
     "4k2r/8/8/8/8/8/8/R3K2R",
     {"Ke1-e2", "Rh8-g8", "Ke2-e1", "Rg8-h8"},
     "0-0",
     false},
    {"RookThatCameHomeMayNotCastle",
     "4k3/8/8/8/8/8/8/R3K2R",
     {"Rh1-g1", "Ke8-d8", "Rg1-h1", "Kd8-e8"},
     "0-0",
     false},
    {"TheOtherRookStillMay",
     "4k3/8/8/8/8/8/8/R3K2R",
     {"Rh1-g1", "Ke8-d8", "Rg1-h1", "Kd8-e8"},
     "0-0-0",
     true},
    {"RookFromElsewhereOnTheHomeField",
     "4k3/8/8/8/8/8/8/4K1R1",
     {"Rg1-h1", "Ke8-d8"},
     "0-0",
     false},
    {"RookCapturedAtHomeAndReplaced",
     "4k2r/6P1/8/8/8/8/7r/K7",
     {"g7:h8B", "Rh2-h7", "Ka1-b1", "Rh7:h8", "Kb1-a1"},
     "0-0",
     false},
    {"BlackCastlesLongOverAnAttackedRookField",
     "r3k3/1R6/8/8/8/8/8/4K3",
     {"Ke1-f1"},
     "0-0-0",
     true},
    {"NotOutOfCheck", "4k3/8/8/8/4r3/8/8/R3K2R", {}, "0-0", false},
    {"NotThroughAnAttackedField", "4k3/8/8/8/5r2/8/8/R3K2R", {}, "0-0", false},
    {"NotIntoAnAttackedField", "4k3/8/8/8/6r1/8/8/R3K2R", {}, "0-0", false},
    {"NotOverAManBesideTheRook", "4k3/8/8/8/8/8/8/RN2K3", {}, "0-0-0", false},
    {"EnPassantAfterADoubleStep", "4k3/3p4/8/4P3/8/8/8/4K3", {"Ke1-e2", "d7-d5"}, "e5:d6", true},
    {"EnPassantNotInTheFirstMove", "4k3/8/8/3pP3/8/8/8/4K3", {}, "e5:d6", false},
    {"EnPassantNotAfterASingleStep",
     "4k3/8/3p4/4P3/8/8/8/4K3",
     {"Ke1-e2", "d6-d5"},
     "e5:d6",
     false},
    {"EnPassantNotAMoveLater",
     "4k3/3p4/8/4P3/8/8/8/4K3",
     {"Ke1-e2", "d7-d5", "Ke2-e3", "Ke8-e7"},
     "e5:d6",
     false},
    {"EnPassantNotByARookThatMovedTwoFields",
     "4k3/3r4/8/4P3/8/8/8/4K3",
     {"Ke1-e2", "Rd7-d5"},
     "e5:d6",
     false},
    {"EnPassantThatOpensTheRankOfTheKing",
     "4k3/3p4/8/K3P2r/8/8/8/8",
     {"Ka5-a4", "Ke8-f8", "Ka4-a5", "d7-d5"},
     "e5:d6",
     false},
    {"EnPassantThatOpensTheDiagonalOfTheCapturedPawn",
     "b5k1/3p4/8/4P3/8/5K2/8/8",
     {"Kf3-f2", "d7-d5", "Kf2-f1", "Kg8-f8"},
     "e5:d6",
     false},
    {"BlackEnPassantAlongThePinLine", "8/k7/8/8/3p4/8/4P3/K5B1", {"e2-e4"}, "d4:e3", true},
    {"EnPassantCaptureOfTheCheckingPawn",
     "8/3p4/8/4P3/2K5/8/8/7k",
     {"Kc4-b4", "Kh1-g1", "Kb4-c4", "d7-d5"},
     "e5:d6",
     true},
};

class CastlingAndEnPassant : public ::testing::TestWithParam<TCase> {};

TEST_P(CastlingAndEnPassant, IsPossibleOrNot) {
    const TCase& c = GetParam();
    CBoardLine line(c.fen);
    line.Play(c.line);
    const TTexts accepted = line.AcceptedMoves();
    EXPECT_EQ(std::count(accepted.begin(), accepted.end(), c.move), c.isPossible ? 1 : 0);
}

INSTANTIATE_TEST_SUITE_P(Moves, CastlingAndEnPassant, ::testing::ValuesIn(Cases), CaseName);

TEST(EnPassant, RefusedCaptureIsRefusedByTheMakeItself) {
    CBoardLine line("4k3/3p4/8/K3P2r/8/8/8/8");
    line.Play(TTexts{"Ka5-a4", "Ke8-f8", "Ka4-a5", "d7-d5"});
    EXPECT_EQ(
        line.Try({static_cast<TField>(FieldOf("e5")), static_cast<TField>(FieldOf("d6")), 0, 0}),
        MoveRefused);
}

TEST(Castling, MakeRefusesWhatTheGeneratorDoesNotList) {
    CBoardLine line("4k3/8/8/8/8/8/8/4K2R");
    line.Play(TTexts{"Rh1-g1", "Ke8-d8", "Rg1-h1", "Kd8-e8"});
    EXPECT_EQ(line.Try({E1, G1, 0, 0}), MoveRefused);
}

TEST(Castling, BlackRookIsFollowedToItsNewField) {
    CBoardLine line("r3k2r/8/8/8/8/8/P7/4K3", false);
    TChessboard& board = line.Board();
    board.m_heuristicFlags.Set(TMakeHeuristic::TrackedFields);
    board.m_trackedFields[0] = A8;
    board.m_trackedFields[1] = H8;
    ASSERT_EQ(line.Try({E8, G8, 0, 0}), MoveMade);
    EXPECT_EQ(line.Tried().m_trackedFields[0], A8);
    EXPECT_EQ(line.Tried().m_trackedFields[1], F8);
    ASSERT_EQ(line.Try({E8, C8, 0, 0}), MoveMade);
    EXPECT_EQ(line.Tried().m_trackedFields[0], D8);
}

TEST(EnPassant, CaptureCountsWithTheFieldOfThePawn) {
    CBoardLine line("4k3/3p4/8/4P3/8/8/8/4K3");
    line.Play(TTexts{"Ke1-e2", "d7-d5", "e5:d6"});
    const TChessboard& board = line.Board();
    EXPECT_EQ(BlackMenCaptured(board.m_captureState), 1);
    EXPECT_EQ(board.m_pThread->m_blackCaptured[0].code, BlackPawn);
    EXPECT_EQ(board.m_pThread->m_blackCaptured[0].field, FieldOf("d5"));
}

TEST(EnPassant, TwoLinesOpenedAtOnceAreADoubleCheck) {
    // The capture clears e5 for the rook and d5 for the bishop.
    CBoardLine line("8/3p4/4k3/4P3/8/8/8/K2BR3");
    line.Play(TTexts{"Bd1-b3", "d7-d5", "e5:d6"});
    EXPECT_EQ(line.Board().m_blackChecker, DoubleCheck);
}

}  // namespace
}  // namespace tarnwick
