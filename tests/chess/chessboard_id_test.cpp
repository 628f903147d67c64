#include "chess/chessboard_id.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <map>
#include <vector>

#include "base/chess_exception.h"

#include "notation_support.h"
#include "support/random_positions.h"

namespace tarnwick {
namespace {

using ::testing::ThrowsMessage;
using namespace std::literals;

TChessboardId IdOfText(std::string_view text) {
    TChessboardId id;
    EXPECT_TRUE(id.FromAlphanum6(text)) << text;
    return id;
}

std::string PlacementOf(const TChessboardId& id) {
    TChessboard board = EmptyChessboard();
    id.ToBoard(board.m_fields);
    return WriteFen(board, true);
}

std::string LowerCase(std::string text) {
    std::ranges::transform(text, text.begin(), [](unsigned char c) { return std::tolower(c); });
    return text;
}

/// 64 fields of which the first `men` hold a figure.
TChessboard CrowdedBoard(int men) {
    TChessboard board = EmptyChessboard();
    std::fill_n(board.m_fields, men, BlackKnight);
    return board;
}

TEST(ChessboardId, HasKnownTexts) {
    EXPECT_EQ(ToAlphanum6(TChessboardId::Build(BoardOf("7k/8/8/8/8/8/8/K7"))), "100000000006");
    EXPECT_EQ(ToAlphanum6(TChessboardId::Build(BoardOf("4k3/8/8/8/8/8/8/4K3"))), "g000000000M0");
}

TEST(ChessboardId, GivesBackThePositionAlsoThroughItsText) {
    slow::CRandomPositions positions(slow::TestSeed(), {.maxMen = 20});
    std::map<std::string, std::string>
        placements;  // by file name as a careless file system sees it
    for (int i = 0; i < 3000; ++i) {
        const std::string placement = positions.Next();
        SCOPED_TRACE(positions.Story());
        const TChessboardId id = TChessboardId::Build(BoardOf(placement));
        ASSERT_EQ(PlacementOf(id), placement);
        const std::string text = ToAlphanum6(id);
        ASSERT_EQ(PlacementOf(IdOfText(text)), placement);
        ASSERT_EQ(ToAlphanum6(IdOfText(text)), text);
        const auto [place, bNew] =
            placements.try_emplace(LowerCase(SolvedProblemName(id)), placement);
        ASSERT_EQ(place->second, placement);
    }
}

TEST(ChessboardId, HoldsUpTo63Men) {
    const TChessboard board = CrowdedBoard(63);
    const TChessboardId id = TChessboardId::Build(board);
    EXPECT_EQ(PlacementOf(IdOfText(ToAlphanum6(id))), WriteFen(board, true));
    EXPECT_THAT([] { TChessboardId::Build(CrowdedBoard(64)); },
                ThrowsMessage<ChessException>("Exception in TChessboardId"));
}

TEST(ChessboardId, RefusesBytesThatAreNoFigure) {
    for (const int code : {0x20, 0x40, 0x43, 0xC1, 0x1F, 0x01}) {
        TChessboard board = EmptyChessboard();
        board.m_fields[A1] = static_cast<TFigureCode>(code);
        EXPECT_THAT([&] { TChessboardId::Build(board); },
                    ThrowsMessage<ChessException>("Unknown figure code"))
            << code;
    }
}

TEST(ChessboardId, RefusesDamagedTextsAndKeepsWhatItHad) {
    TChessboardId id = IdOfText("100000000006");
    for (const std::string_view text : {"10*"sv, "1\0"sv, "\xC4\x85"sv}) {
        EXPECT_FALSE(id.FromAlphanum6(text));
    }
    EXPECT_THAT([&] { id.FromAlphanum6(std::string(1'000'000, '0')); },
                ThrowsMessage<ChessException>("Exception in TChessboardId"));
    EXPECT_EQ(ToAlphanum6(id), "100000000006");
}

TEST(ChessboardId, RefusesBitsThatAreNoBoardAndKeepsTheFields) {
    const std::string whole = "100000000006";
    TChessboard board = BoardOf("4k3/8/8/8/8/8/8/4K3");
    for (std::size_t length = 0; length < whole.size(); ++length) {
        EXPECT_THAT([&] { IdOfText(whole.substr(0, length)).ToBoard(board.m_fields); },
                    ThrowsMessage<ChessException>("Wrong chessboard id"))
            << length;
    }
    // The code cut off inside its four bits: 59 zeros, then a man begins.
    EXPECT_THAT([&] { IdOfText("000000000g").ToBoard(board.m_fields); },
                ThrowsMessage<ChessException>("Wrong chessboard id"));
    // 1 + 0011, lowest first: short code 12.
    EXPECT_THAT([&] { IdOfText("p00000000000").ToBoard(board.m_fields); },
                ThrowsMessage<ChessException>("Unknown figure short code"));
    EXPECT_EQ(WriteFen(board, true), "4k3/8/8/8/8/8/8/4K3");
}

TEST(CaseBits, TellNamesApartThatDifferInCaseOnly) {
    EXPECT_EQ(CaseBitsToAlphanum5("aB1Cz"), "6");
    EXPECT_EQ(CaseBitsToAlphanum5("(01)"), "");
    EXPECT_EQ(CaseBitsToAlphanum5("ABCDEF"), "v1");
    EXPECT_NE(CaseBitsToAlphanum5("aaaaaaaaaaA"), CaseBitsToAlphanum5("aaaaaaaaaAa"));
}

TEST(IdFileNames, AreTextCaseBitsAndExtension) {
    const TChessboardId id = TChessboardId::Build(BoardOf("4k3/8/8/8/8/8/8/4K3"));
    EXPECT_EQ(SolvedProblemName(id), ".\\SolvedProblemsDB\\g000000000M0.2.cspdb");
    EXPECT_EQ(UnfinishedProblemName(id), ".\\SolvedProblemsDB\\g000000000M0.2.cpdb");
    EXPECT_EQ(TablebaseAnswersName(id), ".\\SavedTmpSyzygyData\\g000000000M0.2.lichess");
}

TEST(PositionTypeName, ReadsOneLetterAMan) {
    EXPECT_EQ(PositionTypeName(0x17 << 1), "Qr");
    EXPECT_EQ(PositionTypeName(0x1234567 << 1), "QRBNPqr");
    EXPECT_EQ(PositionTypeName((0x89ABC << 1) | 1), "bnpXx");
    for (const std::uint64_t number : {0ULL, 1ULL, 0xDULL << 1, 0x101ULL << 1, ~0ULL}) {
        EXPECT_EQ(PositionTypeName(number), "") << number;
    }
}

}  // namespace
}  // namespace tarnwick
