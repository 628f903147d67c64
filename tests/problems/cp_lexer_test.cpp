#include "problems/cp_lexer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/chess_exception.h"

#include "support/case_name.h"

namespace tarnwick {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::ThrowsMessage;

std::vector<std::string> Tokens(std::string_view text, bool bKeepSpecial = false,
                                bool bUtf8 = true) {
    CCpLexer lexer(text, bUtf8);
    std::vector<std::string> tokens;
    while (true) {
        const std::string_view token = lexer.NextToken(false, bKeepSpecial);
        if (token.empty()) {
            return tokens;
        }
        tokens.emplace_back(token);
    }
}

TEST(CpLexer, IdentifiersRunOverCaretsAndUnderscoresAndSignsStandAlone) {
    EXPECT_THAT(
        Tokens("12 s#3 THREADS 4^2 SH_KEY(a,b)"),
        ElementsAre("12", "s", "#", "3", "THREADS", "4^2", "SH_KEY", "(", "a", ",", "b", ")"));
    EXPECT_THAT(Tokens("^a _b"), ElementsAre("^", "a", "_", "b"));
}

TEST(CpLexer, NoBreakSpacesOfBothEncodingsAreWhiteSpace) {
    EXPECT_THAT(Tokens("a\xC2\xA0 b\t\r\nc"), ElementsAre("a", "b", "c"));
    EXPECT_THAT(Tokens("a\xA0 b", false, false), ElementsAre("a", "b"));
}

TEST(CpLexer, CommentsOfBothKindsAreSkipped) {
    EXPECT_THAT(Tokens("a /* b\n// */ c // d\n//! e\n f//"), ElementsAre("a", "c", "f"));
    EXPECT_THAT(Tokens("/**/a/*/b*/"), ElementsAre("a"));
}

TEST(CpLexer, SpecialLinesAreTokensOnRequestWithoutTheirLineEnd) {
    EXPECT_THAT(Tokens("//! a b \r\n//#tag\n// comment\n//@note\n//@sortindications x\ny", true),
                ElementsAre("//! a b ", "//#tag", "//@sortindications x", "y"));
    EXPECT_THAT(Tokens("//#last", true), ElementsAre("//#last"));
}

TEST(CpLexer, EndOfTextIsAnErrorOnlyWhereItMayNotBe) {
    for (const char* text : {"", " \n", "// open", "/* open"}) {
        CCpLexer lexer(text, true);
        EXPECT_EQ(lexer.NextToken(false, false), "") << text;
    }
    const auto failing = [](std::string_view text) {
        CCpLexer lexer(text, true);
        lexer.NextToken(true, false);
    };
    EXPECT_THAT([&] { failing(" \n"); }, ThrowsMessage<ChessException>("Unexpected end of file."));
    for (const char* text : {"// open", "/* open *", "/*/"}) {
        EXPECT_THAT([&] { failing(text); },
                    ThrowsMessage<ChessException>("Unexpected end of file before comment closed."));
    }
    for (const char* text : {"/", "/ /", "/a"}) {
        EXPECT_THAT([&] { failing(text); },
                    ThrowsMessage<ChessException>("Unexpected lexem (slash)."));
    }
}

TEST(CpLexer, MessagesShowWholeCharactersAndNothingThatWouldBreakATerminal) {
    const auto message = [](std::string_view text, bool bUtf8) -> std::string {
        try {
            CCpLexer(text, bUtf8).NextIdentifier();
        } catch (const ChessException& e) {
            return e.what();
        }
        return "";
    };
    const std::string start = "Alphanumeric identifier expected. Found: ";
    EXPECT_EQ(message("\xC5\xBB x", true), start + "\xC5\xBB");
    EXPECT_EQ(message("\xAF x", false), start + "\xC5\xBB");  // the same letter in Windows-1250
    EXPECT_EQ(message("\xC5 x", true), start + "\xEF\xBF\xBD");
    EXPECT_EQ(message("\x1B[2J", true), start + "?");
    EXPECT_EQ(message(std::string_view("\0", 1), true), start + "?");
}

TEST(CpLexer, WordsWithSlashesAreJoinedOnlyOnRequest) {
    CCpLexer lexer("AB/CD/E^1 F//comment", true);
    EXPECT_EQ(lexer.WidenOverSlashes(lexer.NextIdentifier()), "AB/CD/E^1");
    EXPECT_EQ(lexer.WidenOverSlashes(lexer.NextIdentifier()), "F");
    EXPECT_EQ(lexer.NextToken(false, false), "");
}

TEST(CpLexer, LineOfTheLastTokenIsWhereItBegan) {
    CCpLexer lexer("a\n\n/* 3\n4 */ b // 4\n\n  \n", true);
    lexer.NextToken(true, false);
    EXPECT_EQ(lexer.LineOfLastToken(), 1);
    lexer.NextToken(true, false);
    EXPECT_EQ(lexer.LineOfLastToken(), 4);
    EXPECT_THROW(lexer.NextToken(true, false), ChessException);
    EXPECT_EQ(lexer.LineOfLastToken(), 4);  // the last line with something on it
}

TEST(CpLexer, NumbersAreWholeWordsWithinTheirRange) {
    const CCpLexer lexer("", true);
    EXPECT_EQ(NumberOfToken(lexer, "0012", 1, 12), 12);
    for (const char* token : {"", "0", "13", "99999999999999999999", "1x", "^1", "-1", "+1"}) {
        EXPECT_THAT([&] { NumberOfToken(lexer, token, 1, 12); },
                    ThrowsMessage<ChessException>(HasSubstr("Invalid number (allowed: 1-12): ")))
            << token;
    }
}

}  // namespace
}  // namespace tarnwick
