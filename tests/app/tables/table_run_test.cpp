#include "app/tables/table_run.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>

#include "base/chess_exception.h"

#include "../solving/session_support.h"

namespace tarnwick {
namespace {

using namespace std::chrono_literals;

/// A run whose events are counted.
struct TWatchedRun {
    std::atomic<int> questions{0};
    std::atomic<int> told{0};
    std::atomic<int> ends{0};
    CTableRun run{{.onQuestion = [this] { ++questions; },
                   .onTell = [this](const std::string&) { ++told; },
                   .onEnd = [this] { ++ends; }}};
};

TEST(TableRun, AsksTellsAndLeavesAnEnd) {
    TWatchedRun watched;
    bool bFinished = false;
    watched.run.Start([&](const CRunControl&) -> TTableRunFinish {
        watched.run.Tell("a word");
        watched.run.Progress("half");
        const bool bYes = watched.run.Ask("first?");
        const bool bNo = watched.run.Ask("second?");
        return [&bFinished, bYes, bNo] { bFinished = bYes && !bNo; };
    });
    ASSERT_TRUE(WaitUntil([&] { return watched.questions == 1; }));
    const TTableRunQuestion first = watched.run.Question().value();
    EXPECT_EQ(first.text, "first?");
    EXPECT_EQ(watched.run.ProgressText(), "half");
    watched.run.Answer(first.number, true);
    ASSERT_TRUE(WaitUntil([&] { return watched.questions == 2; }));
    watched.run.Answer(first.number, true);  // a late second click
    EXPECT_TRUE(watched.run.IsRunning());
    watched.run.Answer(watched.run.Question().value().number, false);
    ASSERT_TRUE(WaitUntil([&] { return watched.ends == 1; }));
    EXPECT_FALSE(watched.run.IsRunning());
    EXPECT_EQ(watched.told, 1);
    EXPECT_EQ(watched.run.ProgressText(), "");
    const std::optional<TTableRunEnd> end = watched.run.TakeEnd();
    ASSERT_TRUE(end && end->finish);
    end->finish();
    EXPECT_TRUE(bFinished);
    EXPECT_FALSE(watched.run.TakeEnd());
}

TEST(TableRun, TellsWhyTheWorkBrokeOff) {
    TWatchedRun watched;
    watched.run.Start(
        [](const CRunControl&) -> TTableRunFinish { throw ChessException("no file"); });
    ASSERT_TRUE(WaitUntil([&] { return watched.ends == 1; }));
    EXPECT_EQ(watched.run.TakeEnd().value().error, "no file");
}

TEST(TableRun, PausesAndStops) {
    TWatchedRun watched;
    std::atomic<int> steps{0};
    const auto work = [&](const CRunControl& control) -> TTableRunFinish {
        while (control.MayGoOn()) {
            ++steps;
        }
        return [bAsked = watched.run.Ask("after the stop?")] { EXPECT_FALSE(bAsked); };
    };
    watched.run.Start(work);
    watched.run.Pause();
    EXPECT_TRUE(watched.run.IsPaused());
    std::this_thread::sleep_for(20ms);  // the step in hand
    const int before = steps;
    std::this_thread::sleep_for(20ms);
    EXPECT_EQ(steps, before);
    watched.run.Resume();
    EXPECT_TRUE(WaitUntil([&] { return steps > before; }));
    watched.run.Pause();
    watched.run.Stop();
    ASSERT_TRUE(WaitUntil([&] { return watched.ends == 1; }));
    watched.run.TakeEnd().value().finish();
    EXPECT_EQ(watched.questions, 0);
}

TEST(TableRun, AStopOrTheEndAnswersAnOpenQuestionWithNo) {
    for (const bool bEnd : {false, true}) {
        std::atomic<bool> bAnswer{true};
        {
            TWatchedRun watched;
            watched.run.Start([&](const CRunControl&) -> TTableRunFinish {
                bAnswer = watched.run.Ask("go on?");
                return {};
            });
            ASSERT_TRUE(WaitUntil([&] { return watched.questions == 1; }));
            if (!bEnd) {
                watched.run.Stop();
                EXPECT_TRUE(WaitUntil([&] { return watched.ends == 1; }));
            }
        }
        EXPECT_FALSE(bAnswer);
    }
}

/// A search that loads a table must not wait for the user.
TEST(TableRun, AsksForNobodyElse) {
    TWatchedRun watched;
    EXPECT_FALSE(watched.run.LoadDialog().Ask("from the window?"));
    watched.run.Start([&](const CRunControl&) -> TTableRunFinish {
        const bool bOwn = watched.run.LoadDialog().Ask("from the work?");
        return [bOwn] { EXPECT_TRUE(bOwn); };
    });
    ASSERT_TRUE(WaitUntil([&] { return watched.questions == 1; }));
    bool bOther = true;
    std::thread([&] { bOther = watched.run.LoadDialog().Ask("from a search?"); }).join();
    EXPECT_FALSE(bOther);
    watched.run.Answer(watched.run.Question().value().number, true);
    ASSERT_TRUE(WaitUntil([&] { return watched.ends == 1; }));
    watched.run.TakeEnd().value().finish();
}

}  // namespace
}  // namespace tarnwick
