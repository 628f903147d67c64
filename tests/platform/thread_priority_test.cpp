#include "platform/thread_priority.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <atomic>
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

/// Lowering always works; raising again needs a right that not every machine gives.
TEST(ThreadPriority, ChangesRunningThreadsByName) {
    if (getpriority(PRIO_PROCESS, static_cast<id_t>(getpid())) > 10) {
        GTEST_SKIP() << "the process itself has stepped back too far to see a difference";
    }
    constexpr auto Normal = TThreadPriority::Normal;
    constexpr auto Lowest = TThreadPriority::Lowest;
    std::atomic<bool> bEnd{false};
    std::atomic<id_t> child{0};
    std::thread other([&] {
        NameThisThread("test solver");
        std::thread([&] {
            child = static_cast<id_t>(syscall(SYS_gettid));
            child.notify_all();
            bEnd.wait(false);
        }).join();
    });
    child.wait(0);
    const int before = getpriority(PRIO_PROCESS, child);
    EXPECT_TRUE(ChangePriorityOfThreads("test solver", Normal, Lowest));
    const int lowered = getpriority(PRIO_PROCESS, child);
    EXPECT_GT(lowered, before) << "the thread of a named thread has the name too";
    EXPECT_EQ(StepsBack(), 0) << "this one has another name";
    const bool bRaised = ChangePriorityOfThreads("test solver", Lowest, Normal);
    EXPECT_EQ(getpriority(PRIO_PROCESS, child), bRaised ? before : lowered);
    EXPECT_TRUE(IsPriorityAllowed(Normal));
    EXPECT_TRUE(IsPriorityAllowed(TThreadPriority::Idle));
    bEnd = true;
    bEnd.notify_all();
    other.join();
}

}  // namespace
}  // namespace tarnwick
