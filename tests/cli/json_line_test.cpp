#include "cli/json_line.h"

#include <gtest/gtest.h>

namespace tarnwick {
namespace {

TEST(JsonLine, KeepsTheOrderOfItsMembersOnOneLine) {
    const std::string line = CJsonLine()
                                 .Add("text", "a")
                                 .Add("yes", true)
                                 .Add("no", false)
                                 .Add("below", -7)
                                 .Add("most", std::uint64_t{18446744073709551615U})
                                 .Add("none", std::vector<std::string>{})
                                 .Add("some", std::vector<std::string>{"x", "\"y\""})
                                 .Line();
    EXPECT_EQ(line, R"({"text":"a","yes":true,"no":false,"below":-7,"most":18446744073709551615,)"
                    R"("none":[],"some":["x","\"y\""]})"
                    "\n");
}

TEST(JsonLine, EmptyObjectIsAnObject) {
    EXPECT_EQ(CJsonLine().Line(), "{}\n");
}

TEST(JsonLine, ListsObjectsInObjects) {
    const std::vector<CJsonLine> parts = {CJsonLine().Add("a", 1), CJsonLine().Add("b", "\"")};
    EXPECT_EQ(CJsonLine().Add("parts", parts).Add("none", std::vector<CJsonLine>{}).Line(),
              R"({"parts":[{"a":1},{"b":"\""}],"none":[]})"
              "\n");
}

TEST(JsonText, EscapesWhatWouldEndTheTextOrTheLine) {
    EXPECT_EQ(JsonText("\"\\\n\r\t"), R"("\"\\\n\r\t")");
    EXPECT_EQ(JsonText(std::string_view("\0\x01\x1f", 3)), R"("\u0000\u0001\u001f")");
}

TEST(JsonText, LeavesLettersOfAllAlphabetsAlone) {
    EXPECT_EQ(JsonText("Zażółć шах 王 ♔"), "\"Zażółć шах 王 ♔\"");
}

TEST(JsonText, ReplacesBytesThatAreNoText) {
    EXPECT_EQ(JsonText("a\xff"
                       "b"),
              "\"a\uFFFDb\"");
    EXPECT_EQ(JsonText("\xe2\x82"), "\"\uFFFD\"") << "a character cut off";
    EXPECT_EQ(JsonText("\xc0\xa2"), "\"\uFFFD\uFFFD\"") << "a quotation mark in disguise";
}

}  // namespace
}  // namespace tarnwick
