#include "cli/text_style.h"

#include <gtest/gtest.h>

namespace tarnwick {
namespace {

TEST(TextStyle, GroupsNumbersByThousands) {
    EXPECT_EQ(GroupedNumber(0), "0");
    EXPECT_EQ(GroupedNumber(999), "999");
    EXPECT_EQ(GroupedNumber(1000), "1,000");
    EXPECT_EQ(GroupedNumber(18446744073709551615U), "18,446,744,073,709,551,615");
}

TEST(TextStyle, DurationsGetCoarserAsTheyGrow) {
    EXPECT_EQ(DurationText(45), "0.045 s");
    EXPECT_EQ(DurationText(59999), "60.0 s");
    EXPECT_EQ(DurationText(187000), "3 min 7 s");
    EXPECT_EQ(DurationText(7500000), "2 h 5 min");
}

TEST(TextStyle, SpeedNeedsATimeToMeasure) {
    EXPECT_EQ(SpeedText(1000000, 9), "");
    EXPECT_EQ(SpeedText(2100000, 1000), "2.1 M/s");
    EXPECT_EQ(SpeedText(45000, 100, " moves"), "450 k moves/s");
}

TEST(TextStyle, TextsOfFilesCannotSteerTheTerminal) {
    EXPECT_EQ(ShownText("a\tb\x1b[2Jc\x7f\xff"), "a b\uFFFD[2Jc\uFFFD\uFFFD");
    EXPECT_EQ(ShownText("\xc2\x9b"
                        "2J"),
              "\uFFFD2J")
        << "the eight-bit escape";
    EXPECT_EQ(ShownText("Żółw ♔"), "Żółw ♔");
}

}  // namespace
}  // namespace tarnwick
