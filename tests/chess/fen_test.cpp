#include "chess/fen.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/chess_exception.h"

#include "chess/board_stack.h"
#include "chess/checked_move.h"
#include "support/case_name.h"
#include "support/random_positions.h"

namespace tarnwick {
namespace {

using ::testing::ThrowsMessage;

constexpr const char* CastlingHome = "r3k2r/8/8/8/8/8/8/R3K2R";

struct TReading {
    bool bRead = false;
    bool bCastlingWithheld = false;
    bool bEnPassantGiven = false;
    std::string placement;
};

TReading Read(std::string_view text) {
    TReading reading;
    TChessboard board = EmptyChessboard();
    reading.bRead = ReadFen(board, text, reading.bCastlingWithheld, reading.bEnPassantGiven);
    reading.placement = WriteFen(board, true);
    return reading;
}

struct TRefusedFen {
    const char* name;
    std::string text;
};

class RefusedFen : public ::testing::TestWithParam<TRefusedFen> {};

TEST_P(RefusedFen, IsNoFenAndLeavesTheBoardAlone) {
    TChessboard board = EmptyChessboard();
    bool bWithheld = false;
    bool bEnPassant = false;
    ASSERT_TRUE(ReadFen(board, CastlingHome, bWithheld, bEnPassant));
    EXPECT_FALSE(ReadFen(board, GetParam().text, bWithheld, bEnPassant));
    EXPECT_EQ(WriteFen(board, true), CastlingHome);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, RefusedFen,
    ::testing::Values(TRefusedFen{"Empty", ""}, TRefusedFen{"OnlyBlanks", " \t\n "},
                      TRefusedFen{"NoSlash", "k7888888K8"},
                      TRefusedFen{"SevenRows", "k7/8/8/8/8/8/K7"},
                      TRefusedFen{"RowOfNine", "k8/8/8/8/8/8/8/K7"},
                      TRefusedFen{"RowOfNineByItsMan", "k7/8/8/8/8/8/8/7KQ"},
                      TRefusedFen{"RowOfSeven", "k6/8/8/8/8/8/8/K7"},
                      TRefusedFen{"DigitNine", "9/8/8/8/8/8/8/K6k"},
                      TRefusedFen{"DigitZero", "k70/8/8/8/8/8/8/K7"},
                      TRefusedFen{"UnknownLetter", "k6x/8/8/8/8/8/8/K7"},
                      TRefusedFen{"Brace", "k7/8/8/8/8/8/8/K7{"},
                      TRefusedFen{"BlankInside", "k7/8/8/8 /8/8/8/K7"},
                      TRefusedFen{"NulByte", std::string("k7/8/8/\0/8/8/8/8/K7", 19)},
                      TRefusedFen{"NotAscii", "k7/8/8/8/8/8/8/K6\xC5\x81"},
                      TRefusedFen{"Huge", std::string(1'000'000, '8')},
                      TRefusedFen{"HugeRowOfMen", "k" + std::string(1'000'000, 'Q')}),
    CaseName);

TEST(ReadFen, RefusesEveryTruncatedPlacement) {
    const std::string text = "r3k2r/pppq1ppp/8/8/8/8/PPPQ1PPP/R3K2R";
    for (std::size_t length = 0; length < text.size(); ++length) {
        EXPECT_FALSE(Read(text.substr(0, length)).bRead) << length;
    }
    EXPECT_TRUE(Read(text).bRead);
}

TEST(ReadFen, DoesNotLookBehindTheEighthRow) {
    EXPECT_EQ(Read("k7/8/8/8/8/8/8/K7/8/8").placement, "k7/8/8/8/8/8/8/K7");
    EXPECT_EQ(Read("k7/8/8/8/8/8/8/K7, mate in 3").placement, "k7/8/8/8/8/8/8/K7");
}

TEST(ReadFen, ReadsPolishLettersAndAddsUpDigits) {
    EXPECT_EQ(Read(" gswhk3/8/8/44/8/8/8/GSWHK12\r\n").placement, "bnrqk3/8/8/8/8/8/8/BNRQK3");
}

TEST(ReadFen, PassesOnWhyMenAreNoPosition) {
    const auto read = [](const char* text) { return [text] { Read(text); }; };
    EXPECT_THAT(
        read("k6p/8/8/8/8/8/8/K7"),
        ThrowsMessage<ChessException>("Pawns cannot occupy 1st nor 8th line of the chessboard."));
    EXPECT_THAT(read("8/8/8/8/8/8/8/K7"),
                ThrowsMessage<ChessException>("Illegal number of kings."));
    EXPECT_THAT(read("kK6/8/8/8/8/8/8/8"), ThrowsMessage<ChessException>("Both kings attacked."));
}

struct TFlagsCase {
    const char* name;
    const char* text;
    bool bCastlingWithheld;
    bool bEnPassantGiven;
};

class FenFlags : public ::testing::TestWithParam<TFlagsCase> {};

TEST_P(FenFlags, TellWhatWillNotBeConsidered) {
    const TReading reading = Read(GetParam().text);
    ASSERT_TRUE(reading.bRead);
    EXPECT_EQ(reading.bCastlingWithheld, GetParam().bCastlingWithheld);
    EXPECT_EQ(reading.bEnPassantGiven, GetParam().bEnPassantGiven);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, FenFlags,
    ::testing::Values(
        TFlagsCase{"PlacementAlone", "r3k2r/8/8/8/8/8/8/R3K2R", false, false},
        TFlagsCase{"AllMarks", "r3k2r/8/8/8/8/8/8/R3K2R w KQkq - 0 1", false, false},
        TFlagsCase{"Hyphen", "r3k2r/8/8/8/8/8/8/R3K2R w - - 0 1", true, false},
        TFlagsCase{"SideAlone", "r3k2r/8/8/8/8/8/8/R3K2R w", true, false},
        TFlagsCase{"OneMarkMissing", "r3k2r/8/8/8/8/8/8/R3K2R w KQq - 0 1", true, false},
        TFlagsCase{"MissingMarkOfNoRook", "r3k2r/8/8/8/8/8/8/R3K3 w Qkq - 0 1", false, false},
        TFlagsCase{"KingNotAtHome", "4k3/8/8/8/8/8/8/R2K3R w - - 0 1", false, false},
        TFlagsCase{"EnPassantField", "4k3/8/8/3pP3/8/8/8/4K3 w - d6 0 1", false, true},
        TFlagsCase{"ManyBlanks", "r3k2r/8/8/8/8/8/8/R3K2R  b\t KQkq   e3", false, true}),
    CaseName);

TEST(ReadFen, ReadsBlackToMoveAsWhiteToMove) {
    TChessboard board = EmptyChessboard();
    bool bWithheld = false;
    bool bEnPassant = false;
    ASSERT_TRUE(ReadFen(board, "4k3/8/8/8/8/8/8/4K3 b - - 7 31", bWithheld, bEnPassant));
    EXPECT_EQ(WriteFen(board, false), "4k3/8/8/8/8/8/8/4K3 w - - 0 1");
}

TEST(WriteFen, TellsTheStateThatTheLineOfPlayLeaves) {
    TBoardStack stack;
    TChessboard root = EmptyChessboard();
    bool bWithheld = false;
    bool bEnPassant = false;
    ASSERT_TRUE(ReadFen(root, "r3k2r/3p4/8/8/8/8/4P3/R3K2R", bWithheld, bEnPassant));
    root.m_shPlies = root.m_shRootPlies = 21;
    root.m_pThread = &stack;
    stack.m_pRootBoard = &root;
    TChessboard* board = &root;
    const auto play = [&](const char* move) {
        board = MakeMoveFromText(*board, move);
        return WriteFen(*board, false);
    };
    EXPECT_EQ(play("e2-e4"), "r3k2r/3p4/8/8/4P3/8/8/R3K2R b KQkq e3 0 1");
    EXPECT_EQ(play("d7-d5"), "r3k2r/8/8/3p4/4P3/8/8/R3K2R w KQkq d6 0 2");
    EXPECT_EQ(play("Rh1:h8"), "r3k2R/8/8/3p4/4P3/8/8/R3K3 b Qq - 0 2");
    EXPECT_EQ(play("Ke8-e7"), "r6R/4k3/8/3p4/4P3/8/8/R3K3 w Q - 0 3");
    EXPECT_EQ(play("e4-e5"), "r6R/4k3/8/3pP3/8/8/8/R3K3 b Q - 0 3");
    EXPECT_EQ(play("Ke7-e6"), "r6R/8/4k3/3pP3/8/8/8/R3K3 w Q - 0 4");
    EXPECT_EQ(play("Ke1-d1"), "r6R/8/4k3/3pP3/8/8/8/R2K4 b - - 0 4");
    EXPECT_EQ(play("Ke6-f5"), "r6R/8/8/3pPk2/8/8/8/R2K4 w - - 0 5");
    EXPECT_EQ(play("Kd1-e1"), "r6R/8/8/3pPk2/8/8/8/R3K3 b - - 0 5");
}

TEST(Fen, ReadingGivesBackWhatWasWritten) {
    slow::CRandomPositions positions(slow::TestSeed(), {.maxMen = 20});
    for (int i = 0; i < 3000; ++i) {
        const std::string placement = positions.Next();
        SCOPED_TRACE(positions.Story());
        ASSERT_EQ(Read(placement).placement, placement);
        TChessboard board = EmptyChessboard();
        bool bWithheld = true;
        bool bEnPassant = true;
        ASSERT_TRUE(ReadFen(board, placement, bWithheld, bEnPassant));
        const TReading reading = Read(WriteFen(board, false));
        ASSERT_TRUE(reading.bRead && !reading.bCastlingWithheld && !reading.bEnPassantGiven);
        ASSERT_EQ(reading.placement, placement);
    }
}

TEST(FieldText, NamesAndNumbersMatch) {
    for (int field = 0; field < FieldCount; ++field) {
        EXPECT_EQ(String2Field(FieldName(field)), field);
    }
    EXPECT_EQ(String2Field("H8 and more"), H8);
    for (const char* text : {"", "a", "i1", "a0", "a9", "1a", "@1", "`1"}) {
        EXPECT_THAT([text] { String2Field(text); },
                    ThrowsMessage<ChessException>(std::string("Error in String2Field() ") + text));
    }
    EXPECT_THAT([] { String2Field("\xFF\xFE"); },
                ThrowsMessage<ChessException>("Error in String2Field() \uFFFD\uFFFD"));
}

TEST(FigureLetter, UnknownOneIsQuoted) {
    EXPECT_EQ(FigureCodeFromLetter('h'), TypeQueen);
    EXPECT_THAT([] { FigureCodeFromLetter('X'); },
                ThrowsMessage<ChessException>("Unknown figure letter: X"));
    EXPECT_THAT([] { FigureCodeFromLetter('\xC5'); },
                ThrowsMessage<ChessException>("Unknown figure letter: \uFFFD"));
}

}  // namespace
}  // namespace tarnwick
