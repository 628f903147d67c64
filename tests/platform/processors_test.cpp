#include "platform/processors.h"

#include <gtest/gtest.h>
#include <sched.h>

#include <atomic>
#include <thread>

#include "support/child_process.h"

namespace tarnwick {
namespace {

/// In a process of its own, as the mask would hold for all further tests.
TEST(Processors, ChoiceHoldsForThreadsThatRunAlready) {
    const int status = StatusOfChild([] {
        const std::vector<int> allowed = AllowedProcessors();
        std::atomic<int> step = 0;
        int nOthersMask = 0;
        std::thread other([&] {
            while (step == 0) {
                std::this_thread::yield();
            }
            cpu_set_t mask;
            sched_getaffinity(0, sizeof(mask), &mask);
            nOthersMask = CPU_COUNT(&mask);
        });
        const bool bSet = SetAllowedProcessors({allowed.back()});
        step = 1;
        other.join();
        const bool bOne = AllowedProcessors() == std::vector<int>{allowed.back()};
        const bool bBack = SetAllowedProcessors(allowed) && AllowedProcessors() == allowed;
        return bSet && bOne && bBack && nOthersMask == 1 ? 0 : 1;
    });
    EXPECT_EQ(status, 0);
}

TEST(Processors, ImpossibleChoicesChangeNothing) {
    const std::vector<int> before = AllowedProcessors();
    for (const std::vector<int>& choice : {std::vector<int>{}, {-1}, {8191}, {1 << 20}}) {
        EXPECT_FALSE(SetAllowedProcessors(choice)) << testing::PrintToString(choice);
    }
    EXPECT_EQ(AllowedProcessors(), before);
}

}  // namespace
}  // namespace tarnwick
