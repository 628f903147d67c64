#include "base/encoding.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "support/case_name.h"

namespace tarnwick {
namespace {

using namespace std::string_view_literals;

struct TUtf8Case {
    const char* name;
    std::string_view bytes;
    std::wstring_view wide;
};

class ValidUtf8 : public testing::TestWithParam<TUtf8Case> {};

TEST_P(ValidUtf8, ReadsAndWritesBackTheSameBytes) {
    const TUtf8Case& text = GetParam();
    EXPECT_TRUE(IsValidUtf8(text.bytes));
    EXPECT_EQ(FromUtf8(text.bytes), text.wide);
    EXPECT_EQ(ToUtf8(text.wide), text.bytes);
    EXPECT_EQ(ToValidUtf8(text.bytes), text.bytes);
}

constexpr TUtf8Case ValidCases[] = {
    {"Empty", ""sv, L""sv},
    {"AsciiWithNul", "a\0\n\x7F"sv, L"a\0\n\x7F"sv},
    {"Polish", "Wariant g\xC5\x82\xC3\xB3wny"sv, L"Wariant g\u0142\u00F3wny"sv},
    {"Ukrainian", "\xD0\x9C\xD0\xB0\xD1\x82"sv, L"\u041C\u0430\u0442"sv},
    {"ChessKing", "\xE2\x99\x94"sv, L"\u2654"sv},
    // The first and the last character of every length, and both neighbours of the surrogates.
    {"FirstAndLastOfTwo", "\xC2\x80\xDF\xBF"sv, L"\x80\x7FF"sv},
    {"FirstAndLastOfThree", "\xE0\xA0\x80\xEF\xBF\xBF"sv, L"\x800\xFFFF"sv},
    {"AroundTheSurrogates", "\xED\x9F\xBF\xEE\x80\x80"sv, L"\xD7FF\xE000"sv},
    {"FirstAndLastOfFour", "\xF0\x90\x80\x80\xF4\x8F\xBF\xBF"sv, L"\x10000\x10FFFF"sv},
};

INSTANTIATE_TEST_SUITE_P(Texts, ValidUtf8, testing::ValuesIn(ValidCases), CaseName);

class BrokenUtf8 : public testing::TestWithParam<TUtf8Case> {};

TEST_P(BrokenUtf8, ShowsTheDamageAndReadsTheRest) {
    const TUtf8Case& text = GetParam();
    EXPECT_FALSE(IsValidUtf8(text.bytes));
    EXPECT_EQ(FromUtf8(text.bytes), text.wide);
    EXPECT_TRUE(IsValidUtf8(ToValidUtf8(text.bytes)));
}

constexpr TUtf8Case BrokenCases[] = {
    {"LoneContinuation", "a\x80z"sv, L"a\xFFFDz"sv},
    {"NeverUsedBytes", "\xC0\xC1\xF5\xFE\xFF"sv, L"\xFFFD\xFFFD\xFFFD\xFFFD\xFFFD"sv},
    {"OverlongSlash", "\xC0\xAF"sv, L"\xFFFD\xFFFD"sv},
    {"OverlongOfThree", "\xE0\x9F\xBF"sv, L"\xFFFD\xFFFD\xFFFD"sv},
    {"OverlongOfFour", "\xF0\x8F\xBF\xBF"sv, L"\xFFFD\xFFFD\xFFFD\xFFFD"sv},
    {"Surrogate", "\xED\xA0\x80"sv, L"\xFFFD\xFFFD\xFFFD"sv},
    {"BeyondTheLastCodePoint", "\xF4\x90\x80\x80"sv, L"\xFFFD\xFFFD\xFFFD\xFFFD"sv},
    // A cut character is one damage, and the letter behind it is kept.
    {"CutByALetter", "\xE2\x99z"sv, L"\xFFFDz"sv},
    {"CutByTheEnd", "a\xF0\x9F\x98"sv, L"a\xFFFD"sv},
    {"CutByACharacter", "\xE2\x99\xC5\x82"sv, L"\xFFFD\u0142"sv},
    {"Windows1250ReadAsUtf8", "g\xB3\xF3wny"sv, L"g\xFFFD\xFFFDwny"sv},
};

INSTANTIATE_TEST_SUITE_P(Texts, BrokenUtf8, testing::ValuesIn(BrokenCases), CaseName);

TEST(ToUtf8, WritesWhatIsNoCodePointAsReplacementCharacter) {
    const std::wstring wide = {L'a',
                               static_cast<wchar_t>(0xD800),
                               static_cast<wchar_t>(0xDFFF),
                               static_cast<wchar_t>(0x110000),
                               static_cast<wchar_t>(-1),
                               L'z'};
    EXPECT_EQ(ToUtf8(wide), "a\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBDz");
}

TEST(ToUtf8, EveryCodePointSurvivesTheRoundTrip) {
    std::wstring all;
    for (char32_t codePoint = 0; codePoint <= 0x10FFFF; ++codePoint) {
        if (codePoint < 0xD800 || codePoint > 0xDFFF) {
            all.push_back(static_cast<wchar_t>(codePoint));
        }
    }
    const std::string bytes = ToUtf8(all);
    EXPECT_TRUE(IsValidUtf8(bytes));
    EXPECT_TRUE(FromUtf8(bytes) == all);
}

TEST(FromWindows1250, ReadsTheLettersOfOldProblemFiles) {
    EXPECT_EQ(FromWindows1250("za\xBF\xF3\xB3\xE6 g\xEA\x9Cl\xB9 ja\x9F\xF1"),
              L"za\u017C\u00F3\u0142\u0107 g\u0119\u015Bl\u0105 ja\u017A\u0144");
    EXPECT_EQ(FromWindows1250("\xA3\xD3\x8C\x8F\xAF\xC6\xCA\xA5\xD1"),
              L"\u0141\u00D3\u015A\u0179\u017B\u0106\u0118\u0104\u0143");
    EXPECT_EQ(FromWindows1250("\x84"
                              "quoted\x94 \x96 \x80\xFF\xA0"),
              L"\u201Equoted\u201D \u2013 \u20AC\u02D9\u00A0");
    EXPECT_EQ(FromWindows1250("\x81\x83\x88\x90\x98"), L"\x81\x83\x88\x90\x98");
}

}  // namespace
}  // namespace tarnwick
