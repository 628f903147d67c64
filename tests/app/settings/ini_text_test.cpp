#include "app/settings/ini_text.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

#include "support/case_name.h"

namespace tarnwick {
namespace {

using namespace std::string_literals;

struct TFindCase {
    const char* name;
    std::string text;
    std::string expected;
    int nLine;
};

class IniTextFindTest : public testing::TestWithParam<TFindCase> {};

TEST_P(IniTextFindTest, FindsTheValueAndItsLine) {
    const CIniText ini(GetParam().text);
    const auto value = ini.Find("chess", "Key");
    ASSERT_TRUE(value.has_value());
    EXPECT_EQ(value->text, GetParam().expected);
    EXPECT_EQ(value->nLine, GetParam().nLine);
}

const TFindCase FindCases[] = {
    {"Plain", "[chess]\nKey=1\n", "1", 2},
    {"ReturnsBlanksAndMark", "\xEF\xBB\xBF[ Chess ]\r\n\r\n  kEY \t=  a b \t\r\n", "a b", 3},
    {"NoLineEnd", "[chess]\nKey=1", "1", 2},
    {"Empty", "[chess]\nKey=\n", "", 2},
    {"SignsInTheValue", "[chess]\nKey=C:\\a,b=[c];d\n", "C:\\a,b=[c];d", 2},
    {"FirstOfTwo", "[chess]\nKey=1\nKey=2\n", "1", 2},
    {"AnotherSectionBefore", "Key=0\n[other]\nKey=1\n[chess]\nKey=2\n", "2", 5},
    {"SectionComesAgain", "[chess]\n[other]\nKey=1\n[chess]\nKey=2\n", "2", 5},
    {"Comments", "[chess]\n;Key=1\n # Key=2\nKey=3\n", "3", 4},
    {"LongerName", "[chess]\nKeys=1\nAKey=2\nKey=3\n", "3", 4},
    {"BrokenHeads", "[chess]\n[\n[other\n]\n=\nKey=3\n", "3", 6},
    {"ZeroBytes", "[chess]\n\0\0\nKey=3\0\n"s, "3\0"s, 3},
};
INSTANTIATE_TEST_SUITE_P(Texts, IniTextFindTest, testing::ValuesIn(FindCases), CaseName);

struct TSetCase {
    const char* name;
    std::string before;
    std::string after;
};

class IniTextSetTest : public testing::TestWithParam<TSetCase> {};

TEST_P(IniTextSetTest, ChangesNothingElse) {
    CIniText ini(GetParam().before);
    ini.Set("chess", "Key", "77");
    EXPECT_EQ(ini.Text(), GetParam().after);
}

const TSetCase SetCases[] = {
    {"BlanksAndReturnsStay", "[chess]\r\n key =  1  \r\nB=2\r\n",
     "[chess]\r\n key =  77  \r\nB=2\r\n"},
    {"RemarkStays", "[chess]\nKey=1 ; was 2\n", "[chess]\nKey=77 ; was 2\n"},
    {"EmptyValue", "[chess]\nKey=\nB=1\n", "[chess]\nKey=77\nB=1\n"},
    {"NewFile", "", "[chess]\nKey=77\n"},
    {"NewKeyBeforeTheNextSection", "; all\r\n[chess]\r\nA=1\r\n\r\n; next\r\n[other]\r\nKey=1\r\n",
     "; all\r\n[chess]\r\nA=1\r\n\r\n; next\r\nKey=77\r\n[other]\r\nKey=1\r\n"},
    {"NewKeyBeforeBlankLines", "[chess]\nA=1\n\n\n[b]\n", "[chess]\nA=1\nKey=77\n\n\n[b]\n"},
    {"NewKeyBehindAnOpenLine", "[chess]\nA=1", "[chess]\nA=1\nKey=77\n"},
    {"NewSection", "[other]\nKey=1", "[other]\nKey=1\n[chess]\nKey=77\n"},
    {"OnlyAMark", "\xEF\xBB\xBF", "\xEF\xBB\xBF[chess]\nKey=77\n"},
    {"KeyInASecondSection", "[chess]\nA=1\n[chess]\nKey=1\n", "[chess]\nA=1\n[chess]\nKey=77\n"},
};
INSTANTIATE_TEST_SUITE_P(Texts, IniTextSetTest, testing::ValuesIn(SetCases), CaseName);

/// Whatever stands in a file: what was set is found, the rest is still there, and setting it again
/// changes nothing.
TEST(IniText, TakesAnyBytes) {
    constexpr std::string_view Pieces[] = {"[chess]", "[",    "]", "Key", "=",
                                           "\n",      "\r\n", ";", "#",   " ",
                                           "\t",      "\0",   "1", "x",   "\xEF\xBB\xBF"};
    std::mt19937 random(20240309);
    for (int i = 0; i < 5000; ++i) {
        std::string text;
        for (std::size_t j = random() % 24; j > 0; --j) {
            text += Pieces[random() % std::size(Pieces)];
        }
        CIniText ini(text);
        ini.Set("chess", "Key", "77");
        const auto value = ini.Find("chess", "key");
        ASSERT_TRUE(value.has_value()) << testing::PrintToString(text);
        ASSERT_EQ(WithoutRemark(value->text), "77") << testing::PrintToString(text);
        const std::string once = ini.Text();
        ini.Set("chess", "Key", "77");
        ASSERT_EQ(ini.Text(), once);
    }
}

}  // namespace
}  // namespace tarnwick
