#include "app/document/line_text.h"

#include <gtest/gtest.h>

#include <memory>

#include "app/document/document_support.h"
#include "app/document/move_refusal.h"
#include "app/document/played_line.h"
#include "chess/fen.h"

namespace tarnwick {
namespace {

CPlayedLine LineOf(const std::string& placement, int nMoves,
                   const std::vector<std::string>& moves) {
    TChessProblem problem;
    bool bWithheld = false;
    bool bEnPassant = false;
    EXPECT_TRUE(ReadFen(*problem.m_pBoard, placement, bWithheld, bEnPassant));
    SetPlies(problem, PliesOfStipulation(TProblemType::DirectMate, nMoves));
    CPlayedLine line;
    line.Start(problem);
    for (const std::string& move : moves) {
        EXPECT_EQ(line.Play(MoveOfTypedText(line.Board(), move)), TMoveRefusal::None) << move;
    }
    return line;
}

TEST(LineText, BothNotationsNumberMovesAndShowChecks) {
    const CPlayedLine line = LineOf("7k/8/5K2/8/8/8/8/R7", 3, {"Kf6-f7", "Kh8-h7", "Ra1-h1"});
    EXPECT_EQ(TextOfLine(line, false), "1.Kf6-f7 Kh8-h7 2.Ra1-h1#");
    EXPECT_EQ(TextOfLine(line, true), "1.Kf7 Kh7 2.Rh1#");
    EXPECT_EQ(TextOfLine(LineOf("7k/8/5K2/8/8/8/8/R7", 3, {}), true), "");
}

TEST(LineText, ShortMovesNameAsMuchAsTellsThemApart) {
    // Rooks on one rank and on one file, three queens, a capturing pawn, a promotion.
    const auto shortOf = [](const std::string& placement, const std::string& move) {
        const CPlayedLine line = LineOf(placement, 9, {});
        return ShortMoveText(line.Board(), MoveOfTypedText(line.Board(), move));
    };
    EXPECT_EQ(shortOf("7k/8/8/8/8/8/K7/R6R", "Ra1-d1"), "Rad1");
    EXPECT_EQ(shortOf("7k/R7/8/8/8/8/1K6/R7", "Ra1-a4"), "R1a4");
    EXPECT_EQ(shortOf("7k/8/8/K7/Q6Q/8/8/7Q", "Qh4-e4"), "Qh4e4");
    EXPECT_EQ(shortOf("7k/8/8/3p4/4P3/8/8/K7", "e4-d5"), "exd5");
    EXPECT_EQ(shortOf("8/4P2k/8/8/8/8/8/K7", "e7-e8N"), "e8N");
}

}  // namespace
}  // namespace tarnwick
