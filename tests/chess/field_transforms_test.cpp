#include "chess/field_transforms.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "base/chess_exception.h"

#include "chess/move_text.h"
#include "notation_support.h"
#include "support/random_positions.h"

namespace tarnwick {
namespace {

using ::testing::ThrowsMessage;

std::string After(TTransform transform, std::string_view fen) {
    TChessboard board = BoardOf(fen);
    TransformPosition(transform, board);
    return WriteFen(board, true);
}

TEST(Transform, MovesMenWhereTheUserSeesThem) {
    const char* fen = "4k3/8/8/8/8/5N2/P7/4K3";
    EXPECT_EQ(After(TTransform::SwapColours, fen), "4k3/p7/5n2/8/8/8/8/4K3");
    EXPECT_EQ(After(TTransform::Mirror, fen), "3k4/8/8/8/8/2N5/7P/3K4");
    EXPECT_EQ(After(TTransform::ShiftRight, fen), "5k2/8/8/8/8/6N1/1P6/5K2");
    EXPECT_EQ(After(TTransform::Rotate, "7k/8/8/8/8/8/6N1/K7"), "K7/8/8/8/8/8/1N6/7k");
}

TEST(Transform, SwapKeepsTheMarkOfAPawn) {
    EXPECT_EQ(TransformMan(TTransform::SwapColours, BlackPawn | MarkBit), WhitePawn | MarkBit);
}

TEST(Transform, ReturnsToThePositionWhenRepeated) {
    slow::CRandomPositions positions(slow::TestSeed());
    for (int i = 0; i < 500; ++i) {
        const std::string fen = positions.Next();
        SCOPED_TRACE(positions.Story());
        for (const TTransform transform : {TTransform::SwapColours, TTransform::Mirror}) {
            ASSERT_EQ(After(transform, After(transform, fen)), fen);
        }
    }
}

TEST(Transform, FourRotationsGiveThePositionBack) {
    const std::string fen = "8/1q2k3/8/2R5/8/4N3/8/2BK4";
    std::string rotated = fen;
    for (int i = 0; i < 4; ++i) {
        rotated = After(TTransform::Rotate, rotated);
        EXPECT_EQ(rotated == fen, i == 3);
    }
}

/// Texts of the legal moves, each taken along by the transform.
std::vector<std::string> LegalMovesTakenAlong(const std::string& fen, TTransform transform,
                                              const TChessboard& target) {
    std::vector<std::string> texts;
    for (const slow::TSlowMove& slowMove : slow::LegalMoves(slow::FromFen(fen))) {
        TMove move{static_cast<TField>(slowMove.from), static_cast<TField>(slowMove.to), 0, 0};
        if (slowMove.promotion != 0) {
            move.promotion = FigureCodeFromLetter(slowMove.promotion);
        }
        EXPECT_TRUE(TransformMove(transform, move));
        texts.push_back(MoveToDisplayText(move, target));
    }
    std::ranges::sort(texts);
    return texts;
}

TEST(Transform, KeepsTheGame) {
    slow::CRandomPositions positions(slow::TestSeed());
    for (int i = 0; i < 500; ++i) {
        const std::string fen = positions.Next();
        SCOPED_TRACE(positions.Story());
        for (const TTransform transform : {TTransform::SwapColours, TTransform::Mirror}) {
            const bool bWhite = transform == TTransform::Mirror;
            TChessboard board = BoardOf(fen);
            const bool bMayCastle = WriteFen(board, false).find(" - -") == std::string::npos;
            if (bWhite && bMayCastle) {
                continue;  // a castling has no mirror image
            }
            TransformPosition(transform, board);
            const auto target = slow::FromFen(WriteFen(board, true), bWhite);
            ASSERT_EQ(LegalMovesTakenAlong(fen, transform, board), slow::LegalMoveTexts(target));
        }
    }
}

TEST(Transform, ShiftLosesMenWithoutAWordButNoKing) {
    EXPECT_EQ(After(TTransform::ShiftLeft, "4k3/8/8/8/R7/8/8/4K3"), "3k4/8/8/8/8/8/8/3K4");
    const auto shift = [](TTransform transform) {
        TChessboard board = BoardOf("4k3/8/8/8/8/8/P7/K7");
        EXPECT_THAT([&] { TransformPosition(transform, board); },
                    ThrowsMessage<ChessException>("Illegal number of kings."));
        EXPECT_EQ(WriteFen(board, true), "4k3/8/8/8/8/8/P7/K7");
    };
    shift(TTransform::ShiftLeft);
    shift(TTransform::ShiftUp);
    EXPECT_THAT([] { After(TTransform::ShiftDown, "8/4k3/8/8/8/8/P7/8/"); },
                ::testing::Throws<ChessException>());
}

TEST(Transform, MoveThatLeavesTheBoardIsRefused) {
    TMove move{A1, B1, 0, 0};
    EXPECT_FALSE(TransformMove(TTransform::ShiftLeft, move));
    EXPECT_FALSE(TransformMove(TTransform::ShiftDown, move));
    EXPECT_TRUE(move.SameAs({A1, B1, 0, 0}));
    EXPECT_TRUE(TransformMove(TTransform::ShiftRight, move));
    EXPECT_TRUE(move.SameAs({B1, C1, 0, 0}));
}

}  // namespace
}  // namespace tarnwick
