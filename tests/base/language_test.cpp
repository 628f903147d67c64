#include "base/language.h"

#include <gtest/gtest.h>

namespace tarnwick {
namespace {

using enum LanguageId;

constexpr TUserText Whole = {.pl = "tak", .en = "yes", .uk = "tak (uk)"};
constexpr TUserText NoUkrainian = {.pl = "tak", .en = "yes", .uk = nullptr};
constexpr TUserText PolishAlone = {.pl = "tak", .en = nullptr, .uk = nullptr};

TEST(Language, EachLanguageTakesItsOwnForm) {
    EXPECT_STREQ(UserText(Whole, Polish), "tak");
    EXPECT_STREQ(UserText(Whole, English), "yes");
    EXPECT_STREQ(UserText(Whole, Ukrainian), "tak (uk)");
}

TEST(Language, MissingFormsFallBackOnEnglishThenPolish) {
    EXPECT_STREQ(UserText(NoUkrainian, Ukrainian), "yes");
    EXPECT_STREQ(UserText(PolishAlone, English), "tak");
    EXPECT_STREQ(UserText(PolishAlone, Ukrainian), "tak");
}

TEST(Language, AChangeWorksOnTheNextText) {
    EXPECT_STREQ(UserText(Whole), "yes") << "the session starts in English";
    g_language = Polish;
    EXPECT_STREQ(UserText(Whole), "tak");
    g_language = English;
}

}  // namespace
}  // namespace tarnwick
