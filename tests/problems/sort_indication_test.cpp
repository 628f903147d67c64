#include "problems/sort_indication.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "base/chess_exception.h"

#include "support/case_name.h"

namespace tarnwick {
namespace {

using ::testing::ThrowsMessage;

constexpr TField B2 = 9;
constexpr TField D5 = 35;

struct TReadItem {
    const char* name;
    const char* text;
    TSortIndication expected;
    const char* written;
};

class ReadItem : public ::testing::TestWithParam<TReadItem> {};

TEST_P(ReadItem, MeansWhatItSaysAndIsWrittenInOneForm) {
    EXPECT_EQ(ParseSortIndication(GetParam().text), GetParam().expected);
    const TSortIndications items = ParseSortIndications(GetParam().text);
    EXPECT_EQ(SortIndicationsToText(items), GetParam().written);
    EXPECT_EQ(ParseSortIndications(GetParam().written), items);
}

constexpr auto Any = TCaptureKind::Either;
INSTANTIATE_TEST_SUITE_P(
    Items, ReadItem,
    ::testing::Values(
        TReadItem{"TargetAlone", " d5 ", {.m_to = D5}, "d5"},
        TReadItem{"Figure", "Qd5", {.m_figure = WhiteQueen, .m_to = D5}, "Qd5"},
        TReadItem{"PolishFigure", "Sd5", {.m_figure = WhiteKnight, .m_to = D5}, "Nd5"},
        TReadItem{"BishopIsNoFile", "bB2", {.m_figure = WhiteBishop, .m_to = B2}, "Bb2"},
        TReadItem{"FileIsNoBishop", "B2-d5", {.m_from = B2, .m_to = D5}, "b2-d5"},
        TReadItem{"Capture",
                  "b2:d5",
                  {.m_from = B2, .m_to = D5, .m_capture = TCaptureKind::Capture},
                  "b2:d5"},
        TReadItem{"NoCapture",
                  "R>d5",
                  {.m_figure = WhiteRook, .m_to = D5, .m_capture = TCaptureKind::NoCapture},
                  "R>d5"},
        TReadItem{"HyphenWithoutFrom", "-d5", {.m_to = D5}, "d5"},
        TReadItem{"Check",
                  "Kd5+",
                  {.m_figure = WhiteKing, .m_to = D5, .m_check = TCheckKind::Single},
                  "Kd5+"},
        TReadItem{"DoubleCheck", "d5++", {.m_to = D5, .m_check = TCheckKind::Double}, "d5++"},
        TReadItem{"Promotion",
                  "a8H+",
                  {.m_to = A8, .m_check = TCheckKind::Single, .m_promotion = TypeQueen},
                  "a8Q+"},
        TReadItem{"NegatedWithNumber",
                  "~ 12. Pd5",
                  {.m_figure = WhitePawn, .m_to = D5, .m_bNegated = true, .m_moveNumber = 12},
                  "~12.Pd5"},
        TReadItem{"NumberZeroIsAnyMove", "0.d5", {.m_to = D5}, "d5"},
        TReadItem{"ShortCastling",
                  "2.0-0",
                  {.m_from = E1, .m_to = G1, .m_capture = Any, .m_moveNumber = 2},
                  "2.0-0"},
        TReadItem{"LongCastling",
                  "0-0-0+",
                  {.m_from = E1, .m_to = C1, .m_check = TCheckKind::Single},
                  "0-0-0+"},
        TReadItem{"KingsMoveKeepsItsLetter",
                  "Ke1-g1",
                  {.m_figure = WhiteKing, .m_from = E1, .m_to = G1},
                  "Ke1-g1"}),
    CaseName);

TEST(SortIndications, ItemsOfOneMoveStayInTheOrderOfTheText) {
    const char* text = "3.Qd5; ~b2; 3.a8; 1.Rb2";
    const TSortIndications items = ParseSortIndications(text);
    ASSERT_EQ(items.size(), 3U);
    EXPECT_EQ(items.at(3).size(), 2U);
    EXPECT_EQ(SortIndicationsToText(items), "~b2; 1.Rb2; 3.Qd5; 3.a8");
    EXPECT_EQ(ParseSortIndications("3.Qd5, ~b2,3.a8,\t1.Rb2"), items);
    EXPECT_TRUE(ParseSortIndications(" \t").empty());
}

struct TBadItem {
    const char* name;
    const char* text;
    const char* message;
};

class BadItem : public ::testing::TestWithParam<TBadItem> {};

TEST_P(BadItem, IsRefused) {
    EXPECT_THAT([] { ParseSortIndications(GetParam().text); },
                ThrowsMessage<ChessException>(GetParam().message));
}

#define INVALID "Invalid description of SortIndication"
INSTANTIATE_TEST_SUITE_P(
    Items, BadItem,
    ::testing::Values(TBadItem{"EmptyItem", "d5,,b2", INVALID},
                      TBadItem{"SeparatorAtTheEnd", "d5;", INVALID},
                      TBadItem{"OnlySigns", "~+", INVALID ": ~+"},
                      TBadItem{"FigureAlone", "Q", INVALID ": Q"},
                      TBadItem{"HalfCastling", "0-", INVALID ": 0-"},
                      TBadItem{"LongerCastling", "0-0-0-0", INVALID ": 0-0-0-0"},
                      TBadItem{"MixedSeparators", "d5;b2,a8", INVALID ": d5;b2"},
                      TBadItem{"TwoMovesInOne", "b2d5", INVALID ": b2d5"},
                      TBadItem{"NumberIsNoNumber", "x.d5", INVALID ": x.d5"},
                      TBadItem{"NumberTooLarge", "99999999999.d5", INVALID ": 99999999999.d5"},
                      TBadItem{"NegativeNumber", "-1.d5", INVALID ": -1.d5"},
                      TBadItem{"UnknownFigure", "Xd5", "Unknown figure letter: X"},
                      TBadItem{"UnknownPromotion", "a8x", "Unknown figure letter: x"},
                      TBadItem{"NothingBehindTheSign", "a8-", INVALID ": a8-"},
                      TBadItem{"NoField", "a9", "Error in String2Field() a9"}),
    CaseName);

}  // namespace
}  // namespace tarnwick
