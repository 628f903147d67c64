#include "engine/heuristics/position_tests.h"

#include <gtest/gtest.h>

#include "solve_support.h"
#include "support/case_name.h"

namespace tarnwick {
namespace {

constexpr int Plies = 25;

/// A question, a position in which the answer is yes, and a near one in which it is no.
struct TQuestion {
    const char* name;
    bool (*ask)(const TChessboard& board);
    const char* yes;
    const char* no;
};

class PositionTests : public testing::TestWithParam<TQuestion> {};

TEST_P(PositionTests, TellPositionsApart) {
    SKIP_IF_MISSING(GetParam().yes);
    SKIP_IF_MISSING(GetParam().no);
    EXPECT_TRUE(GetParam().ask(CSearchLine(GetParam().yes, Plies).Root()));
    EXPECT_FALSE(GetParam().ask(CSearchLine(GetParam().no, Plies).Root()));
}

constexpr const char* TwoKnights = "9-10.02";
constexpr const char* QueenAndPawns = "21-30.10";
constexpr const char* QueenNearRook = "6-8.04";
constexpr const char* KnightAtHome = "16-20.05";
constexpr const char* LockedIn = "9-10.11";
constexpr const char* PawnRace = "21-30.15";
constexpr const char* QueenDuel = "16-20.12";
constexpr const char* RookAndKnight = "6-8.13";
constexpr const char* RookPawns = "6-8.21";

INSTANTIATE_TEST_SUITE_P(
    OfKing, PositionTests,
    testing::Values(
        TQuestion{"Held", IsBlackKingHeld, "6-8.24", QueenDuel},
        TQuestion{"HeldInTheCentre", IsBlackKingHeld, "9-10.20", "6-8.05"},
        TQuestion{"HasField", HasKingField, KnightAtHome, LockedIn},
        TQuestion{"NearStalemate", IsBlackNearStalemate, TwoKnights, RookPawns},
        TQuestion{"NearStalemateByPin", IsBlackNearStalemate, "kn5R/8/1K6/8/8/8/8/8",
                  "k1n5/8/1K6/8/8/8/7R/8"},
        TQuestion{"InNet", IsMatingNet, QueenAndPawns, TwoKnights},
        TQuestion{"InNetButForTheCheck", IsMatingNet, "k7/8/1K6/8/8/8/8/7R",
                  "k7/8/1K6/8/8/8/8/6B1"},
        TQuestion{"WithinExtendedEdge", CanHoldWithinExtendedEdge, KnightAtHome, "9-10.17"},
        TQuestion{"CoveredByMen", IsKingCoveredByMen, LockedIn, KnightAtHome},
        TQuestion{"CoveringMenBlocked", AreCoveringMenBlocked, "9-10.17", QueenNearRook},
        TQuestion{"AreaHeldByFigures", DoFiguresHoldKingArea, RookAndKnight, KnightAtHome},
        TQuestion{"KeyFigureNeeded",
                  [](const TChessboard& board) { return IsKeyFigureNeededInCorner(board, H1); },
                  "8/8/8/8/4B3/8/p1K5/kr5R", "8/8/8/8/8/4B3/p1K5/kr5R"},
        TQuestion{"KeyFigureAlone",
                  [](const TChessboard& board) { return IsKeyFigureNeededInCorner(board, H1); },
                  "N7/2P5/1P6/8/8/8/p1K5/kr5R", "N7/2P5/8/8/8/8/p1K5/kr5R"},
        // After Ra6 each move of Black's lets in Rxa7 or b7.
        TQuestion{"Zugzwang", IsZugzwangPosition, "kbK5/pp6/RP6/8/8/8/8/8",
                  "kbK5/pp6/1P6/8/8/8/8/R7"}),
    CaseName);

INSTANTIATE_TEST_SUITE_P(
    OfQueen, PositionTests,
    testing::Values(
        TQuestion{"MatingLines", [](const TChessboard& b) { return CountMatingLines(b) >= 2; },
                  QueenNearRook, "9-10.07"},
        TQuestion{"MatingMoves", [](const TChessboard& b) { return CountMatingMoves(b) >= 2; },
                  QueenNearRook, QueenAndPawns},
        TQuestion{"HeldByRook", IsMatingFieldHeldByRook, "6rk/8/7K/8/8/6Q1/8/8",
                  "5b1k/8/7K/8/8/6Q1/8/8"},
        TQuestion{"AgainstMen", IsQueenAgainstMen, "21-30.21", QueenAndPawns},
        TQuestion{"ChecksSafely", CanQueenCheckSafely, QueenNearRook, "k7/8/8/8/8/8/PP6/QK6"},
        TQuestion{"NearKing", IsQueenNearKing, QueenNearRook, QueenAndPawns},
        TQuestion{"SingleQueen", IsSingleQueenPosition, "51+.04",
                  "8/1p6/4k3/8/3p1Q2/3p4/pp1p4/rrbK3n"},
        TQuestion{"SingleQueenWithHelp", IsSingleQueenPosition, "9-10.07",
                  "8/P7/8/8/6k1/8/2Qp1pp1/3Kbrrb"}),
    CaseName);

INSTANTIATE_TEST_SUITE_P(
    OfMaterial, PositionTests,
    testing::Values(
        TQuestion{"QueenEnPrise", [](const TChessboard& b) { return CountLosableQueens(b) == 1; },
                  "6-8.10", QueenNearRook},
        TQuestion{"BlackAhead", IsBlackAhead, PawnRace, RookAndKnight},
        TQuestion{"FiguresToSpare", HasFiguresToSpare, "6-8.05", RookAndKnight},
        TQuestion{"OppositeBishops", AreBishopsOpposite, "16-20.01",
                  "8/1p6/kB6/p1K5/1b6/3p2N1/3P4/8"},
        TQuestion{"SeparatedBishop", IsBlackBishopSeparated, "7k/6b1/8/4p3/4P3/8/8/K4B2",
                  "7k/6b1/8/4p3/4P3/P7/8/K4B2"},
        TQuestion{"BishopPair", HasBishopPair, "9-10.19", RookPawns},
        TQuestion{"QueenAtStake", IsQueenAtStake, QueenDuel, QueenAndPawns},
        TQuestion{"AdvancedPawn", HasAdvancedWhitePawn, PawnRace, RookPawns},
        TQuestion{"AdvancedPawnTakes", HasAdvancedWhitePawn, "3nk3/4P3/8/8/8/8/8/K7",
                  "4k3/4P3/8/8/8/8/8/K7"},
        TQuestion{"AdvancedBlackPawn",
                  [](const TChessboard& b) { return FindAdvancedBlackPawn(b) != NoField; },
                  PawnRace, "8/4P2k/5Kp1/8/8/3b4/3p4/R7"},
        TQuestion{"PromotionGuarded", ArePromotionFieldsGuarded, "6-8.24", RookPawns},
        TQuestion{"MinorDuel", IsMinorDuel, "8/8/1p1p1p1p/1P1P1P1P/8/5n2/2B5/k1K5",
                  "8/8/1p1p1p1p/1P1P1P2/8/5n2/2B5/k1K5"},
        TQuestion{"SweepingRook", IsSweepingRookPosition, "16-20.25",
                  "3K1R2/6p1/8/4B1p1/q5pb/6pr/6kp/7b"}),
    CaseName);

TEST(PositionTestValues, CornerMovesCountWaysOut) {
    SKIP_IF_MISSING(TwoKnights);
    EXPECT_EQ(CountCornerMoves(CSearchLine(TwoKnights, Plies).Root()), 2);
    EXPECT_EQ(CountCornerMoves(CSearchLine(QueenAndPawns, Plies).Root()), 1);
    EXPECT_EQ(CountCornerMoves(CSearchLine("6rk/7p/8/8/8/8/8/K7", Plies).Root()), 3);
    EXPECT_EQ(CountCornerMoves(CSearchLine(QueenDuel, Plies).Root()), 0);
}

TEST(PositionTestValues, LockedMenAreWorthNothing) {
    SKIP_IF_MISSING("9-10.07");
    const auto worth = [](const char* fen) {
        return BlackPoints(CSearchLine(fen, Plies).Root()) -
               ImmovableBlackPoints(CSearchLine(fen, Plies).Root());
    };
    EXPECT_EQ(worth("9-10.07"), 0);
    EXPECT_EQ(worth("8/n7/8/8/6k1/8/2Qp1pp1/3Kbrrb"), 3);
}

TEST(PositionTestValues, KeyPinNamesBothMenAndNeedsAStillKing) {
    SKIP_IF_MISSING("21-30.20");
    const TKeyPin pin = FindKeyPin(CSearchLine("21-30.20", Plies).Root());
    EXPECT_EQ(pin.keyField, FieldAt(0, 2));
    EXPECT_EQ(pin.pinnedField, FieldAt(1, 1));
    // The pinned rook takes its pinner; and here the king has a field.
    EXPECT_EQ(FindKeyPin(CSearchLine("8/8/8/8/8/8/p1K5/kr5R", Plies).Root()).keyField, NoField);
    EXPECT_EQ(FindKeyPin(CSearchLine("8/p7/p7/p7/8/Bp6/1n1N4/2k1K3", Plies).Root()).keyField,
              NoField);
}

TEST(PositionTestValues, RegionGrowsWithSteps) {
    CSearchLine line("7k/8/8/8/8/8/R7/K5R1", Plies);  // Cut off on the h-file.
    EXPECT_EQ(KingRegion(line.Root(), 1), FieldBit(FieldAt(7, 6)));
    EXPECT_EQ(KingRegion(line.Root(), 3),
              FieldBit(FieldAt(7, 6)) | FieldBit(FieldAt(7, 5)) | FieldBit(FieldAt(7, 4)));
}

}  // namespace
}  // namespace tarnwick
