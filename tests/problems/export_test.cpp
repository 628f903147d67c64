// Problems in the forms of other programs. tests/end_to_end asks another program whether it reads them.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "chess/fen.h"
#include "problems/cp_file_reader.h"
#include "problems/epd_reader.h"
#include "problems/epd_writer.h"
#include "problems/pgn_writer.h"
#include "support/problem_compare.h"

namespace tarnwick {
namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::SizeIs;

using TProblems = std::vector<const TChessProblem*>;

class Export : public ::testing::Test {
  protected:
    TProblems Read(const std::string& text) {
        ReadProblemText("UTF-8\n" + text, "test", m_list);
        TProblems problems;
        for (const TChessProblem* const pProblem : m_list.Problems()) {
            problems.push_back(pProblem);
        }
        return problems;
    }
    std::string Pgn(const std::string& text) { return PgnOfProblems(Read(text)).text; }

    TProblemList m_list;
};

constexpr const char* Rook = "FEN: 7k/8/5K2/8/8/8/8/6R1\n";

TEST_F(Export, EpdIsReadAgainAsTheSameProblem) {
    const TProblems problems =
        Read("1 #2\n{\n Description: A; zażółć\n" + std::string(Rook) +
             "Answer: Kf6-f7\n}\n2 #3 {\nFEN: r3k2r/8/8/8/8/8/8/R3K2R\nAnswer: 0-0, 0-0-0\n}\n");
    const TExportedText epd = EpdOfProblems(problems);
    EXPECT_EQ(epd.text,
              "7k/8/5K2/8/8/8/8/6R1 w - - bm #2; id \"A; zażółć\"; pm Kf7;\n"
              "r3k2r/8/8/8/8/8/8/R3K2R w KQkq - bm #3; c0 \"keys: O-O, O-O-O\";\n");
    EXPECT_THAT(epd.losses, SizeIs(0));
    TEpdFile read;
    ReadEpdText(epd.text, "", read);
    ASSERT_THAT(read.problems, SizeIs(2));
    EXPECT_THAT(read.notes, SizeIs(0));
    for (std::size_t i = 0; i < 2; ++i) {
        const TChessProblem& again = *read.problems[i].pProblem;
        EXPECT_EQ(WriteFen(*again.m_pBoard, false), WriteFen(*problems[i]->m_pBoard, false));
        EXPECT_EQ(again.m_shPlies, problems[i]->m_shPlies);
        EXPECT_EQ(again.m_description, problems[i]->m_description);
    }
}

TEST_F(Export, EpdTellsWhatItCannotHold) {
    const TExportedText epd = EpdOfProblems(Read(
        "1 #2 ALLSOLUTIONS\n//#TAGS\n//#miniature\n//!VARIANTS\n//!{a} Kf6-f7\n//!ENDVARIANTS\n{\n"
        "Description: the \"rook\"\n" +
        std::string(Rook) + "Answer: Rg1-h2\n}\n2 s#2 {\n" + Rook + "}\n3 {\n" + Rook +
        "}\n4 #2 {\nWhite: Ke1, Ke2\nBlack: Ke8\n}\n5 #2 {\n" + Rook + "}\n"));
    ASSERT_THAT(epd.losses, SizeIs(4));
    EXPECT_EQ(epd.losses[0].what,
              "tags, options of the problem, variants, quotation marks of the description, the "
              "illegal answer Rg1-h2");
    EXPECT_FALSE(epd.losses[0].bLeftOut);
    for (std::size_t i = 1; i < 4; ++i) {
        EXPECT_EQ(epd.losses[i].id, static_cast<int>(i) + 1);
        EXPECT_TRUE(epd.losses[i].bLeftOut);
    }
    EXPECT_EQ(epd.text,
              "7k/8/5K2/8/8/8/8/6R1 w - - bm #2; id \"the 'rook'\";\n"
              "7k/8/5K2/8/8/8/8/6R1 w - - bm #2;\n");
}

TEST_F(Export, PgnNamesComposerSourceAndYear) {
    const std::string pgn =
        Pgn("7 #2 {\nDescription: Jan \"X\" \\Nowak, New York Clipper, 1856: it's {so}\n" +
            std::string(Rook) + "Answer: Kf6-f7\n}\n");
    EXPECT_EQ(pgn,
              "[Event \"New York Clipper\"]\n[Site \"?\"]\n[Date \"1856.??.??\"]\n"
              "[Round \"7\"]\n[White \"Jan \\\"X\\\" \\\\Nowak\"]\n[Black \"mate in 2\"]\n"
              "[Result \"1-0\"]\n[FEN \"7k/8/5K2/8/8/8/8/6R1 w - - 0 1\"]\n[SetUp \"1\"]\n\n"
              "{Jan \"X\" \\Nowak, New York Clipper, 1856: it's (so)} 1. Kf7 1-0\n");
}

TEST_F(Export, PgnHasVariantsAsVariations) {
    const std::string pgn =
        Pgn("1 #2\n//!VARIANTS\n//!{a try} Rg1-g2[quiet] Kh8-h7[away] Kf6-f7\n"
            "//!{Main variant} Kf6-f7[key] Kh8-h7 Rg1-h1\n//!{twin} Kf6-f7[also] Kh8-h7[forced]\n"
            "//!{late} Rg1-g2 Kh8-h7 Rg2-g1\n//!ENDVARIANTS\n{\n" +
            std::string(Rook) + "Answer: Kf6-f7, Rg1-a1\n}\n");
    EXPECT_THAT(
        pgn,
        EndsWith("\n\n1. Kf7 {key; also} (1. Ra1) ({a try} 1. Rg2 {quiet} 1... Kh7 {away} 2. Kf7\n"
                 "({late} 2. Rg1)) 1... Kh7 {forced; twin} 2. Rh1# 1-0\n"));
}

TEST_F(Export, PgnOfALineOfPlayEndsWithItsMate) {
    const char* const line = "Moves: Kf6-f7 Kh8-h7 Rg1-h1\n}\n";
    EXPECT_THAT(Pgn("1 {\n" + std::string(Rook) + line), EndsWith("\n\n1. Kf7 Kh7 2. Rh1# 1-0\n"));
    EXPECT_THAT(Pgn("1 {\n" + std::string(Rook) + "}\n"), EndsWith("\n\n*\n"));
    EXPECT_THAT(Pgn("1 s#3 {\n" + std::string(Rook) + "}\n"), HasSubstr("[Result \"0-1\"]"));
}

TEST_F(Export, PgnTellsWhereAVariantBreaks) {
    const TExportedText pgn =
        PgnOfProblems(Read("1 #2\n//!VARIANTS\n//!{a} Kf6-f7 Kh8-g8 Rg1-h1\n//!ENDVARIANTS\n{\n" +
                           std::string(Rook) + "}\n2 #2 {\nWhite: Ke1, Ke2\nBlack: Ke8\n}\n"));
    ASSERT_THAT(pgn.losses, SizeIs(2));
    EXPECT_EQ(pgn.losses[0].what, "the variant \"a\" from the illegal move Kh8-g8 on");
    EXPECT_TRUE(pgn.losses[1].bLeftOut);
    EXPECT_THAT(pgn.text, EndsWith("{a} 1. Kf7 1-0\n"));
}

TEST_F(Export, PgnLinesAreShortAndNoneIsARemark) {
    std::string words;
    for (int i = 0; i < 60; ++i) {
        words += " word %signs";
    }
    const std::string pgn = Pgn("1 #2 {\nDescription:" + words + "\n" + Rook + "}\n");
    std::string_view rest = pgn;
    rest.remove_prefix(pgn.find("\n\n") + 2);
    while (!rest.empty()) {
        const std::string_view line = rest.substr(0, rest.find('\n'));
        EXPECT_LE(line.size(), 79U + std::string_view(" %signs").size());
        EXPECT_NE(line.front(), '%');
        rest.remove_prefix(line.size() + 1);
    }
}

}  // namespace
}  // namespace tarnwick
