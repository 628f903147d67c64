#include "app/clipboard/pasted_text.h"

#include <gtest/gtest.h>

#include "base/chess_exception.h"

#include "app/clipboard/copied_text.h"
#include "app/document/line_text.h"
#include "app/document/played_line.h"
#include "app/document/problem_state.h"
#include "app/document/variants.h"
#include "chess/fen.h"

namespace tarnwick {
namespace {

constexpr const char* Placement = "r3k2r/8/8/8/8/8/8/R3K2R";

std::unique_ptr<TChessProblem> ProblemOfFen(const char* fen, int nMoves = 3) {
    auto pProblem = std::make_unique<TChessProblem>();
    bool bIgnored = false;
    EXPECT_TRUE(ReadFen(*pProblem->m_pBoard, fen, bIgnored, bIgnored));
    SetPlies(*pProblem, PliesOfStipulation(TProblemType::DirectMate, nMoves));
    pProblem->m_originalBoard = *pProblem->m_pBoard;
    pProblem->m_id = 12;
    return pProblem;
}

class PastedText : public ::testing::Test {
  protected:
    PastedText() { m_line.Start(*m_pProblem); }

    TPastedText Read(std::string_view text, bool bMirror = false) {
        return ReadPastedText(text, m_pProblem.get(), m_line, bMirror);
    }
    /// The placement that was read; why not, if none was.
    std::string FenOf(std::string_view text) {
        try {
            const TPastedText pasted = Read(text);
            return pasted.fields ? CopiedFen(*pasted.fields, true) : "no FEN";
        } catch (const ChessException& error) {
            return error.what();
        }
    }
    std::string MovesOf(std::string_view text, bool bMirror = false) {
        try {
            CPlayedLine line;
            line.Start(*m_pProblem);
            line.SetMoves(m_line.Moves());
            for (const TMove move : Read(text, bMirror).moves) {
                EXPECT_EQ(line.Play(move), TMoveRefusal::None);
            }
            return TextOfLine(line, false);
        } catch (const ChessException& error) {
            return error.what();
        }
    }

    std::unique_ptr<TChessProblem> m_pProblem = ProblemOfFen("7k/8/8/8/8/8/3Q4/R3K3");
    CPlayedLine m_line;
};

TEST_F(PastedText, ReadsWhatWasCopied) {
    SetDescription(*m_pProblem, L"Zażółć { nothing }");
    AddTag(*m_pProblem, L"tag");
    m_line.Play(TMove{.from = 11, .to = 59});
    SaveMainVariant(*m_pProblem, m_line);
    const TPastedText all = Read(CopiedProblem(*m_pProblem, TCopiedParts::All));
    ASSERT_TRUE(all.pProblem);
    EXPECT_EQ(StateOf(*all.pProblem), StateOf(*m_pProblem));
    EXPECT_EQ(all.pProblem->m_id, 12);

    const TPastedText bare = Read(CopiedProblem(*m_pProblem, TCopiedParts::NoVariantsOrTags));
    ASSERT_TRUE(bare.pProblem);
    EXPECT_TRUE(bare.pProblem->m_variants.empty() && bare.pProblem->m_tags.empty());
    EXPECT_EQ(bare.pProblem->m_description, m_pProblem->m_description);
    const std::string noVariants = CopiedProblem(*m_pProblem, TCopiedParts::NoVariants);
    EXPECT_EQ(Read(noVariants).pProblem->m_tags.size(), 1U);
    EXPECT_FALSE(Read(noVariants).bMoreProblems);
    EXPECT_TRUE(Read("UTF-8\n" + noVariants + noVariants).bMoreProblems);
}

TEST_F(PastedText, FindsAFenAmongOtherWordsOnlyWhereOneIs) {
    for (const std::string text :
         {"r3k2r/8/8/8/8/8/8/R3K2R", "\n  r3k2r/8/8/8/8/8/8/R3K2R w KQkq - 0 1 \n",
          "Look at this/that: (r3k2r/8/8/8/8/8/8/R3K2R). Nice?",
          "[FEN \"r3k2r/8/8/8/8/8/8/R3K2R w KQkq - 0 1\"]",
          "8/8/8/8/8/8/8/9 no, r3k2r/8/8/8/8/8/8/R3K2R yes"}) {
        EXPECT_EQ(FenOf(text), Placement) << text;
        EXPECT_FALSE(Read(text).bFenNote) << text;
    }
    EXPECT_TRUE(Read("r3k2r/8/8/8/8/8/8/R3K2R w - - 0 1").bFenNote);
    EXPECT_TRUE(Read("[r3k2r/8/8/8/8/8/8/R3K2R w KQkq e3] by Kasparov").bFenNote);
    EXPECT_TRUE(FenOf("4k3/8/8/8/8/8/8/8 w - -").starts_with("Operation failed\nIllegal number"));
    EXPECT_NE(FenOf("4k3/8/8/8/8/8/8/4R2K b - -").find("attacked from e1"), std::string::npos);
    EXPECT_TRUE(FenOf("either/or").starts_with("Operation failed\nThe text is no problem"));
}

TEST_F(PastedText, PlaysMovesFromThePresentPosition) {
    EXPECT_EQ(MovesOf("Qd2-d8 Kh8-g7"), "1.Qd2-d8+ Kh8-g7");
    EXPECT_EQ(MovesOf("1. Qd8+ Kg7 2.0-0-0!? 1-0"), "1.Qd2-d8+ Kh8-g7 2.0-0-0");
    EXPECT_EQ(MovesOf("Main variant: 1.Qd2-d8+ Kh8-g7"), "1.Qd2-d8+ Kh8-g7");
    m_line.Play(TMove{.from = 11, .to = 59});
    EXPECT_EQ(MovesOf("1...Kg7"), "1.Qd2-d8+ Kh8-g7");

    const std::string stuck = MovesOf("Kg7 Qh9");
    EXPECT_NE(stuck.find("\"Qh9\" is no move"), std::string::npos) << stuck;
    EXPECT_TRUE(MovesOf("").starts_with("Operation failed"));
    EXPECT_TRUE(MovesOf("12. ...").starts_with("Operation failed"));
    EXPECT_TRUE(MovesOf("{ a brace").starts_with("Operation failed\n"));
}

TEST_F(PastedText, MirrorsMovesAndDescriptions) {
    m_pProblem = ProblemOfFen("7k/8/8/8/8/8/4Q3/4K3");
    m_line.Start(*m_pProblem);
    // In the mirrored position the queen stands on d2 and the king on d1.
    EXPECT_EQ(MovesOf("Qd2-h6 Ka8-b8", true), "1.Qe2-a6 Kh8-g8");
    m_line.Play(TMove{.from = 12, .to = 44});
    EXPECT_EQ(MovesOf("Ka7", true), "1.Qe2-e6 Kh8-h7");
}

TEST_F(PastedText, TogglesTheMirrorPrefix) {
    SetDescription(*m_pProblem, L"Composer");
    const TTransformNotes notes = MirrorPasted(*m_pProblem);
    EXPECT_TRUE(notes.bHadCastlingRights);
    EXPECT_EQ(m_pProblem->m_description, L"Mirror: Composer");
    EXPECT_EQ(WriteFen(*m_pProblem->m_pBoard, true), "k7/8/8/8/8/8/4Q3/3K3R");
    MirrorPasted(*m_pProblem);
    EXPECT_EQ(m_pProblem->m_description, L"Composer");
    SetDescription(*m_pProblem, L"");
    MirrorPasted(*m_pProblem);
    MirrorPasted(*m_pProblem);
    EXPECT_EQ(m_pProblem->m_description, L"");
}

TEST_F(PastedText, RefusesAFileInPlaceOfAText) {
    EXPECT_EQ(FenOf(std::string(MaxPastedText + 1, '/')), "Too much data to paste");
    EXPECT_TRUE(FenOf(std::string(1'000'000, '{')).starts_with("Operation failed\n"));
    EXPECT_TRUE(FenOf(std::string(1'000'000, 'Q')).size() < 600);
}

TEST(CopiedFen, NeedsAPositionForTheFullForm) {
    TSetupFields fields{};
    fields[E1] = WhiteKing;
    EXPECT_EQ(CopiedFen(fields, true), "8/8/8/8/8/8/8/4K3");
    EXPECT_THROW(CopiedFen(fields, false), ChessException);
    fields[E8] = BlackKing;
    fields[H1] = WhiteRook;
    EXPECT_EQ(CopiedFen(fields, false), "4k3/8/8/8/8/8/8/4K2R w K - 0 1");
}

}  // namespace
}  // namespace tarnwick
