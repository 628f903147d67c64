#include "chess/move_text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/chess_exception.h"

#include "notation_support.h"
#include "support/case_name.h"
#include "support/random_positions.h"

namespace tarnwick {
namespace {

using ::testing::ThrowsMessage;

TField FieldOf(std::string_view name) {
    return String2Field(name);
}

TEST(MoveText, MatchesTheRulesInRandomGames) {
    slow::CRandomPositions positions(slow::TestSeed());
    for (int i = 0; i < 400; ++i) {
        const auto game = slow::RandomGame(static_cast<std::uint64_t>(i), positions.Next(), 12);
        SCOPED_TRACE(positions.Story());
        for (const slow::TGameStep& step : game) {
            const TChessboard board = BoardOf(slow::PlacementText(step.before));
            const TMoveText read = ReadMoveText(step.text, step.before.isWhiteToMove);
            ASSERT_EQ(read.move.from, step.move.from) << step.text;
            ASSERT_EQ(read.move.to, step.move.to) << step.text;
            ASSERT_EQ(TypeOf(board.m_fields[read.move.from]), read.namedType) << step.text;
            ASSERT_EQ(MoveToDisplayText(read.move, board), step.text);
            const bool bCapture = step.text.find(':') != std::string::npos;
            ASSERT_EQ(MoveToFullText(read.move, board.m_fields[read.move.from], bCapture),
                      step.text);
        }
    }
}

TEST(MoveText, PassIsAHyphen) {
    EXPECT_EQ(MoveToFullText(MakePass(E1), WhiteKing, false), "-");
}

TEST(MoveText, ShowsDamagedCodesAsE) {
    EXPECT_EQ(MoveToFullText({A1, A8, 0, 0}, EmptyField, false), "Ea1-a8");
    EXPECT_EQ(MoveToFullText({A1, A8, 3, 0}, WhitePawn, true), "a1:a8E");
}

TEST(MoveText, MarksOfTheHeuristicsDoNotShow) {
    const TMove move{FieldOf("a7"), A8, TypeQueen | MarkBit | NearBestMark, 0};
    EXPECT_EQ(MoveToFullText(move, WhitePawn | MarkBit, false), "a7-a8Q");
}

// A mirrored castling is no castling any more, but the stored line still shows it as one.
TEST(MoveText, DisplayTellsCastlingByItsDirection) {
    const TChessboard board = BoardOf("4k3/8/8/8/8/8/8/R2K3R");
    EXPECT_EQ(MoveToDisplayText({D1, B1, 0, 0}, board), "0-0-0");
    EXPECT_EQ(MoveToDisplayText({D1, F1, 0, 0}, board), "0-0");
    EXPECT_EQ(MoveToFullText({D1, F1, 0, 0}, WhiteKing, false), "0-0-0");
}

struct TReadCase {
    const char* name;
    const char* text;
    bool bWhite;
    const char* expected;  ///< From field, to field, promotion letter if any.
};

class ReadableMove : public ::testing::TestWithParam<TReadCase> {};

TEST_P(ReadableMove, GivesFieldsAndPromotion) {
    const std::string expected = GetParam().expected;
    TMove move;
    ParseFullMove(move, GetParam().text, GetParam().bWhite);
    EXPECT_EQ(move.from, FieldOf(expected.substr(0, 2)));
    EXPECT_EQ(move.to, FieldOf(expected.substr(2, 2)));
    EXPECT_EQ(move.promotion, expected.size() == 5 ? FigureCodeFromLetter(expected[4]) : 0);
}

INSTANTIATE_TEST_SUITE_P(Texts, ReadableMove,
                         ::testing::Values(TReadCase{"BlanksAround", " \te2-e4\r\n", true, "e2e4"},
                                           TReadCase{"AnySeparator", "e2xe4", true, "e2e4"},
                                           TReadCase{"UpperCaseFields", "E2-E4", true, "e2e4"},
                                           TReadCase{"PolishQueen", "Ha1-a8", true, "a1a8"},
                                           TReadCase{"LowerCaseBishopOnB", "bb1-c2", true, "b1c2"},
                                           TReadCase{"PawnLetter", "Pe2-e4", true, "e2e4"},
                                           TReadCase{"PolishPromotion", "b2:a1s", false, "b2a1N"},
                                           TReadCase{"LetterAndPromotion", "pa7-a8W", true,
                                                     "a7a8R"},
                                           TReadCase{"WhiteShort", "0-0", true, "e1g1"},
                                           TReadCase{"BlackShort", " 0-0", false, "e8g8"},
                                           TReadCase{"WhiteLong", "0-0-0", true, "e1c1"},
                                           TReadCase{"BlackLong", "0-0-0 ", false, "e8c8"}),
                         CaseName);

struct TRefusedMove {
    const char* name;
    std::string text;
    const char* message;
};

class RefusedMove : public ::testing::TestWithParam<TRefusedMove> {};

TEST_P(RefusedMove, ThrowsAndLeavesTheMoveAlone) {
    TMove move{A1, H8, TypeRook, 1};
    EXPECT_THAT([&] { ParseFullMove(move, GetParam().text, true); },
                ThrowsMessage<ChessException>(GetParam().message));
    EXPECT_TRUE(move.SameAs({A1, H8, TypeRook, 0}) && move.fourth == 1);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, RefusedMove,
    ::testing::Values(
        TRefusedMove{"Empty", "", "Empty string"}, TRefusedMove{"Blanks", "  ", "Empty string"},
        TRefusedMove{"Pass", "-", "Improper string length"},
        TRefusedMove{"Short", "Re8", "Improper string length"},
        TRefusedMove{"DigitInFront", "1e2-e4", "Improper string length"},
        TRefusedMove{"CheckMark", "e2-e4+", "Improper string length"},
        TRefusedMove{"LongSeparator", "e2\u2013e4", "Improper string length"},
        TRefusedMove{"LettersO", "O-O", "Unknown figure letter: O"},
        TRefusedMove{"UnknownFigure", "Xe2-e4", "Improper string length"},
        TRefusedMove{"UnknownPromotion", "a7-a8x", "Unknown figure letter: x"},
        TRefusedMove{"PromotionToKing", "a7-a8K", "Improper full description of move"},
        TRefusedMove{"FileOutside", "i2-e4", "Improper full description of move"},
        TRefusedMove{"RankOutside", "e2-e9", "Improper full description of move"},
        TRefusedMove{"NulBytes", std::string("e2\0e\0", 5), "Improper full description of move"},
        TRefusedMove{"Huge", std::string(1'000'000, 'e') + '4', "Improper string length"}),
    CaseName);

}  // namespace
}  // namespace tarnwick
