#include "cli/text_input.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/chess_exception.h"

#include "support/temp_folder.h"

namespace tarnwick {
namespace {

using testing::HasSubstr;

constexpr const char* EpdLine = "7k/8/5K2/8/8/8/8/6R1 w - - bm #2;\n";
constexpr const char* CpText = "UTF-8\n1 #2 { FEN: 7k/8/5K2/8/8/8/8/6R1 }\n";

std::string Refusal(const std::string& path, std::size_t maxBytes = MaxInputBytes) {
    try {
        ReadTextInput(path, maxBytes);
        return "read";
    } catch (const ChessException& error) {
        return error.what();
    }
}

TEST(TextInput, TheNameTellsTheForm) {
    const CTempFolder folder;
    for (const char* name : {"a.cp", "a.CP", "a.epd.cp"}) {
        WriteBytes(folder / name, EpdLine);
        EXPECT_EQ(ReadTextInput(folder / name).form, TInputForm::ProblemFile) << name;
    }
    for (const char* name : {"a.epd", "a.EPD", "a.cp.epd"}) {
        WriteBytes(folder / name, CpText);
        EXPECT_EQ(ReadTextInput(folder / name).form, TInputForm::Epd) << name;
    }
}

TEST(TextInput, ContentTellsTheFormOfOtherNames) {
    const CTempFolder folder;
    WriteBytes(folder / "list.txt", EpdLine);
    WriteBytes(folder / "epd", CpText);
    EXPECT_EQ(ReadTextInput(folder / "list.txt").form, TInputForm::Epd);
    EXPECT_EQ(ReadTextInput(folder / "epd").form, TInputForm::ProblemFile);
}

TEST(TextInput, FormOfText) {
    EXPECT_EQ(FormOfText(std::string("\r\n\n# comment\n  \xEF\xBB\xBF")), TInputForm::ProblemFile);
    EXPECT_EQ(FormOfText(std::string("\xEF\xBB\xBF").append(EpdLine)), TInputForm::Epd);
    EXPECT_EQ(FormOfText(std::string("\n\n# my list\n  ").append(EpdLine)), TInputForm::Epd);
    EXPECT_EQ(FormOfText("// http://a/b/c/d/e/f\n"), TInputForm::ProblemFile);
    EXPECT_EQ(FormOfText("1 #2\n"), TInputForm::ProblemFile);
    EXPECT_EQ(FormOfText(""), TInputForm::ProblemFile);
}

TEST(TextInput, BytesComeAsTheyAre) {
    const CTempFolder folder;
    const std::string bytes("\0\r\n\xff{\0", 6);
    WriteBytes(folder / "a.cp", bytes);
    EXPECT_EQ(ReadTextInput(folder / "a.cp").text, bytes);
}

TEST(TextInput, RefusalsNameTheFileAndTheReason) {
    const CTempFolder folder;
    WriteBytes(folder / "empty.cp", "");
    WriteBytes(folder / "blank.cp", " \r\n\t\n");
    EXPECT_THAT(Refusal(folder / "none.cp"), HasSubstr("none.cp: No such file"));
    EXPECT_THAT(Refusal(folder.Path()), HasSubstr("it is a folder"));
    EXPECT_THAT(Refusal(folder / "empty.cp"), HasSubstr("empty.cp: there is nothing in it"));
    EXPECT_THAT(Refusal(folder / "blank.cp"), HasSubstr("there is nothing in it"));
    EXPECT_THAT(Refusal(folder / ("a\xff/"
                                  "b")),
                HasSubstr("a\uFFFD/b"))
        << "bytes of a name";
}

TEST(TextInput, ReadsUpToItsLimitAndNoFurther) {
    const CTempFolder folder;
    WriteBytes(folder / "a.cp", std::string(1000, 'x'));
    EXPECT_EQ(ReadTextInput(folder / "a.cp", 1000).text.size(), 1000U);
    EXPECT_THAT(Refusal(folder / "a.cp", 999), HasSubstr("more than 999 bytes"));
    EXPECT_THAT(Refusal("/dev/zero", 1 << 20), HasSubstr("more than 1048576 bytes"));
}

}  // namespace
}  // namespace tarnwick
