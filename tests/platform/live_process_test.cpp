#include "platform/live_process.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include "support/child_process.h"

namespace tarnwick {
namespace {

constexpr const char* NobodysNumber = "99999999-1";

TEST(LiveProcess, KnowsItselfAndThatNobodyElseHasItsName) {
    EXPECT_EQ(LifeOfProcess(NameOfThisProcess()), TProcessLife::Alive);
    const std::string number = std::to_string(::getpid());
    EXPECT_EQ(LifeOfProcess(number + "-1"), TProcessLife::Dead) << "another start, same number";
    EXPECT_EQ(LifeOfProcess(NobodysNumber), TProcessLife::Dead) << "a name of an older version";
    for (const char* const odd : {"", "-", "notes", "12", "1-2-3", "1-2-3-4-5-6", "x-1"}) {
        EXPECT_EQ(LifeOfProcess(odd), TProcessLife::Unknown) << odd;
    }
}

TEST(LiveProcess, JudgesOnlyWhatItCanSee) {
    const TProcessPlace here{.machine = "m", .boot = "b", .space = "1"};
    const auto life = [&](const std::string& place) {
        return LifeOfProcess(NobodysNumber + place, here);
    };
    EXPECT_EQ(life("-m-b-1"), TProcessLife::Dead);
    EXPECT_EQ(life("-m-old-1"), TProcessLife::Dead) << "the machine was started again";
    EXPECT_EQ(life("-m-old-2"), TProcessLife::Dead);
    EXPECT_EQ(life("-other-c-1"), TProcessLife::Unknown) << "another machine";
    EXPECT_EQ(life("-m-b-2"), TProcessLife::Unknown) << "another container";
    EXPECT_EQ(life("-m--1"), TProcessLife::Unknown);
    EXPECT_EQ(life("--old-1"), TProcessLife::Unknown);
    EXPECT_EQ(LifeOfProcess(NobodysNumber + std::string("---"), {}), TProcessLife::Unknown)
        << "nothing known is not the same place";
}

}  // namespace
}  // namespace tarnwick
