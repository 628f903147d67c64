#include "chess/line_history.h"

#include <gtest/gtest.h>

#include "support/board_line.h"

namespace tarnwick {
namespace {

TEST(LineHistory, PromotedFigureIsTracedThroughItsMoves) {
    CBoardLine line("7k/P7/8/8/8/8/1p4p1/N3K2R");
    EXPECT_FALSE(IsPromotedFigure(line.Board(), FieldOf("a1"))) << "no line of play at the root";
    line.Play({"a7-a8R", "Kh8-g7", "Ra8-b8", "b2:a1Q"});
    EXPECT_TRUE(IsPromotedFigure(line.Board(), FieldOf("b8")));
    EXPECT_TRUE(IsPromotedFigure(line.Board(), FieldOf("a1")));
    EXPECT_FALSE(IsPromotedFigure(line.Board(), FieldOf("h1")));
    EXPECT_FALSE(IsPromotedFigure(line.Board(), FieldOf("g2"))) << "a pawn is not promoted";
    EXPECT_FALSE(IsPromotedFigure(line.Board(), FieldOf("c5"))) << "an empty field";
    EXPECT_EQ(OriginalFieldOf(line.Board(), FieldOf("b8")), NoField);
    EXPECT_EQ(OriginalFieldOf(line.Board(), FieldOf("g7")), FieldOf("h8"));
    EXPECT_EQ(OriginalFieldOf(line.Board(), FieldOf("c5")), NoField);
}

TEST(LineHistory, ManOnTheFieldOfACapturedManIsItsOwn) {
    CBoardLine line("7k/8/8/8/8/8/1p6/N1B1K2R");
    line.Play({"Rh1-g1", "b2:a1Q", "Ke1-e2", "Qa1:c1", "Rg1:c1"});
    EXPECT_FALSE(IsPromotedFigure(line.Board(), FieldOf("c1")));
    EXPECT_EQ(OriginalFieldOf(line.Board(), FieldOf("c1")), FieldOf("h1"));
}

TEST(LineHistory, CastledRookComesFromItsCorner) {
    CBoardLine line("r3k3/8/8/8/8/8/8/4K2R");
    line.Play({"0-0", "0-0-0", "Rf1-f7"});
    EXPECT_EQ(OriginalFieldOf(line.Board(), FieldOf("f7")), FieldOf("h1"));
    EXPECT_EQ(OriginalFieldOf(line.Board(), FieldOf("d8")), FieldOf("a8"));
    EXPECT_EQ(OriginalFieldOf(line.Board(), FieldOf("c8")), FieldOf("e8"));
    EXPECT_FALSE(IsPromotedFigure(line.Board(), FieldOf("d8")));
}

TEST(LineHistory, PassMovesNobody) {
    CBoardLine line("7k/8/8/8/8/8/8/N3K3");
    TChessboard* next = CopyToNextSlot(line.Board());
    ASSERT_TRUE(PassWhite(*next));
    EXPECT_EQ(OriginalFieldOf(*next, FieldOf("e1")), FieldOf("e1"));
    EXPECT_EQ(OriginalFieldOf(*next, FieldOf("a1")), FieldOf("a1"));
}

TEST(RepetitionTest, KnightThatReturnsAfterACaptureRepeats) {
    CBoardLine line("7k/8/8/8/8/r7/B7/N3K3");
    line.Play({"Ke1-f1", "Ra3:a2", "Na1-b3", "Kh8-g8", "Nb3-a1"});
    line.Play({"Kg8-h8"});
    EXPECT_TRUE(HasPositionRepeated(line.Board(), 2));
    EXPECT_FALSE(HasPositionRepeated(line.Board(), 3)) << "fewer moves lie between";
}

TEST(RepetitionTest, ChecksCapturesAndOtherMenBreakTheRow) {
    CBoardLine changed("7k/8/8/8/8/r7/B7/N3K3");
    changed.Play({"Ke1-f1", "Ra3:a2", "Na1-b3", "Kh8-g8", "Nb3-a1", "Kg8-g7"});
    EXPECT_FALSE(HasPositionRepeated(changed.Board(), 2)) << "the black king stands elsewhere";

    CBoardLine noCapture("7k/8/8/8/8/r7/B7/N3K3");
    noCapture.Play({"Na1-c2", "Ra3-a4", "Nc2-a1", "Ra4-a3"});
    EXPECT_FALSE(HasPositionRepeated(noCapture.Board(), 2)) << "nothing was taken before";

    CBoardLine check("6k1/8/8/8/8/r3N3/B7/4K3");
    check.Play({"Ke1-f1", "Ra3:a2", "Ne3-f5", "Kg8-h8", "Nf5-h6", "Ra2-b2", "Nh6-f7"});
    check.Play({"Kh8-g8", "Nf7-h6", "Kg8-h8", "Nh6-f5", "Rb2-a2", "Nf5-e3", "Kh8-g8"});
    EXPECT_FALSE(HasPositionRepeated(check.Board(), 2)) << "White gave check on the way";
}

}  // namespace
}  // namespace tarnwick
