#include "app/view/board_geometry.h"

#include <gtest/gtest.h>

#include "support/board_line.h"

namespace tarnwick {
namespace {

/// The board of the smallest window.
constexpr TBoardGeometry Smallest{0, 30, 50, false};

TEST(BoardGeometry, FieldsOfTheSmallestBoardHaveTheirKnownPlaces) {
    TBoardGeometry rotated = Smallest;
    rotated.m_bRotated = true;
    EXPECT_EQ(Smallest.FieldSquare(A1), (TRectangle{0, 380, 50, 50}));
    EXPECT_EQ(Smallest.FieldSquare(H8), (TRectangle{350, 30, 50, 50}));
    EXPECT_EQ(rotated.FieldSquare(A1), (TRectangle{350, 30, 50, 50}));
    EXPECT_EQ(rotated.FieldSquare(FieldAt(2, 5)), (TRectangle{250, 280, 50, 50}));
}

TEST(BoardGeometry, ACornerPixelBelongsToTheFieldPaintedThere) {
    for (const bool bRotated : {false, true}) {
        for (const int size : {1, 24, 50, 113}) {
            const TBoardGeometry geometry{7, 30, size, bRotated};
            for (int field = 0; field < FieldCount; ++field) {
                const TRectangle square = geometry.FieldSquare(field);
                EXPECT_EQ(geometry.FieldUnder(square.x, square.y), field);
                EXPECT_EQ(geometry.FieldUnder(square.Right() - 1, square.Bottom() - 1), field);
            }
        }
    }
}

TEST(BoardGeometry, AClickBesideTheBoardFindsNoField) {
    for (const auto& [x, y] : {std::pair{400, 100}, {-1, 100}, {100, 29}, {100, 430}, {399, 430}}) {
        EXPECT_EQ(Smallest.FieldUnder(x, y), NoFieldUnderMouse) << x << ", " << y;
    }
    EXPECT_EQ(Smallest.FieldUnder(399, 30), H8);
    EXPECT_EQ(Smallest.FieldUnder(0, 429), A1);
}

TEST(BoardGeometry, ArrowKeysFollowWhatTheUserSees) {
    TBoardGeometry rotated = Smallest;
    rotated.m_bRotated = true;
    const int e4 = FieldOf("e4");
    EXPECT_EQ(Smallest.Neighbour(e4, TBoardDirection::Up), FieldOf("e5"));
    EXPECT_EQ(Smallest.Neighbour(e4, TBoardDirection::Left), FieldOf("d4"));
    EXPECT_EQ(rotated.Neighbour(e4, TBoardDirection::Up), FieldOf("e3"));
    EXPECT_EQ(rotated.Neighbour(e4, TBoardDirection::Left), FieldOf("f4"));
    EXPECT_EQ(Smallest.Neighbour(H8, TBoardDirection::Right), H8);
    EXPECT_EQ(rotated.Neighbour(H8, TBoardDirection::Down), H8);
}

TEST(BoardGeometry, TheBoardGrowsByWholePixelsOfAField) {
    EXPECT_EQ(FitBoard({0, 30, 407, 500}, false).m_fieldSize, 50);
    EXPECT_EQ(FitBoard({0, 30, 500, 408}, false).m_fieldSize, 51);
    EXPECT_EQ(FitBoard({0, 0, 3, 0}, true).m_fieldSize, 1) << "never nothing";
}

}  // namespace
}  // namespace tarnwick
