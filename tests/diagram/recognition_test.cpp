// What the recogniser does with pictures that nobody prints: damaged, huge, empty, random, and boards without
// men. How well it reads men is tested with drawn diagrams in tests/shell.

#include "diagram/recognition.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <functional>
#include <limits>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "base/chess_exception.h"
#include "base/language.h"

#include "diagram/board_search.h"
#include "diagram/recognition_texts.h"

namespace tarnwick {
namespace {

/// A picture of so many pixels, each as grey as the function of its place says.
struct TPainted {
    TPainted(int width, int height, const std::function<int(int, int)>& greyAt)
        : bytes(static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 4) {
        for (std::size_t i = 0; i < bytes.size(); ++i) {
            const int pixel = static_cast<int>(i / 4);
            bytes[i] = static_cast<std::uint8_t>(greyAt(pixel % width, pixel / width));
        }
        bitmap = {.width = width,
                  .height = height,
                  .bitsPerPixel = 32,
                  .stride = width * 4,
                  .bBottomUp = false,
                  .bytes = bytes};
    }
    std::vector<std::uint8_t> bytes;
    TBitmap bitmap;
};

/// White paper with fields of so many pixels; the upper left field is light.
TPainted PaintedBoard(int margin, int field, const std::function<int(int, int)>& darkAt) {
    return {2 * margin + 8 * field, 2 * margin + 8 * field, [=](int x, int y) {
                const int column = x < margin ? -1 : (x - margin) / field;
                const int row = y < margin ? -1 : (y - margin) / field;
                const bool bDark =
                    column >= 0 && row >= 0 && column < 8 && row < 8 && (column + row) % 2 != 0;
                return bDark ? darkAt(x, y) : 255;
            }};
}

std::string Refusal(const TBitmap& bitmap) {
    try {
        RecognizeDiagram(bitmap);
    } catch (const ChessException& refusal) {
        return refusal.what();
    }
    return "recognized";
}

class CDiagramPictures : public testing::Test {
  protected:
    void SetUp() override { g_language = LanguageId::English; }
};
using DiagramPictures = CDiagramPictures;

TEST_F(DiagramPictures, OtherThanThirtyTwoBitsAreRefused) {
    TPainted board = PaintedBoard(10, 30, [](int, int) { return 120; });
    for (const int bits : {0, 1, 8, 24, 48, -32}) {
        board.bitmap.bitsPerPixel = bits;
        EXPECT_EQ(Refusal(board.bitmap), "Program is unable handle this format") << bits;
    }
}

TEST_F(DiagramPictures, SizesThatDoNotFitTheBytesAreRefused) {
    const TPainted board = PaintedBoard(10, 30, [](int, int) { return 120; });
    const auto refusal = [&](const std::function<void(TBitmap&)>& damage) {
        TBitmap bitmap = board.bitmap;
        damage(bitmap);
        return Refusal(bitmap);
    };
    const std::string expected = "Image was not recognized properly";
    EXPECT_EQ(refusal([](TBitmap& b) { b.height = 0; }), expected);
    EXPECT_EQ(refusal([](TBitmap& b) { b.width = -1; }), expected);
    EXPECT_EQ(refusal([](TBitmap& b) { ++b.height; }), expected);
    EXPECT_EQ(refusal([](TBitmap& b) { b.stride -= 4; }), expected);
    EXPECT_EQ(refusal([](TBitmap& b) { b.stride = -b.stride; }), expected);
    EXPECT_EQ(refusal([](TBitmap& b) { b.stride = std::numeric_limits<std::int64_t>::max(); }),
              expected);
    EXPECT_EQ(refusal([](TBitmap& b) { b.width = b.height = std::numeric_limits<int>::max(); }),
              expected);
    EXPECT_EQ(refusal([](TBitmap& b) { b.bytes = {}; }), expected);
    EXPECT_EQ(refusal([](TBitmap& b) { b.bytes = b.bytes.first(b.bytes.size() - 1); }), expected);
}

TEST_F(DiagramPictures, WithoutABoardAreRefused) {
    std::mt19937 random(1);
    for (const int side : {1, 2, 63, 64, 100, 500}) {
        EXPECT_EQ(Refusal(TPainted(side, side, [](int, int) { return 255; }).bitmap),
                  UserText(NotRecognizedText))
            << side;
        const TPainted noise(side, side,
                             [&](int, int) { return static_cast<int>(random() % 256); });
        EXPECT_EQ(Refusal(noise.bitmap), UserText(NotRecognizedText)) << side;
    }
    EXPECT_EQ(Refusal(TPainted(4000, 1, [](int x, int) { return x % 256; }).bitmap),
              UserText(NotRecognizedText));
    const TPainted stripes(400, 400, [](int x, int) { return x / 25 % 2 == 0 ? 0 : 255; });
    EXPECT_EQ(Refusal(stripes.bitmap), UserText(NotRecognizedText));
}

TEST_F(DiagramPictures, OfAGigabyteTakeNoLongerThanAScreen) {
    constexpr int Side = 16000;
    constexpr std::size_t Size = std::size_t{4} * Side * Side;
    // Zeros that the system hands out without using memory.
    const std::unique_ptr<void, decltype(&std::free)> zeros(std::calloc(Size, 1), &std::free);
    if (!zeros) {
        GTEST_SKIP() << "no memory for the picture";
    }
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_EQ(Refusal({.width = Side,
                       .height = Side,
                       .bitsPerPixel = 32,
                       .stride = 4 * Side,
                       .bBottomUp = false,
                       .bytes = {static_cast<const std::uint8_t*>(zeros.get()), Size}}),
              UserText(NotRecognizedText));
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(10));
}

TEST_F(DiagramPictures, OfEmptyBoardsAreRead) {
    const std::function<int(int, int)> darks[] = {
        [](int, int) { return 90; },
        [](int, int) { return 200; },
        [](int x, int y) { return (x + y) % 6 < 2 ? 0 : 255; },
    };
    for (const auto& dark : darks) {
        const TPainted board = PaintedBoard(70, 31, dark);
        const TRecognizedDiagram read = RecognizeDiagram(board.bitmap);
        EXPECT_NEAR(read.frame.left, 70, 1.5);
        EXPECT_NEAR(read.frame.bottom, 70 + 8 * 31, 1.5);
        for (const TRecognizedField& field : read.fields) {
            EXPECT_EQ(int{field.man}, int{EmptyField});
            EXPECT_NE(int{field.secondMan}, int{EmptyField});
        }
    }
}

TEST_F(DiagramPictures, MayBeginWithTheLowestRow) {
    TPainted board = PaintedBoard(0, 30, [](int, int) { return 120; });
    // Eight rows more at the lower end: the frame tells which end that is.
    board.bytes.resize(board.bytes.size() + 8 * static_cast<std::size_t>(board.bitmap.stride), 255);
    board.bitmap.height += 8;
    board.bitmap.bytes = board.bytes;
    EXPECT_NEAR(RecognizeDiagram(board.bitmap).frame.top, 0, 1);
    std::vector<std::uint8_t> turned;
    for (int row = board.bitmap.height - 1; row >= 0; --row) {
        const auto bytes =
            board.bitmap.bytes.subspan(static_cast<std::size_t>(row * board.bitmap.stride),
                                       static_cast<std::size_t>(board.bitmap.stride));
        turned.insert(turned.end(), bytes.begin(), bytes.end());
    }
    board.bitmap.bytes = turned;
    board.bitmap.bBottomUp = true;
    EXPECT_NEAR(RecognizeDiagram(board.bitmap).frame.top, 0, 1);
    EXPECT_NEAR(RecognizeDiagram(board.bitmap).frame.bottom, 240, 1);
}

TEST_F(DiagramPictures, OfLargeBoardsTellTheFrameInTheirOwnPixels) {
    const TPainted board = PaintedBoard(300, 350, [](int, int) { return 150; });
    const TBoardFrame frame = RecognizeDiagram(board.bitmap).frame;
    EXPECT_NEAR(frame.left, 300, 6);
    EXPECT_NEAR(frame.right, 300 + 8 * 350, 6);
}

TEST(LightThresholds, SeparateLightFieldsFromDarkOnes) {
    const auto image = [](std::initializer_list<std::pair<int, int>> percentAndGrey) {
        TGreyImage grey{.width = 400, .height = 100, .factor = 1, .pixels = {}};
        for (const auto& [percent, value] : percentAndGrey) {
            grey.pixels.insert(grey.pixels.end(), static_cast<std::size_t>(percent) * 400,
                               static_cast<std::uint8_t>(value));
        }
        return grey;
    };
    EXPECT_EQ(LightThreshold(image({{60, 255}, {40, 0}})), 240);
    // Tinted fields: the dark ones begin the next hill below the light ones.
    const int tinted = LightThreshold(image({{50, 215}, {40, 130}, {10, 20}}));
    EXPECT_GT(tinted, 130);
    EXPECT_LE(tinted, 215);
    EXPECT_EQ(LightThreshold(image({{100, 0}})), 240);
}

TEST(FramesByRuns, NeedEightFieldsBothWays) {
    const TPainted board = PaintedBoard(20, 30, [](int, int) { return 120; });
    const auto frame = FrameByRuns(ToGrey(board.bitmap), 240);
    ASSERT_TRUE(frame);
    EXPECT_EQ(frame->left, 20);
    EXPECT_EQ(frame->bottom, 20 + 8 * 30);
    const TPainted stripes(280, 280, [](int x, int) { return x / 30 % 2 == 0 ? 0 : 255; });
    EXPECT_FALSE(FrameByRuns(ToGrey(stripes.bitmap), 240));
}

}  // namespace
}  // namespace tarnwick
