#include "chess/start_position.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/chess_exception.h"

#include "notation_support.h"

namespace tarnwick {
namespace {

using ::testing::ThrowsMessage;

constexpr const char* BlackInCheck = "4k3/8/8/8/8/8/8/K3R3";
constexpr const char* WhiteInCheck = "k3r3/8/8/8/8/8/8/4K3";

void Check(TChessboard board, std::uint16_t shPlies) {
    CheckStartPosition(board, shPlies, true, nullptr, nullptr);
}

TEST(StartPosition, RefusesCheckToTheSideThatHasMoved) {
    EXPECT_THAT([] { Check(BoardOf(BlackInCheck), 5); },
                ThrowsMessage<ChessException>(
                    "Black king cannot be checked in the mate task starting postition."));
    EXPECT_THAT([] { Check(BoardOf(WhiteInCheck), 4); },
                ThrowsMessage<ChessException>(
                    "White king cannot be checked in the mate-defence task starting postition."));
    EXPECT_NO_THROW(Check(BoardOf(BlackInCheck), 4));
    EXPECT_NO_THROW(Check(BoardOf(WhiteInCheck), 5));
}

TEST(StartPosition, PreparesWhatTheFieldsTell) {
    TChessboard board = BoardOf(WhiteInCheck);
    board.m_fields[B1] = WhiteKnight;
    board.m_searchFlags.Set(TSearchFlag::FewFigures);
    CheckStartPosition(board, 7, false, nullptr, nullptr);
    EXPECT_EQ(board.m_shPlies, 7);
    EXPECT_EQ(board.m_shRootPlies, 7);
    EXPECT_EQ(board.m_whiteKnights, 1);
    EXPECT_EQ(board.m_whiteChecker, E8);
    EXPECT_TRUE(board.m_searchFlags.Has(TSearchFlag::FewFigures));
    CheckStartPosition(board, 7, true, nullptr, nullptr);
    EXPECT_FALSE(board.m_searchFlags.Has(TSearchFlag::FewFigures));
    board.m_fields[C1] = BlackKing;
    EXPECT_THAT([&] { Check(board, 7); },
                ThrowsMessage<ChessException>("Illegal number of kings."));
}

TEST(StartPosition, CountsTheMaterialOfThePositionThatTheUserSetUp) {
    TChessboard board = BoardOf("4k3/8/8/8/8/8/8/4K3");
    const TChessboard userBoard = BoardOf("qk1nn3/p7/8/8/8/8/PPP4P/BR2K2R");
    TMaterialRecord material;
    CheckStartPosition(board, 3, true, &userBoard, &material);
    EXPECT_EQ(material.white.Men(), 7);
    EXPECT_EQ(material.white.Figures(), 3);
    EXPECT_EQ(material.black.knights, 2);
    EXPECT_EQ(material.difference.queens, -1);
    EXPECT_EQ(material.difference.rooks, 2);
    EXPECT_EQ(material.difference.pawns, 3);
    EXPECT_EQ(material.sum.Men(), 11);
    CheckStartPosition(board, 3, true, nullptr, &material);
    EXPECT_EQ(material.sum.Men(), 0);
}

}  // namespace
}  // namespace tarnwick
