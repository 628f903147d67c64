#include "cli/solve_report.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "chess/move_text.h"

namespace tarnwick {
namespace {

using testing::HasSubstr;
using testing::Not;

/// A mate in two with a made-up outcome.
class SolveReport : public testing::Test {
  protected:
    SolveReport() : m_input(ReadTypedProblem("7k/8/5K2/8/8/8/8/6R1", 2)) {
        m_solved.pInput = &m_input.problems.at(0);
    }

    TSolveResult& Result() { return m_solved.result; }
    void FindKeyInPass(const char* name) {
        Result().status = TSolveStatus::Mate;
        Result().keys.emplace_back();
        ParseFullMove(Result().keys.back(), "Kf6-f7", true);
        Result().passFound = name;
    }

    TProblemInput m_input;
    TSolvedProblem m_solved;
    CTextStyle m_plain{false};
};

TEST_F(SolveReport, PassesTellWhatBecameOfThem) {
    FindKeyInPass("1b");
    Result().passes = {{"0", "", 10, 1, 0, true},
                       {"1", "SH_KEEPKINGONTHEEDGE, SH_AREKINGSNEAR", 20, 2, 0, false},
                       {"1b", "SH_AREKINGSNEAR", 30, 3, 1, false}};
    const std::string json = OutcomeJson(m_solved);
    EXPECT_THAT(
        json,
        HasSubstr(R"("passes":[{"name":"0","heuristics":"","nodes":10,"ms":1,"keys":0,)"
                  R"("result":"none","complete":true},)"
                  R"({"name":"1","heuristics":"SH_KEEPKINGONTHEEDGE, SH_AREKINGSNEAR","nodes":20,)"
                  R"("ms":2,"keys":0,"result":"stopped","complete":false},)"
                  R"({"name":"1b","heuristics":"SH_AREKINGSNEAR","nodes":30,"ms":3,"keys":1,)"
                  R"("result":"mate","complete":false}],"pass_found":"1b"})"));
    EXPECT_THAT(OutcomeText(m_solved, m_plain), HasSubstr("key found in pass 1b\n"));
    EXPECT_THAT(BriefText(m_solved, m_plain), HasSubstr("key found in pass 1b"));
}

TEST_F(SolveReport, OpenProblemIsNeitherSolvedNorRefuted) {
    Result().status = TSolveStatus::Open;
    Result().message = "nobody knows";
    EXPECT_THAT(OutcomeJson(m_solved),
                HasSubstr(R"("status":"open","keys":[],"all":false,"exact":false)"));
    const std::string text = OutcomeText(m_solved, m_plain);
    EXPECT_THAT(text, HasSubstr("No key found (nobody knows)\n"));
    EXPECT_THAT(text, Not(HasSubstr("found in pass")));
    CSolveSummary summary;
    summary.Add(m_solved);
    EXPECT_EQ(summary.Count(), 1U);
    EXPECT_EQ(summary.Status(), TExitStatus::Stopped);
    EXPECT_THAT(summary.Text(m_plain, 0), HasSubstr("0 refused, 1 left open\n"));
}

}  // namespace
}  // namespace tarnwick
