#include "diagram/diagram_svg.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <regex>
#include <string>
#include <vector>

#include "app/view/palettes.h"
#include "chess/fen.h"
#include "diagram/piece_pictures.h"

namespace tarnwick {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

TChessboard Board(const char* fen) {
    TChessboard board = EmptyChessboard();
    bool bCastlingWithheld = false;
    bool bEnPassantGiven = false;
    EXPECT_TRUE(ReadFen(board, fen, bCastlingWithheld, bEnPassantGiven));
    return board;
}

/// Places of the men of that name, from the corner of the picture.
std::vector<std::pair<int, int>> PlacesOf(const std::string& svg, const std::string& name) {
    std::vector<std::pair<int, int>> places;
    const std::regex use("href=\"#" + name + "\" transform=\"translate\\((\\d+) (\\d+)\\)");
    for (std::sregex_iterator match(svg.begin(), svg.end(), use), end; match != end; ++match) {
        places.emplace_back(std::stoi((*match)[1]), std::stoi((*match)[2]));
    }
    return places;
}

std::size_t Count(const std::string& text, const std::string& part) {
    std::size_t count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) {
        ++count;
    }
    return count;
}

TEST(DiagramSvg, MenStandOnTheirFieldsFromBothSides) {
    const TChessboard board = Board("7k/8/8/8/8/8/8/K5R1");
    TDiagramOptions options;
    options.size = 402;  // a frame of one pixel and fields of 50
    const std::string svg = DiagramSvg(board, options);
    const int margin = 2;
    EXPECT_EQ(PlacesOf(svg, "whiteK"),
              (std::vector<std::pair<int, int>>{{1 + margin, 351 + margin}}));
    EXPECT_EQ(PlacesOf(svg, "whiteR"),
              (std::vector<std::pair<int, int>>{{301 + margin, 351 + margin}}));
    EXPECT_EQ(PlacesOf(svg, "blackk"),
              (std::vector<std::pair<int, int>>{{351 + margin, 1 + margin}}));
    options.bBlackBelow = true;
    const std::string turned = DiagramSvg(board, options);
    EXPECT_EQ(PlacesOf(turned, "whiteK"),
              (std::vector<std::pair<int, int>>{{351 + margin, 1 + margin}}));
}

TEST(DiagramSvg, DarkFieldsOfEachStyle) {
    const TChessboard board = Board("7k/8/8/8/8/8/8/K7");
    TDiagramOptions options;
    options.style = TDiagramStyle::Print;
    const std::string dark(ColoursOf(TDiagramStyle::Print).darkField);
    EXPECT_EQ(Count(DiagramSvg(board, options), "fill=\"" + dark + "\""), 32U);
    options.style = TDiagramStyle::Hatched;
    const std::string hatched = DiagramSvg(board, options);
    const auto places = PlacesOf(hatched, "hatching");
    EXPECT_EQ(places.size(), 32U);
    EXPECT_EQ(std::ranges::count(places, PlacesOf(hatched, "whiteK").front()), 0);
    options.style = TDiagramStyle::Plain;
    EXPECT_THAT(DiagramSvg(board, options), Not(HasSubstr("hatching")));
}

TEST(DiagramSvg, TextsAreThereOnlyWhenWantedAndCannotBreakTheFile) {
    const TChessboard board = Board("7k/8/8/8/8/8/8/K7");
    TDiagramOptions options;
    EXPECT_THAT(DiagramSvg(board, options), Not(HasSubstr("<text")));
    options.bCoordinates = true;
    options.stipulation = "#3 </svg>";
    options.title = "a & b\x01\xff";
    const std::string svg = DiagramSvg(board, options);
    EXPECT_EQ(Count(svg, "<text"), 17U);
    EXPECT_THAT(svg, HasSubstr("<title>a &amp; b \xEF\xBF\xBD</title>"));
    EXPECT_EQ(Count(svg, "</svg>"), 1U);
}

TEST(DiagramSvg, EverySizeFitsItsWidth) {
    const TChessboard board = Board("7k/8/8/8/8/8/8/K7");
    for (int size : {-5, MinDiagramSize, 81, 333, 1000, MaxDiagramSize, 1 << 30}) {
        for (const bool bCoordinates : {false, true}) {
            TDiagramOptions options;
            options.size = size;
            options.bCoordinates = bCoordinates;
            const std::string svg = DiagramSvg(board, options);
            const int width = std::clamp(size, MinDiagramSize, MaxDiagramSize);
            EXPECT_THAT(svg, HasSubstr(" width=\"" + std::to_string(width) + "\" height="));
            const std::regex field("<rect x=\"(\\d+)\" y=\"\\d+\" width=\"(\\d+)\"");
            for (std::sregex_iterator match(svg.begin(), svg.end(), field), end; match != end;
                 ++match) {
                EXPECT_LE(std::stoi((*match)[1]) + std::stoi((*match)[2]), width);
            }
        }
    }
}

std::string Text(TColour colour) {
    char text[8];
    std::snprintf(text, sizeof text, "#%02x%02x%02x", colour.red, colour.green, colour.blue);
    return text;
}

TEST(DiagramSvg, WindowStyleHasTheColoursOfTheWindow) {
    const TDiagramColours& colours = ColoursOf(TDiagramStyle::Window);
    EXPECT_EQ(colours.lightField, Text(LightPalette.lightField));
    EXPECT_EQ(colours.darkField, Text(LightPalette.darkField));
}

TEST(DiagramSvg, EveryManHasItsOwnPicture) {
    std::vector<std::string_view> pictures;
    for (const TFigureCode colour : {WhiteFlag, BlackFlag}) {
        for (const TFigureCode type :
             {TypeKing, TypeQueen, TypeRook, TypeBishop, TypeKnight, TypePawn}) {
            const std::string_view picture = PictureOfMan(static_cast<TFigureCode>(colour | type));
            EXPECT_THAT(std::string(picture), HasSubstr("<path"));
            EXPECT_THAT(std::string(picture), Not(HasSubstr("<svg")));
            EXPECT_EQ(std::ranges::count(pictures, picture), 0);
            pictures.push_back(picture);
        }
    }
    EXPECT_TRUE(PictureOfMan(EmptyField).empty());
    EXPECT_EQ(PictureOfMan(WhitePawn | MarkBit), PictureOfMan(WhitePawn));
}

}  // namespace
}  // namespace tarnwick
