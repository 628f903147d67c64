// Pictures of positions as Qt paints them.

#include "app/shell/diagram_painting.h"

#include <gtest/gtest.h>

#include <QColor>
#include <QImage>

#include "chess/fen.h"
#include "diagram/diagram_fen.h"
#include "diagram/diagram_svg.h"

namespace tarnwick {
namespace {

QImage ImageOf(const std::string& png) {
    QImage image;
    image.loadFromData(reinterpret_cast<const uchar*>(png.data()), static_cast<int>(png.size()));
    return image;
}

TEST(DiagramPainting, FieldsAndMenAreWhereTheyBelong) {
    TChessboard board = EmptyChessboard();
    bool bCastlingWithheld = false;
    bool bEnPassantGiven = false;
    ASSERT_TRUE(ReadFen(board, "7k/8/8/8/8/8/8/K7", bCastlingWithheld, bEnPassantGiven));
    TDiagramOptions options;
    options.size = 402;  // a frame of one pixel and fields of 50
    for (const TDiagramStyle style :
         {TDiagramStyle::Window, TDiagramStyle::Print, TDiagramStyle::Hatched}) {
        options.style = style;
        const std::string png = AddFenToPng(PngOfSvg(DiagramSvg(board, options)), "x");
        const QImage image = ImageOf(png);
        ASSERT_EQ(image.size(), QSize(402, 402));
        const TDiagramColours& colours = ColoursOf(style);
        const auto colour = [](std::string_view name) {
            return QColor(QLatin1String(name.data(), static_cast<qsizetype>(name.size())));
        };
        EXPECT_EQ(image.pixelColor(0, 200), colour(colours.line));
        EXPECT_EQ(image.pixelColor(1, 1), colour(colours.lightField)) << "a8 is light";
        // The body of the black king, h8, and of the white one, a1.
        EXPECT_EQ(image.pixelColor(1 + 350 + 25, 1 + 41), QColor(Qt::black));
        EXPECT_EQ(image.pixelColor(1 + 25, 1 + 350 + 41), QColor(Qt::white));
        int dark = 0;
        for (int i = 0; i < 50; ++i) {
            dark += image.pixelColor(1 + i, 1 + 50 + 25) == colour(colours.darkField) ? 1 : 0;
        }
        if (style == TDiagramStyle::Hatched) {
            EXPECT_GT(dark, 10) << "white between the lines";
            EXPECT_LT(dark, 48) << "lines across a7";
        } else {
            EXPECT_EQ(dark, 50);
        }
    }
}

TEST(DiagramPainting, WhatIsNoPictureOrTooLargeIsNotPainted) {
    EXPECT_TRUE(PngOfSvg("").empty());
    EXPECT_TRUE(PngOfSvg("hello").empty());
    EXPECT_TRUE(
        PngOfSvg("<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"99999\" height=\"99999\"/>")
            .empty());
}

}  // namespace
}  // namespace tarnwick
