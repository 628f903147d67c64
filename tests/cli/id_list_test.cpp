#include "cli/id_list.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/chess_exception.h"

namespace tarnwick {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

TEST(IdList, ReadsNumbersAndRanges) {
    const CIdList ids = CIdList::Parse(" 1, 4 - 6,\t9,5-5 ,0");
    for (const int id : {0, 1, 4, 5, 6, 9}) {
        EXPECT_TRUE(ids.Contains(id)) << id;
    }
    for (const int id : {-1, 2, 3, 7, 8, 10}) {
        EXPECT_FALSE(ids.Contains(id)) << id;
    }
}

TEST(IdList, NoListIsNoRestriction) {
    EXPECT_TRUE(CIdList::Parse("").IsEmpty());
    EXPECT_TRUE(CIdList::Parse("  ").Contains(2147483647));
}

TEST(IdList, TakesTheLargestNumberThatAProblemCanHave) {
    const CIdList ids = CIdList::Parse("2147483646-2147483647");
    EXPECT_TRUE(ids.Contains(2147483647));
    EXPECT_FALSE(ids.Contains(2147483645));
}

TEST(IdList, NamesTheRangesThatMeetNoProblem) {
    const CIdList ids = CIdList::Parse("1-2,7,8-20,30");
    EXPECT_THAT(ids.RangesWithout({2, 9}), ElementsAre("7", "30"));
    EXPECT_THAT(ids.RangesWithout({}), ElementsAre("1-2", "7", "8-20", "30"));
}

class IdListRefusal : public testing::TestWithParam<const char*> {};

TEST_P(IdListRefusal, SaysHowAListIsWritten) {
    try {
        CIdList::Parse(GetParam());
        FAIL() << GetParam();
    } catch (const ChessException& error) {
        EXPECT_THAT(error.what(), HasSubstr("1,4-9"));
    }
}

INSTANTIATE_TEST_SUITE_P(Texts, IdListRefusal,
                         testing::Values(",", "1,", ",1", "1,,2", "-", "1-", "-5", "--5", "1--5",
                                         "9-4", "4-5-6", "x", "1x", "0x10", "1.5", "+3", "1 2",
                                         "2147483648", "1-99999999999999999999", "\xff",
                                         "\xd9\xa3"));

TEST(IdList, ReadsALongListQuickly) {
    std::string text = "1";
    for (int i = 2; i <= 100000; ++i) {
        text += ',' + std::to_string(i);
    }
    EXPECT_TRUE(CIdList::Parse(text).Contains(100000));
}

}  // namespace
}  // namespace tarnwick
