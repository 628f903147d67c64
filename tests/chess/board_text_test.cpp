#include "chess/board_text.h"

#include <gtest/gtest.h>

#include "notation_support.h"

namespace tarnwick {
namespace {

constexpr const char* Fen = "r3k2r/2p5/8/8/8/8/3P1NB1/1K1Q4";

TEST(DrawBoard, AsciiForAnyTerminal) {
    EXPECT_EQ(DrawBoard(BoardOf(Fen), TBoardStyle::Ascii),
              "   +------------------------+\n"
              " 8 | r  .     .  k  .     r |\n"
              " 7 | .     p     .     .    |\n"
              " 6 |    .     .     .     . |\n"
              " 5 | .     .     .     .    |\n"
              " 4 |    .     .     .     . |\n"
              " 3 | .     .     .     .    |\n"
              " 2 |    .     P     N  B  . |\n"
              " 1 | .  K  .  Q  .     .    |\n"
              "   +------------------------+\n"
              "     a  b  c  d  e  f  g  h   (5+4)\n");
}

TEST(DrawBoard, ShadedFieldsWithLettersOrFigures) {
    const std::string letters = DrawBoard(BoardOf(Fen), TBoardStyle::Letters);
    EXPECT_NE(letters.find(" 8 │ r ░░░   ░░░ k ░░░   ░r░│\n"), std::string::npos) << letters;
    EXPECT_NE(letters.find(" 1 │░░░ K ░░░ Q ░░░   ░░░   │\n"), std::string::npos) << letters;
    const std::string figures = DrawBoard(BoardOf(Fen), TBoardStyle::Figures);
    EXPECT_NE(figures.find(" 8 │ ♜ ░░░   ░░░ ♚ ░░░   ░♜░│\n"), std::string::npos) << figures;
    EXPECT_NE(figures.find(" 2 │   ░░░   ░♙░   ░♘░ ♗ ░░░│\n"), std::string::npos) << figures;
}

}  // namespace
}  // namespace tarnwick
