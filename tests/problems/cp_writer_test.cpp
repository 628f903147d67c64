#include "problems/cp_writer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "chess/fen.h"
#include "chess/prepare_position.h"
#include "problems/cp_file_reader.h"
#include "support/problem_compare.h"
#include "support/random_positions.h"
#include "support/temp_folder.h"

namespace tarnwick {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

constexpr const char* TestData = TARNWICK_TEST_DATA;

std::string SharedDataFolder() {
    const char* folder = std::getenv("TARNWICK_SHARED_DATA_DIR");
    return folder != nullptr ? folder : TARNWICK_SHARED_DATA_DIR;
}

/// Reads a text of one problem and returns how it is written.
std::string Rewritten(const std::string& text) {
    TProblemList list;
    ReadProblemText(text, "", list);
    return ProblemToText(*list.Problems().at(0));
}

/// The law of the format: what was written is read as the same problem and written the same again.
void ExpectLaw(const TProblemList& list) {
    const std::string written = ProblemListToText(list);
    TProblemList again;
    ASSERT_NO_THROW(ReadProblemText(written, "", again)) << written;
    EXPECT_EQ(ProblemListToText(again), written);
    ASSERT_EQ(again.Size(), list.Size());
    for (const TChessProblem* pProblem : list.Problems()) {
        EXPECT_EQ(WrittenDifferences(*pProblem, *again.Find(pProblem->m_id)), "")
            << ProblemToText(*pProblem);
    }
}

TEST(CpWriter, WritesAllThatHasAFormAndDropsTheRest) {
    TProblemList list;
    ReadProblemFile(std::string(TestData) + "/problems/everything.cp", list,
                    {.heuristicBitOfName = [](std::string_view name) noexcept {
                        return name.starts_with("SH_") ? 1U : 0U;
                    }});
    EXPECT_EQ(ProblemListToText(list), R"(UTF-8


1 #2
{
	Description: Click here to change problem description
	FEN: 4k3/8/8/8/8/8/8/4K3
}

7 s#3 NoMirror MirrorOnly AllSolutions StopOnDual StopOn3Sol UseMainVariantAsSortIndications THREADS 4 GUICHECK GUICHECKBESTDEFENCE SAFEMODE Requires KQk RequiresSyzygy AllSolutionsRequiresSyzygy
//#TAGS
//#miniature
//#zażółć
//!VARIANTS
//!{Main variant} Qa1-a8[threat] Kh7:g6 0-0 0-0-0[end]
//!{other} e7-e8Q
//!ENDVARIANTS
//@SortIndications: ~Kb2; Rh1:h7+; 3.Qa1-a8
{
	Description: A description
	FEN: r3k2r/8/8/8/8/8/4P3/R3K2R
	Answer:  0-0,  0-0-0,  Ra1:a8,  e2-e4
}

9  GUICHECK
{
	FEN: r3k2r/pppppppp/8/8/8/8/PPPPPPPP/R3K2R
   Moves:     e2-e4 d7-d5 e4:d5 e7-e5 d5:e6 0-0 0-0-0
	Answer:  a2-a3
}
)");
    ExpectLaw(list);
}

TEST(CpWriter, AFileOfTheOldEncodingIsWrittenInTheNewOne) {
    TProblemList list;
    ReadProblemText("1 #2\n//#TAGS\n//#\xB9\n{D: \xB3\xF3\x9C\n W: Ke1 B: Ke8}", "", list);
    EXPECT_THAT(ProblemListToText(list), HasSubstr("//#ą\n{\n\tDescription: łóś\n"));
    ExpectLaw(list);
}

TEST(CpWriter, MenThatMakeNoPositionAreWrittenAsListsSoThatTheFileStaysReadable) {
    EXPECT_THAT(Rewritten("1 #2 {W: Ke1, Pa2, h1 B:}"),
                HasSubstr("\tWhite: Ke1, h1, a2\n\tBlack:\n}\n"));
    for (const char* text : {"1 #2 {W: Ke1 B: }", "1 #2 {W: a8,Sb1 B: Ke1,Ke2,Wh1}",
                             "1 #2 {W: Ke1,Re2 B: Ke8,Re3 A: Re2:e3}"}) {
        TProblemList list;
        ReadProblemText(text, "", list);
        ExpectLaw(list);
    }
}

TEST(CpWriter, AnswersThatAreNoMovesOfThePositionAreStillTheSame) {
    TProblemList list;
    ReadProblemText(
        "1 #2 {W: Kb3, a7 B: Kh8 A: Kb3-g8, b3-h3Q, 0-0, 0-0-0, Qc4:d5, a7-a8N, Kh8-a1}"
        "2 #2 {W: Ke1,Ra1 B: Ke8 A: 0-0-0, Ke1-c1Q, Ke1-g1, Ke8-g8, e1-e3}",
        "", list);
    ExpectLaw(list);
}

TEST(CpWriter, ATextOfSeveralLinesStaysOnItsLine) {
    TProblemList list;
    ReadProblemText("1 #2 {W: Ke1 B: Ke8}", "", list);
    list.Find(1)->m_description = L"one\n}\r\ntwo";
    list.Find(1)->m_tags = {L"a\nb"};
    EXPECT_THAT(ProblemListToText(list), HasSubstr("//#a b\n{\n\tDescription: one }  two\n"));
}

TEST(CpWriter, RandomPositionsAndGamesAreReadAgainAsTheSame) {
    slow::CRandomPositions positions(slow::TestSeed());
    TProblemList list;
    for (int id = 1; id <= 300; ++id) {
        const std::string fen = positions.Next();
        std::string text = std::to_string(id) + (id % 3 == 0 ? " s#" : " #") + std::to_string(id);
        if (id % 2 == 0) {
            text = std::to_string(id) + "\n";
        }
        text += "{FEN: " + fen + "\n";
        if (id % 2 == 0) {
            text += "Moves:";
            for (const slow::TGameStep& step :
                 slow::RandomGame(slow::TestSeed() + static_cast<unsigned>(id), fen, 60)) {
                text += " " + step.text;
            }
        }
        SCOPED_TRACE(positions.Story() + "\n" + text);
        ASSERT_NO_THROW(ReadProblemText(text + "}", "", list));
    }
    ExpectLaw(list);
}

TEST(CpWriter, ProblemsOfOtherPeopleAreReadAgainAsTheSame) {
    const std::string path = SharedDataFolder() + "/short.cp";
    if (!std::filesystem::exists(path)) {
        GTEST_SKIP() << path << " is missing";
    }
    TProblemList list;
    ReadProblemFile(path, list);
    EXPECT_EQ(list.Size(), 127U);
    ExpectLaw(list);
}

TEST(CpWriter, TheFileIsReplacedAsAWholeOrNotAtAll) {
    const CTempFolder folder;
    TProblemList list;
    ReadProblemText("1 #2 {W: Ke1 B: Ke8}", "", list);
    WriteProblemFile(folder / "a.cp", list);
    EXPECT_EQ(ReadBytes(folder / "a.cp"), ProblemListToText(list));
    list.Clear();
    WriteProblemFile(folder / "a.cp", list, TBackup::Keep);
    EXPECT_EQ(ReadBytes(folder / "a.cp"), "UTF-8\n\n");
    EXPECT_EQ(folder.Count(), 2U);

    const std::string nowhere = (folder / "none/a.cp").string();
    try {
        WriteProblemFile(nowhere, list);
        FAIL() << "written to " << nowhere;
    } catch (const ChessException& e) {
        EXPECT_THAT(e.what(), StartsWith("Error opening file: " + nowhere + "\n"));
    }
}

}  // namespace
}  // namespace tarnwick
