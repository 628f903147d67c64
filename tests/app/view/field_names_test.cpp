#include "app/view/field_names.h"

#include <gtest/gtest.h>

#include "base/language.h"

#include "support/board_line.h"

namespace tarnwick {
namespace {

class FieldNames : public ::testing::Test {
  protected:
    ~FieldNames() override { g_language = LanguageId::English; }

    std::string Say(const std::string& field) {
        return FieldNameForReader(m_line.Board(), m_drag, FieldOf(field));
    }

    CBoardLine m_line{"r5k1/1P6/8/3pP3/8/8/8/R3K2R"};
    CMoveDrag m_drag;
};

TEST_F(FieldNames, SayTheFieldTheManAndWhatTheUserDoesThere) {
    g_language = LanguageId::English;
    m_drag.SetBoard(m_line.Board(), true);
    m_drag.Press(FieldOf("b7"));
    EXPECT_EQ(Say("a1"), "a1, white rook");
    EXPECT_EQ(Say("e4"), "e4, empty");
    EXPECT_EQ(Say("b7"), "b7, white pawn, selected");
    EXPECT_EQ(Say("a8"), "a8, black rook, can move here");
    EXPECT_EQ(ManName(WhitePawn | MarkBit), "white pawn");
}

TEST_F(FieldNames, AreThereInPolishAndUkrainian) {
    g_language = LanguageId::Polish;
    EXPECT_EQ(Say("a1"), "a1, biała wieża");
    EXPECT_EQ(Say("e4"), "e4, puste");
    g_language = LanguageId::Ukrainian;
    EXPECT_EQ(Say("g8"), "g8, чорний король");
}

TEST_F(FieldNames, TheLastMoveIsToldWithAllThatHappened) {
    g_language = LanguageId::English;
    const struct {
        const char* fen;
        bool bWhiteToMove;
        std::vector<std::string> moves;
        const char* expected;
    } cases[] = {
        {"r5k1/1P6/8/8/8/8/8/R3K2R", true, {}, "White to move"},
        {"r5k1/1P6/8/8/8/8/8/R3K2R",
         true,
         {"0-0-0"},
         "Black to move. Last move: white king, castles long"},
        {"r5k1/1P6/8/8/8/8/8/R3K2R",
         true,
         {"b7:a8R"},
         "Black to move. Last move: white pawn from b7 to a8, takes black rook, becomes white "
         "rook, "
         "check"},
        {"6k1/3p4/8/4P3/8/8/8/R3K3",
         false,
         {"d7-d5", "e5:d6"},
         "Black to move. Last move: white pawn from e5 to d6, takes black pawn, en passant"},
    };
    for (const auto& one : cases) {
        CBoardLine line(one.fen, one.bWhiteToMove);
        line.Play(one.moves);
        EXPECT_EQ(BoardForReader(line.Board()), one.expected);
    }
    m_line.Play({"Ra1-a5"});
    EXPECT_EQ(Say("a5"), "a5, white rook, last move came here");
    EXPECT_EQ(Say("a1"), "a1, empty, last move came from here");
}

}  // namespace
}  // namespace tarnwick
