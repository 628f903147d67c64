#include "problems/cp_lexer.h"

#include <algorithm>
#include <charconv>

#include "base/chess_exception.h"
#include "base/encoding.h"

#include "problems/problem_texts.h"

namespace tarnwick {
namespace {

constexpr char NoBreakSpace = '\xA0';       // of Windows-1250, and the second byte in UTF-8
constexpr char NoBreakSpaceLead = '\xC2';   // the first byte in UTF-8
constexpr std::size_t MaxShownBytes = 200;  // enough to find the place, whatever the file holds
constexpr std::string_view SortIndicationsMark = "//@SortIndications";

constexpr char ToUpper(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c;
}

bool IsIdentifierPart(char c) {
    return IsCpAlphanumeric(c) || c == '^' || c == '_';
}

[[noreturn]] void Throw(const TUserText& text) {
    throw ChessException(UserText(text));
}

}  // namespace

bool CCpLexer::IsWhiteSpaceAt(std::size_t at, std::size_t& length) const {
    const char c = m_text[at];
    length = 1;
    if (c == NoBreakSpaceLead && m_bUtf8 && at + 1 < m_text.size() &&
        m_text[at + 1] == NoBreakSpace) {
        length = 2;
        return true;
    }
    return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == NoBreakSpace;
}

void CCpLexer::SkipWhiteSpace() {
    std::size_t length = 0;
    while (m_at < m_text.size() && IsWhiteSpaceAt(m_at, length)) {
        m_at += length;
    }
}

bool CCpLexer::StartsSpecialLine() const {
    const std::string_view rest = m_text.substr(m_at);
    if (rest.starts_with("//!") || rest.starts_with("//#")) {
        return true;
    }
    return StartsWithIgnoringCase(rest, SortIndicationsMark);
}

void CCpLexer::SkipBlockComment(bool bFailAtEnd) {
    const std::size_t end = m_text.find("*/", m_at + 2);
    if (end != std::string_view::npos) {
        m_at = end + 2;
        return;
    }
    m_at = m_text.size();
    if (bFailAtEnd) {
        Throw(UnclosedCommentText);
    }
}

void CCpLexer::SkipLineComment(bool bFailAtEnd) {
    const std::size_t end = m_text.find('\n', m_at);
    if (end != std::string_view::npos) {
        m_at = end + 1;
        return;
    }
    m_at = m_text.size();
    if (bFailAtEnd) {
        Throw(UnclosedCommentText);
    }
}

/// Bytes of the character at m_at, so that a message can show it whole.
std::size_t CCpLexer::LengthOfCharacter() const {
    if (m_bUtf8) {
        for (std::size_t length = 2; length <= 4 && m_at + length <= m_text.size(); ++length) {
            if (static_cast<unsigned char>(m_text[m_at]) >= 0xC2 &&
                IsValidUtf8(m_text.substr(m_at, length))) {
                return length;
            }
        }
    }
    return 1;
}

std::string_view CCpLexer::NextToken(bool bFailAtEnd, bool bKeepSpecial) {
    while (true) {
        SkipWhiteSpace();
        m_tokenStart = m_at;
        if (m_at == m_text.size()) {
            if (bFailAtEnd) {
                Throw(UnexpectedEndText);
            }
            return {};
        }
        const char c = m_text[m_at];
        if (IsCpAlphanumeric(c)) {
            while (m_at < m_text.size() && IsIdentifierPart(m_text[m_at])) {
                ++m_at;
            }
            return m_text.substr(m_tokenStart, m_at - m_tokenStart);
        }
        if (c != '/') {
            m_at += LengthOfCharacter();
            return m_text.substr(m_tokenStart, m_at - m_tokenStart);
        }
        const char second = m_at + 1 < m_text.size() ? m_text[m_at + 1] : '\0';
        if (second == '*') {
            SkipBlockComment(bFailAtEnd);
        } else if (second != '/') {
            Throw(UnexpectedSlashText);
        } else if (bKeepSpecial && StartsSpecialLine()) {
            return RestOfLine();
        } else {
            SkipLineComment(bFailAtEnd);
        }
    }
}

std::string_view CCpLexer::NextIdentifier() {
    const std::string_view token = NextToken(true, false);
    if (!IsCpIdentifier(token)) {
        throw ChessException(UserText(IdentifierExpectedText) + ForMessage(token));
    }
    return token;
}

std::string_view CCpLexer::WidenOverSlashes(std::string_view token) {
    const auto start = static_cast<std::size_t>(token.data() - m_text.data());
    m_at = start + token.size();
    while (m_at + 1 < m_text.size() && m_text[m_at] == '/' && IsCpAlphanumeric(m_text[m_at + 1])) {
        ++m_at;
        while (m_at < m_text.size() && IsIdentifierPart(m_text[m_at])) {
            ++m_at;
        }
    }
    return m_text.substr(start, m_at - start);
}

std::string_view CCpLexer::NextWord() {
    m_at = std::min(m_text.find_first_not_of(" \t", m_at), m_text.size());
    m_tokenStart = m_at;
    m_at = std::min(m_text.find_first_of(" \t\n", m_at), m_text.size());
    const std::string_view word = m_text.substr(m_tokenStart, m_at - m_tokenStart);
    return word.substr(0, word.find('\r'));
}

std::string_view CCpLexer::RestOfLine() {
    m_tokenStart = m_at;
    const std::size_t end = std::min(m_text.find('\n', m_at), m_text.size());
    m_at = std::min(end + 1, m_text.size());
    const std::string_view line = m_text.substr(m_tokenStart, end - m_tokenStart);
    return line.substr(0, line.find('\r'));
}

char CCpLexer::PeekCharacter() {
    SkipWhiteSpace();
    return m_at < m_text.size() ? m_text[m_at] : '\0';
}

int CCpLexer::LineOfLastToken() const {
    std::string_view before = m_text.substr(0, m_tokenStart);
    if (m_tokenStart == m_text.size()) {
        // The end of the file: name the last line that has something on it.
        before = before.substr(0, before.find_last_not_of(" \t\r\n") + 1);
    }
    return static_cast<int>(std::ranges::count(before, '\n')) + 1;
}

std::wstring CCpLexer::Decode(std::string_view bytes) const {
    return m_bUtf8 ? FromUtf8(bytes) : FromWindows1250(bytes);
}

std::string CCpLexer::ForMessage(std::string_view token) const {
    std::string text = ToUtf8(Decode(token.substr(0, MaxShownBytes)));
    const auto isControl = [](char c) { return (c >= 0 && c < ' ') || c == 0x7F; };
    std::ranges::replace_if(text, isControl, '?');
    return token.size() > MaxShownBytes ? text + "..." : text;
}

bool EqualsIgnoringCase(std::string_view a, std::string_view b) {
    return std::ranges::equal(a, b, {}, ToUpper, ToUpper);
}

bool StartsWithIgnoringCase(std::string_view text, std::string_view prefix) {
    return EqualsIgnoringCase(text.substr(0, prefix.size()), prefix);
}

std::string InvalidNumberMessage(int low, int high, const std::string& found) {
    std::string message = UserText(InvalidNumberText);
    message += std::to_string(low);
    message += '-';
    message += std::to_string(high);
    return message + "): " + found;
}

int NumberOfTokenOrNone(const CCpLexer& lexer, std::string_view token, int high) {
    const bool bNumber = !token.empty() && std::ranges::all_of(token, IsCpDigit);
    return bNumber ? NumberOfToken(lexer, token, 0, high) : -1;
}

int NumberOfToken(const CCpLexer& lexer, std::string_view token, int low, int high) {
    int value = 0;
    const auto [end, error] = std::from_chars(token.begin(), token.end(), value);
    const bool bAllDigits = std::ranges::all_of(token, IsCpDigit);
    if (error != std::errc{} || end != token.end() || !bAllDigits || value < low || value > high) {
        throw ChessException(InvalidNumberMessage(low, high, lexer.ForMessage(token)));
    }
    return value;
}

}  // namespace tarnwick
