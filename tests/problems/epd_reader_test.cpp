#include "problems/epd_reader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "chess/fen.h"
#include "support/case_name.h"

namespace tarnwick {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::StartsWith;

constexpr const char* Mate = "7k/8/5K2/8/8/8/8/R7";

std::string Line(const std::string& rest) {
    return std::string(Mate) + rest + "\n";
}

TEST(EpdReader, ReadsMatesWithTheirNamesAndPassesOtherOperationsOver) {
    TEpdFile file;
    ReadEpdText("\xEF\xBB\xBF" + Line(" w - - bm #2; id \"first; one\";") + "\r\n \n" +
                    Line(" w - - acd 12; dm 7; id x\xC5\x82; c0 \"bm #9;\"; bm Ra2; bm #03") +
                    Line(" w - - 0 1 bm #4;\r"),
                "", file);
    ASSERT_EQ(file.problems.size(), 3U);
    const TChessProblem& first = *file.problems[0].pProblem;
    EXPECT_EQ(first.m_id, 1);
    EXPECT_EQ(first.m_type, TProblemType::DirectMate);
    EXPECT_EQ(first.m_shPlies, 3);
    EXPECT_EQ(first.m_pBoard->m_shRootPlies, 3);
    EXPECT_EQ(first.m_description, L"first; one");
    EXPECT_EQ(WriteFen(first.m_originalBoard, true), Mate);
    EXPECT_EQ(file.problems[1].pProblem->m_description, L"x\u0142");
    EXPECT_EQ(file.problems[1].pProblem->m_shPlies, 5);
    EXPECT_EQ(file.problems[1].nLine, 4);
    EXPECT_THAT(file.problems[1].passedOver, ElementsAre("acd", "dm", "c0", "bm"));
    EXPECT_EQ(file.problems[2].pProblem->m_id, 3);
    EXPECT_TRUE(file.notes.empty());
}

TEST(EpdReader, BlackToMoveIsReadWithColoursExchanged) {
    TEpdFile file;
    ReadEpdText("r7/8/8/8/8/5k2/8/7K b - - bm #2;", "", file);
    ASSERT_EQ(file.problems.size(), 1U);
    EXPECT_TRUE(file.problems[0].bColoursSwapped);
    EXPECT_EQ(WriteFen(*file.problems[0].pProblem->m_pBoard, true), Mate);
    EXPECT_EQ(file.problems[0].pProblem->m_pBoard->m_blackChecker, NoChecker);
}

TEST(EpdReader, LosingLinesArePassedOverButCounted) {
    TEpdFile file;
    ReadEpdText(Line(" b - - bm #-3;") + Line(" w - - bm #2;"), "", file);
    ASSERT_EQ(file.notes.size(), 1U);
    EXPECT_EQ(file.notes[0].nLine, 1);
    EXPECT_THAT(file.notes[0].text, HasSubstr("#-3"));
    ASSERT_EQ(file.problems.size(), 1U);
    EXPECT_EQ(file.problems[0].pProblem->m_id, 2);
}

TEST(EpdReader, RightsThatWeDoNotConsiderAreNoted) {
    TEpdFile file;
    ReadEpdText(
        "r3k3/8/8/8/8/8/8/4K2R w - - bm #9;\nr3k3/8/8/8/8/8/8/4K2R w Kq - bm #9;\n"
        "4k3/8/8/3pP3/8/8/8/4K3 w - d6 bm #9;\n",
        "", file);
    EXPECT_EQ(file.problems.size(), 3U);
    ASSERT_EQ(file.notes.size(), 2U);
    EXPECT_THAT(file.notes[0].text, StartsWith("Note: Program does not consider"));
    EXPECT_EQ(file.notes[1].nLine, 3);
}

struct TBrokenEpd {
    const char* name;
    std::string line;
    const char* message;
};

class BrokenEpd : public ::testing::TestWithParam<TBrokenEpd> {};

TEST_P(BrokenEpd, IsRefusedWithItsLine) {
    TEpdFile file;
    try {
        ReadEpdText(Line(" w - - bm #2;") + "\n" + GetParam().line, "name.epd", file);
        FAIL() << "read";
    } catch (const TProblemFileError& e) {
        EXPECT_STREQ(e.what(), GetParam().message);
        EXPECT_EQ(e.Line(), 3);
        EXPECT_EQ(e.File(), "name.epd");
    }
    EXPECT_EQ(file.problems.size(), 1U);
}

INSTANTIATE_TEST_SUITE_P(
    Lines, BrokenEpd,
    ::testing::Values(
        TBrokenEpd{"NoPosition", "hello world", "The line does not begin with a FEN code"},
        TBrokenEpd{"NoKing", "7k/8/8/8/8/8/8/R7 w - - bm #2;", "Illegal number of kings."},
        TBrokenEpd{"NoSide", Line(" - - bm #2;"),
                   "Side to move (w or b) expected after the position: -"},
        TBrokenEpd{"NoMate", Line(" w - - bm Ra2; id \"x\";"),
                   "No number of moves to mate (bm #N;)"},
        TBrokenEpd{"MateInNought", Line(" w - - bm #0;"), "Invalid number (allowed: 1-32767): 0"},
        TBrokenEpd{"MateTooLong", Line(" w - - bm #32768;"),
                   "Invalid number (allowed: 1-32767): 32768"},
        TBrokenEpd{"MateInWords", Line(" w - - bm #2x;"), "Invalid number (allowed: 1-32767): 2x"},
        TBrokenEpd{"TextNotClosed", Line(" w - - bm #2; id \"x;"),
                   "Closing quotation mark missing"},
        TBrokenEpd{"Nul", std::string("\0", 1), "The line does not begin with a FEN code"}),
    CaseName);

TEST(EpdReader, TheSharedCollectionReads) {
    const char* folder = std::getenv("TARNWICK_SHARED_DATA_DIR");
    const std::string path =
        std::string(folder != nullptr ? folder : TARNWICK_SHARED_DATA_DIR) + "/moremovers.epd";
    if (!std::filesystem::exists(path)) {
        GTEST_SKIP() << path << " is missing";
    }
    TEpdFile file;
    ReadEpdFile(path, file);
    EXPECT_EQ(file.problems.size(), 175U);
    EXPECT_TRUE(file.notes.empty());
}

}  // namespace
}  // namespace tarnwick
