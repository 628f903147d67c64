#include "cli/answer_check.h"

#include <gtest/gtest.h>

#include "chess/move_text.h"

namespace tarnwick {
namespace {

std::vector<TMove> Moves(const std::vector<const char*>& texts) {
    std::vector<TMove> moves;
    for (const char* text : texts) {
        moves.emplace_back();
        ParseFullMove(moves.back(), text, true);
    }
    return moves;
}

struct TCase {
    const char* name;
    std::vector<const char*> given;
    TSolveStatus status;
    std::vector<const char*> found;
    bool bAll;
    bool bComplete;
    TAnswerVerdict verdict;
    std::size_t missing;
    std::size_t extra;
};

class AnswerCheck : public testing::TestWithParam<TCase> {};

TEST_P(AnswerCheck, ComparesWhatIsKnown) {
    const TCase& c = GetParam();
    TSolveResult result;
    result.status = c.status;
    result.keys = Moves(c.found);
    result.bComplete = c.bComplete;
    const TAnswerCheck check = CheckAnswers(Moves(c.given), result, c.bAll);
    EXPECT_EQ(check.verdict, c.verdict);
    EXPECT_EQ(check.missing.size(), c.missing);
    EXPECT_EQ(check.extra.size(), c.extra);
}

using enum TAnswerVerdict;
using enum TSolveStatus;

INSTANTIATE_TEST_SUITE_P(
    Outcomes, AnswerCheck,
    testing::Values(
        TCase{"SameKeysInAnyOrder",
              {"Ra1-a8", "a7-a8Q"},
              Mate,
              {"a7-a8Q", "Ra1-a8"},
              true,
              true,
              Agree,
              0,
              0},
        TCase{"OneKeyOfSeveral", {"Ra1-a8", "Rb1-b8"}, Mate, {"Rb1-b8"}, false, true, Agree, 0, 0},
        TCase{"AnotherPromotion", {"a7-a8Q"}, Mate, {"a7-a8R"}, true, true, Differ, 1, 1},
        TCase{"OneTooFew", {"Ra1-a8", "Rb1-b8"}, Mate, {"Ra1-a8"}, true, true, Differ, 1, 0},
        TCase{"OneTooMany", {"Ra1-a8"}, Mate, {"Ra1-a8", "Rb1-b8"}, true, true, Differ, 0, 1},
        TCase{"StopRuleEndedTheSearch",
              {"Ra1-a8", "Rb1-b8", "Rc1-c8"},
              Mate,
              {"Ra1-a8", "Rb1-b8"},
              true,
              false,
              Agree,
              0,
              0},
        TCase{"NoMateAtAll", {"Ra1-a8"}, NoMate, {}, false, true, Differ, 1, 0},
        TCase{
            "StoppedWithAKey", {"Ra1-a8", "Rb1-b8"}, Stopped, {"Ra1-a8"}, true, false, Agree, 0, 0},
        TCase{"StoppedWithAStrangeKey", {"Ra1-a8"}, Stopped, {"Rb1-b8"}, true, false, Differ, 0, 1},
        TCase{"StoppedWithNothing", {"Ra1-a8"}, Stopped, {}, true, false, NotCompared, 0, 0},
        TCase{"Refused", {"Ra1-a8"}, Refused, {}, true, false, NotCompared, 0, 0},
        TCase{"NothingGiven", {}, Mate, {"Ra1-a8"}, true, true, NotCompared, 0, 0}),
    [](const auto& testInfo) { return std::string(testInfo.param.name); });

}  // namespace
}  // namespace tarnwick
