#include "platform/thread_priority.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <thread>

namespace tarnwick {
namespace {

/// Lower steps of the calling thread than its process has.
int StepsBack() {
    return getpriority(PRIO_PROCESS, static_cast<id_t>(syscall(SYS_gettid))) -
           getpriority(PRIO_PROCESS, static_cast<id_t>(getpid()));
}

TEST(ThreadPriority, StepsBackWithoutPullingItsMakerAlong) {
    if (getpriority(PRIO_PROCESS, static_cast<id_t>(getpid())) > 10) {
        GTEST_SKIP() << "the process itself has stepped back too far to see a difference";
    }
    int lower = 0;
    int lowest = 0;
    std::thread([&] {
        EXPECT_TRUE(SetPriorityOfThisThread(TThreadPriority::BelowNormal));
        lower = StepsBack();
        std::thread([&] {
            EXPECT_TRUE(SetPriorityOfThisThread(TThreadPriority::Lowest));
            lowest = StepsBack();
        }).join();
        EXPECT_EQ(StepsBack(), lower);
    }).join();
    EXPECT_GT(lower, 0);
    EXPECT_GT(lowest, lower);
    EXPECT_LT(lowest, 2 * lower + 1) << "steps count from the process, not from the maker";
    EXPECT_EQ(StepsBack(), 0);
}

}  // namespace
}  // namespace tarnwick
