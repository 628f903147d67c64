#pragma once
// Words, signs and comments of a problem file.
//
// One pass over one buffer: a token is a view into it, nothing is copied, and whatever the bytes are, a
// file is read in time proportional to its length. The text must live as long as the lexer and its
// tokens. What counts as a letter or digit is plain ASCII.

#include <string>
#include <string_view>

namespace tarnwick {

class CCpLexer {
  public:
    /// bUtf8: the bytes above 127 are UTF-8, else Windows-1250.
    CCpLexer(std::string_view text, bool bUtf8) : m_text(text), m_bUtf8(bUtf8) {}

    /// The next token: an identifier (letters, digits, "^" and "_", the first a letter or digit) or any
    /// other single character. White space and comments in front of it are skipped.
    ///
    /// bKeepSpecial: a comment "//!...", "//#..." or "//@SortIndications..." is a token of its own, the
    /// rest of the line without the line end. At the end of the text the token is empty or, with
    /// bFailAtEnd, ChessException "Unexpected end of file." is thrown, or in an open comment
    /// "Unexpected end of file before comment closed." A slash that begins no comment throws
    /// "Unexpected lexem (slash)."
    std::string_view NextToken(bool bFailAtEnd, bool bKeepSpecial);

    /// NextToken that fails at the end, keeps no special lines, and throws ChessException
    /// "Alphanumeric identifier expected. Found: " + the token for anything but an identifier.
    std::string_view NextIdentifier();

    /// The token just read, an identifier, together with what follows it over slashes between letters
    /// or digits: names like "A/B" are one word. Reads on behind it. The same token if none follows.
    std::string_view WidenOverSlashes(std::string_view token);

    /// Skips blanks and tabs, then takes all up to the next blank, tab or line feed. May be empty.
    std::string_view NextWord();

    /// All up to the line feed, which is passed over, or up to a carriage return before it.
    std::string_view RestOfLine();

    /// The next character that is no white space, without moving on; 0 at the end.
    char PeekCharacter();

    std::size_t Position() const { return m_at; }
    /// Goes back, or on, to a place that Position gave.
    void SetPosition(std::size_t position) { m_at = position; }

    /// Number of the line, from 1, on which the last token or comment began. Counts from the start of
    /// the text: for error messages.
    int LineOfLastToken() const;

    /// Text of the file as wide string: UTF-8 or Windows-1250.
    std::wstring Decode(std::string_view bytes) const;

    /// A token as it may stand in a message: valid UTF-8, without control characters, cut if very long.
    std::string ForMessage(std::string_view token) const;

  private:
    bool IsWhiteSpaceAt(std::size_t at, std::size_t& length) const;
    void SkipWhiteSpace();
    bool StartsSpecialLine() const;
    void SkipBlockComment(bool bFailAtEnd);
    void SkipLineComment(bool bFailAtEnd);
    std::size_t LengthOfCharacter() const;

    std::string_view m_text;
    std::size_t m_at = 0;
    std::size_t m_tokenStart = 0;
    bool m_bUtf8;
};

constexpr bool IsCpDigit(char c) {
    return c >= '0' && c <= '9';
}
constexpr bool IsCpLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}
constexpr bool IsCpAlphanumeric(char c) {
    return IsCpDigit(c) || IsCpLetter(c);
}

/// True for a token that is an identifier.
constexpr bool IsCpIdentifier(std::string_view token) {
    return !token.empty() && IsCpAlphanumeric(token.front());
}

/// Whether both texts are equal when ASCII letters are read in upper case.
bool EqualsIgnoringCase(std::string_view a, std::string_view b);
bool StartsWithIgnoringCase(std::string_view text, std::string_view prefix);

/// "Invalid number (allowed: LOW-HIGH): FOUND" in the user's language.
std::string InvalidNumberMessage(int low, int high, const std::string& found);

/// The token as a whole number from `low` to `high`. Throws ChessException "Invalid number (allowed: "
/// with both and the token for anything else.
int NumberOfToken(const CCpLexer& lexer, std::string_view token, int low, int high);

/// The same, but -1 for a token that is not all digits. A number above `high` throws.
int NumberOfTokenOrNone(const CCpLexer& lexer, std::string_view token, int high);

}  // namespace tarnwick
