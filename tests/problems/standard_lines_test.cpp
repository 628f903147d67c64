#include "problems/standard_lines.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "chess/fen.h"
#include "chess/move_text.h"
#include "support/case_name.h"

namespace tarnwick {
namespace {

struct TStandardCase {
    const char* name;
    const char* fen;
    const char* moves;  ///< In full notation.
    const char* texts;
};

class StandardNotation : public ::testing::TestWithParam<TStandardCase> {};

TEST_P(StandardNotation, OfEachMove) {
    TChessProblem problem;
    bool bCastlingWithheld = false;
    bool bEnPassantGiven = false;
    ASSERT_TRUE(ReadFen(*problem.m_pBoard, GetParam().fen, bCastlingWithheld, bEnPassantGiven));
    std::vector<TMove> moves;
    std::istringstream words(GetParam().moves);
    for (std::string word; words >> word;) {
        moves.push_back(ReadMoveText(word, moves.size() % 2 == 0).move);
    }
    std::string texts;
    CStandardLines lines(problem);
    for (const std::string& text : lines.Texts(moves)) {
        texts += (texts.empty() ? "" : " ") + text;
    }
    EXPECT_EQ(texts, GetParam().texts);
}

INSTANTIATE_TEST_SUITE_P(
    Lines, StandardNotation,
    ::testing::Values(
        TStandardCase{"Opening", "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR",
                      "e2-e4 e7-e5 Qd1-h5 Nb8-c6 Bf1-c4 Ng8-f6 Qh5:f7",
                      "e4 e5 Qh5 Nc6 Bc4 Nf6 Qxf7#"},
        TStandardCase{"OtherFile", "7k/8/8/8/8/8/8/KN3N2", "Nb1-d2", "Nbd2"},
        TStandardCase{"OtherRank", "7k/8/8/1N6/8/8/8/KN6", "Nb1-c3", "N1c3"},
        TStandardCase{"FileBeforeRank", "7k/8/8/8/N7/8/N7/K7", "Na2-c3", "N2c3"},
        TStandardCase{"BothFields", "7k/8/8/8/8/N3N3/8/KN6", "Na3-c2", "Nac2"},
        TStandardCase{"ThreeQueens", "k7/8/8/8/4Q2Q/8/8/K6Q", "Qh4-e1", "Qh4e1"},
        TStandardCase{"PinnedManDoesNotCount", "4r2k/8/8/8/8/4N3/8/N3K3", "Na1-c2", "Nc2"},
        TStandardCase{"Promotions", "1n5k/P7/8/8/8/8/8/K7", "a7:b8Q", "axb8=Q+"},
        TStandardCase{"PromotionToKnight", "8/P7/8/8/8/8/8/K6k", "a7-a8N", "a8=N"},
        TStandardCase{"CastlingOfBoth", "r3k2r/8/8/8/8/8/8/R3K2R", "0-0 0-0-0", "O-O O-O-O"},
        TStandardCase{"CastlingGivesMate", "8/8/8/8/8/8/4Q3/R3K1k1", "0-0-0", "O-O-O#"},
        TStandardCase{"EnPassant", "4k3/3p4/8/4P3/8/8/8/4K3", "Ke1-e2 d7-d5 e5:d6", "Ke2 d5 exd6"},
        TStandardCase{"WhiteCannotMateAnyMore", "7k/8/8/8/8/8/6r1/K5N1", "Ka1-b1 Rg2:g1",
                      "Kb1 Rxg1+"},
        TStandardCase{"EndsBeforeWhatIsIllegal", "7k/8/5K2/8/8/8/8/6R1", "Kf6-f7 Kh8-g8 Rg1-h1",
                      "Kf7"}),
    CaseName);

}  // namespace
}  // namespace tarnwick
