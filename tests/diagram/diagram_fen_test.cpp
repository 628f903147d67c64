#include "diagram/diagram_fen.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "base/chess_exception.h"

#include "chess/fen.h"
#include "diagram/diagram_svg.h"
#include "diagram/picture_frames.h"
#include "diagram/png_chunks.h"

namespace tarnwick {
namespace {

using namespace std::string_literals;

constexpr const char* Castles = "r3k2r/8/8/3pP3/8/8/8/R3K2R";

/// The smallest whole picture: one black pixel, made by another program.
const std::string SmallPng =
    "\x89PNG\r\n\x1a\n\0\0\0\rIHDR\0\0\0\1\0\0\0\1\x08\0\0\0\0\x3a\x7e\x9b\x55"
    "\0\0\0\x0aIDATx\x9c\x63\x60\0\0\0\2\0\1\x48\xaf\xa4\x71\0\0\0\0IEND\xae\x42\x60\x82"s;

TChessboard Board(const std::string& fen) {
    TChessboard board = EmptyChessboard();
    bool bCastlingWithheld = false;
    bool bEnPassantGiven = false;
    EXPECT_TRUE(ReadFen(board, fen, bCastlingWithheld, bEnPassantGiven));
    return board;
}

std::string Chunk(const std::string& type, const std::string& content, const std::string& crc) {
    const auto length = static_cast<std::uint32_t>(content.size());
    std::string bytes;
    for (int shift = 24; shift >= 0; shift -= 8) {
        bytes += static_cast<char>((length >> shift) & 0xFF);
    }
    return bytes + type + content + crc;
}

TEST(DiagramFen, TypedWordsAreKeptWhereTheyAreProper) {
    const TChessboard board = Board(Castles);
    const std::string placing = std::string(Castles) + ' ';
    EXPECT_EQ(DiagramFen(board), placing + "w KQkq - 0 1");
    EXPECT_EQ(DiagramFen(board, placing + "b Kq d6 3 17"), placing + "b Kq d6 3 17");
    EXPECT_EQ(DiagramFen(board, "  " + placing + " w\t- "), placing + "w - - 0 1");
    EXPECT_EQ(DiagramFen(board, placing + "white <x> d5 -1 99999"), placing + "w KQkq - 0 1");
}

class DiagramRoundTrip : public ::testing::TestWithParam<std::string> {};

TEST_P(DiagramRoundTrip, PicturesGiveBackAllSixWords) {
    const TChessboard board = Board(GetParam());
    TDiagramOptions options;
    options.title = "<tarnwick:fen>8/8/8/8/8/8/8/8 & \"more\"";
    options.fen = DiagramFen(board, GetParam());
    EXPECT_EQ(options.fen, GetParam());
    const std::string svg = DiagramSvg(board, options);
    EXPECT_EQ(ReadDiagramFen(svg), GetParam());
    EXPECT_EQ(ReadDiagramFen(AddFenToPng(SmallPng, GetParam())), GetParam());
    std::string cleaned = svg;
    cleaned.erase(cleaned.find("<metadata>"),
                  cleaned.find("</metadata>") - cleaned.find("<metadata>"));
    EXPECT_EQ(ReadDiagramFen(cleaned), GetParam()) << "the description is left";
}

INSTANTIATE_TEST_SUITE_P(
    Positions, DiagramRoundTrip,
    ::testing::Values("7k/8/5K2/8/8/8/8/6R1 w - - 0 1", "7k/8/5K2/8/8/8/8/6R1 b - - 12 40",
                      "r3k2r/8/8/3pP3/8/8/8/R3K2R w Kq d6 0 9", "r3k2r/8/8/8/8/8/8/R3K2R b - - 0 1",
                      "rnbqkbnr/pppppppp/8/8/4P3/8/PPPP1PPP/RNBQKBNR b KQkq e3 0 1"));

TEST(DiagramFen, OtherPrefixesAndLayoutAreRead) {
    EXPECT_EQ(ReadDiagramFen("<x:fen>\n   7k/8/5K2/8/8/8/8/6R1 w - -\n  </x:fen>"),
              "7k/8/5K2/8/8/8/8/6R1 w - -");
    EXPECT_EQ(ReadDiagramFen("</x:fen>7k/8/5K2/8/8/8/8/6R1"), std::nullopt);
}

TEST(DiagramFen, WhatReadFenRefusesIsNoPosition) {
    for (const char* text : {"", "8/8/8/8/8/8/8/8 w - - 0 1", "hello", "KK6/8/8/8/8/8/8/7k",
                             "7k/8/5K2/8/8/8/8", "7k/8/5K2/8/8/8/8/6R1 w - - \x01"}) {
        EXPECT_EQ(ReadDiagramFen("<a:fen>"s + text + "</a:fen>"), std::nullopt) << text;
        EXPECT_EQ(ReadDiagramFen(AddFenToPng(SmallPng, text)), std::nullopt) << text;
    }
    EXPECT_EQ(ReadDiagramFen(SmallPng), std::nullopt);
    EXPECT_EQ(ReadDiagramFen("\xff\xd8 another kind of picture"), std::nullopt);
}

TEST(PngChunks, TheNewFenTakesThePlaceOfTheOldOne) {
    const std::string first = AddFenToPng(SmallPng, "7k/8/5K2/8/8/8/8/6R1 w - - 0 1");
    const std::string second = AddFenToPng(first, "7k/8/5K2/8/8/8/8/5R2 w - - 0 1");
    EXPECT_EQ(second.size(), first.size());
    EXPECT_EQ(ReadDiagramFen(second), "7k/8/5K2/8/8/8/8/5R2 w - - 0 1");
    EXPECT_TRUE(second.ends_with(SmallPng.substr(SmallPng.size() - 12)));
}

TEST(PngChunks, ChecksumIsTheOneOfTheFormat) {
    // zlib's crc32 of "tEXtTitle\0mate".
    const std::string png = WithPngText(SmallPng, "Title", "mate");
    EXPECT_NE(png.find(Chunk("tEXt", "Title\0mate"s, "\x7c\x8e\xfb\x91")), std::string::npos);
}

TEST(PngChunks, InternationalTextIsReadUnlessCompressed) {
    const std::string head = SmallPng.substr(0, 8 + 25);
    const std::string end = SmallPng.substr(SmallPng.size() - 12);
    const auto png = [&](const std::string& content, const std::string& crc) {
        return head + Chunk("iTXt", content, crc) + end;
    };
    EXPECT_EQ(PngText(png("FEN\0\0\0en\0Fen\0x"s, "\x32\x73\xfa\xd8"), "FEN"), "x");
    EXPECT_EQ(PngText(png("FEN\0\1\0en\0Fen\0x"s, "\xdd\xb1\x91\xe6"), "FEN"), std::nullopt);
    EXPECT_EQ(PngText(png("FEN\0\0\0en"s, "\x7f\xd6\x43\x20"), "FEN"), std::nullopt);
}

TEST(PngChunks, DamageIsSurvivedAtEveryByte) {
    const std::string fen = "7k/8/5K2/8/8/8/8/6R1 w - - 0 1";
    const std::string png = AddFenToPng(SmallPng, fen);
    for (std::size_t length = 0; length < png.size(); ++length) {
        const auto read = ReadDiagramFen(std::string_view(png).substr(0, length));
        EXPECT_TRUE(!read || read == fen) << length;
    }
    for (std::size_t at = 0; at < png.size(); ++at) {
        std::string damaged = png;
        damaged[at] = static_cast<char>(~damaged[at]);
        const auto read = ReadDiagramFen(damaged);
        EXPECT_TRUE(!read || read == fen) << at;
    }
}

TEST(PngChunks, LengthsBeyondTheFileEndIt) {
    const std::string head = SmallPng.substr(0, 8 + 25);
    EXPECT_EQ(PngText(head + "\xff\xff\xff\xfftEXtFEN\0x"s, "FEN"), std::nullopt);
    EXPECT_EQ(PngText(head + "\xff\xff\xff\xf4tEXtFEN\0x"s, "FEN"), std::nullopt);
    EXPECT_THROW(AddFenToPng(SmallPng.substr(0, 8) + "\xff\xff\xff\xff" + "IHDR", "x"),
                 ChessException);
    EXPECT_THROW(AddFenToPng("GIF89a", "x"), ChessException);
    EXPECT_THROW(AddFenToPng("", "x"), ChessException);
}

TEST(PictureFrames, ComeApartAsTheyWerePutTogether) {
    const std::string bytes = "12\n\0\xff"s;
    const std::string both = PictureFrame(bytes) + PictureFrame("");
    std::string_view rest = both;
    EXPECT_EQ(TakePictureFrame(rest), bytes);
    EXPECT_EQ(TakePictureFrame(rest), "");
    EXPECT_EQ(TakePictureFrame(rest), std::nullopt);
    for (std::string_view broken : {"5\nabcd", "5", "-1\nx", "99999999999999999999\nx", "\n"}) {
        EXPECT_EQ(TakePictureFrame(broken), std::nullopt) << broken;
    }
}

}  // namespace
}  // namespace tarnwick
