#include "app/view/move_drag.h"

#include <gtest/gtest.h>

#include "chess/legal_moves.h"
#include "support/board_line.h"
#include "support/random_positions.h"

namespace tarnwick {
namespace {

/// White: Ke1, Ra1, Pa7, Pe2; Black: Kc7.
constexpr const char* Promotion = "8/P1k5/8/8/8/8/4P3/R3K3";

TFieldSet Fields(const std::vector<std::string>& names) {
    TFieldSet set = 0;
    for (const std::string& name : names) {
        set |= FieldBit(FieldOf(name));
    }
    return set;
}

/// A move as text, for expectations that can be read.
std::string Text(const std::optional<TMove>& move) {
    if (!move) {
        return "none";
    }
    const TFigureCode type = move->PromotionType();
    const auto name = [](int field) {
        return std::string{static_cast<char>('a' + FileOf(field)),
                           static_cast<char>('1' + RankOf(field))};
    };
    return name(move->from) + name(move->to) +
           (type == 0 ? "" : std::string(1, CodeToLetter[WhiteFlag | type]));
}

class MoveDrag : public ::testing::Test {
  protected:
    void Show(const std::string& fen, bool bWhiteToMove = true) {
        m_line.Restart(slow::FromFen(fen, bWhiteToMove));
        m_drag.SetBoard(m_line.Board(), true);
    }
    TDragStep Click(const std::string& field) {
        m_drag.Press(FieldOf(field));
        return m_drag.Release(FieldOf(field));
    }
    TDragStep Drag(const std::string& from, const std::string& to) {
        m_drag.Press(FieldOf(from));
        m_drag.Hover(FieldOf(to));
        return m_drag.Release(FieldOf(to));
    }

    CBoardLine m_line{Promotion};
    CMoveDrag m_drag;
};

TEST_F(MoveDrag, DraggingTwoClicksAndTheKeyboardMakeTheSameMove) {
    Show(Promotion);
    EXPECT_EQ(Text(Drag("e2", "e4").move), "e2e4");
    EXPECT_EQ(Text(Click("e2").move), "none");
    EXPECT_EQ(Text(Click("e4").move), "e2e4");

    const TBoardGeometry geometry;
    m_drag.PutCursor(FieldOf("e2"));
    m_drag.ActivateCursor();
    m_drag.MoveCursor(geometry, TBoardDirection::Up);
    m_drag.MoveCursor(geometry, TBoardDirection::Up);
    EXPECT_EQ(Text(m_drag.ActivateCursor().move), "e2e4");
    EXPECT_EQ(m_drag.SelectedField(), NoFieldUnderMouse);
}

TEST_F(MoveDrag, MarksTellWhetherTheManMayGoThere) {
    Show(Promotion);
    EXPECT_EQ(m_drag.Press(FieldOf("e2")).changed, Fields({"e2", "e3", "e4"}))
        << "the man and where it may go";
    EXPECT_EQ(m_drag.Hover(FieldOf("e4")).changed, Fields({"e4"}));
    EXPECT_EQ(m_drag.MarkOf(FieldOf("e4")), TFieldMark::AllowedTarget);
    EXPECT_EQ(m_drag.Hover(FieldOf("e5")).changed, Fields({"e4", "e5"}));
    EXPECT_EQ(m_drag.MarkOf(FieldOf("e5")), TFieldMark::ForbiddenTarget);
    EXPECT_TRUE(m_drag.IsMoveForbidden());
    EXPECT_EQ(m_drag.Hover(FieldOf("e5")).changed, 0U) << "nothing to repaint within a field";
    EXPECT_EQ(m_drag.Hover(NoFieldUnderMouse).changed, Fields({"e5"}));
    EXPECT_EQ(m_drag.MarkOf(FieldOf("e2")), TFieldMark::Selected);
}

TEST_F(MoveDrag, AForbiddenMoveIsReportedAndDropsTheMan) {
    Show(Promotion);
    const TDragStep step = Drag("e2", "e5");
    EXPECT_EQ(Text(step.move), "none");
    EXPECT_EQ(Text(step.refused), "e2e5");
    EXPECT_EQ(m_drag.SelectedField(), NoFieldUnderMouse);
    EXPECT_EQ(step.changed, Fields({"e2", "e3", "e4", "e5"}));
}

TEST_F(MoveDrag, APawnOnItsLastRankIsShownAsAQueenAndAsks) {
    Show(Promotion);
    m_drag.Press(FieldOf("a7"));
    EXPECT_EQ(m_drag.DraggedMan(), WhitePawn);
    m_drag.Hover(A8);
    EXPECT_TRUE(m_drag.IsPromotionPending());
    EXPECT_EQ(m_drag.DraggedMan(), WhiteQueen);
    const TDragStep step = m_drag.Release(A8);
    EXPECT_TRUE(step.bAskPromotion);
    EXPECT_EQ(Text(step.move), "none");
    EXPECT_EQ(m_drag.ShownOn(A8), WhiteQueen) << "while the user chooses";
    m_drag.Hover(FieldOf("h3"));
    EXPECT_EQ(m_drag.HoverField(), A8) << "the mouse goes to the menu";
    EXPECT_EQ(Text(m_drag.Promote(TypeKnight).move), "a7a8N");

    Drag("a7", "a8");
    EXPECT_EQ(m_drag.Cancel().changed, Fields({"a7", "a8"}));
    EXPECT_EQ(Text(m_drag.Promote(TypeQueen).move), "none") << "the question was withdrawn";
    EXPECT_FALSE(m_drag.Press(FieldOf("a8")).move.has_value());
}

TEST_F(MoveDrag, ASecondClickOrAnotherManChangesTheSelection) {
    Show(Promotion);
    Click("e2");
    Click("a1");
    EXPECT_EQ(m_drag.SelectedField(), A1);
    Click("a1");
    EXPECT_EQ(m_drag.SelectedField(), NoFieldUnderMouse);
    m_drag.Press(A1);
    const TDragStep outside = m_drag.Release(NoFieldUnderMouse);
    EXPECT_EQ(m_drag.SelectedField(), NoFieldUnderMouse);
    EXPECT_EQ(Text(outside.refused), "none") << "dropped beside the board: not a move at all";
}

TEST_F(MoveDrag, OnlyTheSideToMoveAndOnlyWhenMovesAreAllowed) {
    Show(Promotion);
    EXPECT_EQ(m_drag.Press(FieldOf("c7")).changed, 0U);
    EXPECT_EQ(m_drag.Press(FieldOf("d4")).changed, 0U);
    m_drag.SetBoard(m_line.Board(), false);
    EXPECT_EQ(m_drag.Press(FieldOf("e2")).changed, 0U);
    Show(Promotion, false);
    m_drag.Press(FieldOf("c7"));
    EXPECT_EQ(m_drag.Targets(), Fields({"b6", "b7", "c6", "c8", "d6", "d7", "d8"}));
    EXPECT_EQ(m_drag.SetBoard(m_line.Board(), true).changed & Fields({"c7"}), Fields({"c7"}))
        << "a new position drops the man";
}

TEST_F(MoveDrag, TheCursorBeginsWhereTheUserLooks) {
    const TBoardGeometry geometry;
    Show(Promotion);
    m_drag.MoveCursor(geometry, TBoardDirection::Up);
    EXPECT_EQ(m_drag.CursorField(), E1);
    EXPECT_EQ(m_drag.MoveCursor(geometry, TBoardDirection::Up).changed, Fields({"e1", "e2"}));
    m_drag.HideCursor();
    m_line.Play({"e2-e4"});
    m_drag.SetBoard(m_line.Board(), true);
    m_drag.MoveCursor(geometry, TBoardDirection::Up);
    EXPECT_EQ(m_drag.CursorField(), FieldOf("e4"));
    EXPECT_EQ(m_drag.ActivateCursor().changed, 0U) << "White's man, Black's turn";
}

TEST(LegalMoves, AreThoseOfTheSlowRules) {
    slow::CRandomPositions positions(slow::TestSeed());
    for (int i = 0; i < 40; ++i) {
        CBoardLine line(positions.Next());
        SCOPED_TRACE(positions.Story());
        const std::vector<std::string> first = line.AcceptedMoves();
        if (i % 2 == 1 && !first.empty()) {
            line.Play({first.front()});  // Black's turn
        }
        std::vector<std::string> expected;
        for (const slow::TSlowMove& move : slow::LegalMoves(line.Slow())) {
            expected.push_back(slow::FullText(line.Slow(), move));
        }
        std::ranges::sort(expected);
        const std::vector<TMove> moves = LegalMoves(line.Board());
        EXPECT_EQ(line.Texts(moves.data(), static_cast<int>(moves.size())), expected);
    }
}

}  // namespace
}  // namespace tarnwick
