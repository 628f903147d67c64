#include "cli/problem_input.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/chess_exception.h"

#include "chess/fen.h"

namespace tarnwick {
namespace {

using testing::HasSubstr;
using testing::SizeIs;

constexpr const char* Fen = "7k/8/5K2/8/8/8/8/6R1";

TProblemInput Read(std::string text, TInputForm form) {
    return ReadProblems({.name = "file", .text = std::move(text), .form = form});
}

std::string CpProblem(int id) {
    return std::to_string(id) + " #2\n{\n\tFEN: " + Fen + "\n}\n";
}

TEST(ProblemInput, ProblemsKnowTheirLines) {
    const TProblemInput input =
        Read("UTF-8\n\n" + CpProblem(7) + "// a comment\n" + CpProblem(3), TInputForm::ProblemFile);
    ASSERT_THAT(input.problems, SizeIs(2));
    EXPECT_EQ(input.problems[0].pProblem->m_id, 3);
    EXPECT_EQ(input.problems[0].nLine, 8);
    EXPECT_EQ(input.problems[1].nLine, 3);
    EXPECT_THAT(input.remarks, SizeIs(0));
}

TEST(ProblemInput, FaultKeepsTheProblemsBeforeIt) {
    const TProblemInput input = Read(CpProblem(1) + "2 #x\n", TInputForm::ProblemFile);
    ASSERT_THAT(input.problems, SizeIs(1));
    ASSERT_THAT(input.remarks, SizeIs(1));
    EXPECT_EQ(input.remarks[0].nLine, 5);
    EXPECT_TRUE(input.HasFault());
}

TEST(ProblemInput, RepeatedNumberIsRemarkedWithBothLines) {
    const TProblemInput input = Read(CpProblem(1) + CpProblem(1), TInputForm::ProblemFile);
    ASSERT_THAT(input.problems, SizeIs(1));
    EXPECT_EQ(input.problems[0].nLine, 5);
    ASSERT_THAT(input.remarks, SizeIs(1));
    EXPECT_EQ(input.remarks[0].nLine, 5);
    EXPECT_THAT(input.remarks[0].text, HasSubstr("line 1"));
    EXPECT_FALSE(input.HasFault());
}

TEST(ProblemInput, BadLineOfAListCostsThatLineAlone) {
    const std::string good = std::string(Fen) + " w - - bm #2;\n";
    const TProblemInput input = Read(good + "rubbish\n\n# comment\n" + good, TInputForm::Epd);
    ASSERT_THAT(input.problems, SizeIs(2));
    EXPECT_EQ(input.problems[1].nLine, 5);
    EXPECT_EQ(input.problems[1].pProblem->m_id, 3) << "the bad line counts, blank ones do not";
    ASSERT_THAT(input.remarks, SizeIs(1));
    EXPECT_EQ(input.remarks[0].nLine, 2);
}

TEST(ProblemInput, TextOfAnotherKindGetsABoundedNumberOfMessages) {
    std::string text;
    for (int i = 0; i < 100000; ++i) {
        text += "no position\n";
    }
    const TProblemInput input = Read(text, TInputForm::Epd);
    EXPECT_TRUE(input.HasFault());
    EXPECT_LT(input.remarks.size(), 200U);
}

TEST(ProblemInput, ATextWithoutProblemsIsAFault) {
    EXPECT_TRUE(Read("UTF-8\n", TInputForm::ProblemFile).HasFault());
    EXPECT_TRUE(Read("# nothing\n", TInputForm::Epd).HasFault());
}

TEST(TypedProblem, BlackToMoveIsTurnedRound) {
    const TProblemInput input = ReadTypedProblem(" 6r1/8/8/8/8/5k2/8/7K  b - -", 2);
    ASSERT_THAT(input.problems, SizeIs(1));
    EXPECT_TRUE(input.problems[0].bColoursSwapped);
    EXPECT_EQ(WriteFen(*input.problems[0].pProblem->m_pBoard, true), Fen);
    EXPECT_EQ(MovesOfStipulation(*input.problems[0].pProblem), 2);
}

TEST(TypedProblem, RightsThatAreNotFollowedAreRemarked) {
    EXPECT_THAT(ReadTypedProblem("4k3/8/8/8/8/8/8/4K2R w - -", 2).remarks, SizeIs(1));
    EXPECT_THAT(ReadTypedProblem("4k3/8/8/8/8/8/8/4K2R w K -", 2).remarks, SizeIs(0));
    EXPECT_THAT(ReadTypedProblem("4k3/8/8/3pP3/8/8/8/4K3 w - d6", 2).remarks, SizeIs(1));
}

TEST(TypedProblem, WhatIsNoPositionIsRefused) {
    EXPECT_THROW(ReadTypedProblem("rubbish\x1b[2J", 2), ChessException);
    EXPECT_THROW(ReadTypedProblem("8/8/8/8/8/8/8/8", 2), ChessException);
    EXPECT_THROW(ReadTypedProblem("", 2), ChessException);
}

}  // namespace
}  // namespace tarnwick
