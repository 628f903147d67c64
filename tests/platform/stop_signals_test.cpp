#include "platform/stop_signals.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <unistd.h>

namespace tarnwick {
namespace {

// Each case runs in a child process, as the flag stays set for good.
constexpr int Stopped = 3;
constexpr int NotStopped = 4;

TEST(StopSignalsDeathTest, FirstSignalAsksTheWorkToStop) {
    for (const int signal : {SIGINT, SIGTERM}) {
        const auto body = [signal] {
            InstallStopSignals();
            const bool bBefore = StopRequested();
            ::raise(signal);
            ::_exit(!bBefore && StopRequested() ? Stopped : NotStopped);
        };
        EXPECT_EXIT(body(), testing::ExitedWithCode(Stopped), "");
    }
}

TEST(StopSignalsDeathTest, SecondSignalEndsTheProcessAtOnce) {
    const auto body = [] {
        InstallStopSignals();
        ::raise(SIGTERM);
        ::raise(SIGINT);
        ::_exit(NotStopped);
    };
    EXPECT_EXIT(body(), testing::ExitedWithCode(130), "");
}

}  // namespace
}  // namespace tarnwick
