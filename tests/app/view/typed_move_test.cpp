#include "app/view/typed_move.h"

#include <gtest/gtest.h>

#include "support/board_line.h"
#include "support/case_name.h"

namespace tarnwick {
namespace {

/// Two rooks, a bishop, b- and e-pawns, castling on both sides, a pawn about to promote.
constexpr const char* Position = "6k1/P7/8/3p4/4P3/8/1P4B1/R3K2R";

struct TCase {
    const char* name;
    const char* typed;
    const char* expected;  ///< The moves it spells, "..." when more may follow.
};

class TypedMove : public ::testing::TestWithParam<TCase> {};

TEST_P(TypedMove, MeansTheMovesThatItSpells) {
    CBoardLine line(Position);
    const TTypedMoves read = ReadTypedMove(line.Board(), GetParam().typed);
    std::string found;
    for (const std::string& text :
         line.Texts(read.exact.data(), static_cast<int>(read.exact.size()))) {
        found += text + " ";
    }
    EXPECT_EQ(found + (read.bMayContinue ? "..." : ""), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, TypedMove,
    ::testing::Values(
        TCase{"Coordinates", "b2b4", "b2-b4 "}, TCase{"FullNotation", "Ke1-e2", "Ke1-e2 "},
        TCase{"ShortPawnMove", "b4", "b2-b4 "}, TCase{"PawnTakes", "exd5", "e4:d5 "},
        TCase{"PawnTakesNeedsItsFile", "d5", ""}, TCase{"TwoRooks", "Rf1", "Rh1-f1 "},
        TCase{"SmallFigureLetter", "rf1", "Rh1-f1 "}, TCase{"PolishBishop", "Gf3", "Bg2-f3 "},
        TCase{"CapitalIsTheBishop", "Bf3", "Bg2-f3 "}, TCase{"SmallIsTheFile", "b3", "b2-b3 "},
        TCase{"ShortCastling", "0-0", "0-0 ..."},
        TCase{"LongCastlingWithLetters", "O-O-O", "0-0-0 "},
        TCase{"CastlingByTheKing", "e1g1", "0-0 "},
        TCase{"PromotionWaitsForTheFigure", "a8", "..."}, TCase{"Promotion", "a8=N", "a7-a8N "},
        TCase{"PromotionInSmallLetters", "a7a8b", "a7-a8B "}, TCase{"IllegalMove", "e1e3", ""},
        TCase{"Beginning", "e1", "..."}, TCase{"Nonsense", "z9\xFF", ""}),
    CaseName);

TEST(TypedMoves, TwoMenThatCanGoThereMustBeTold) {
    CBoardLine line("6k1/8/8/8/R6R/8/8/4K3");
    EXPECT_EQ(ReadTypedMove(line.Board(), "Re4").exact.size(), 2U);
    EXPECT_FALSE(ReadTypedMove(line.Board(), "Re4").IsDecided());
    EXPECT_TRUE(ReadTypedMove(line.Board(), "Rae4").IsDecided());
    EXPECT_TRUE(ReadTypedMove(line.Board(), "Ra5").IsDecided());
    EXPECT_TRUE(ReadTypedMove(line.Board(), "Nf3").IsHopeless());
}

}  // namespace
}  // namespace tarnwick
