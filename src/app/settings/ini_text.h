#pragma once

// The text of an INI file that people edit by hand too.
//
// It is kept byte for byte: comments, unknown keys, their order, blank lines, line ends, a byte order mark,
// whatever stands there. A value is found by walking the text, and setting one replaces the bytes of this
// value alone. So nothing that the program does not know is ever lost by saving its options, and no input
// is wrong: what is no section, no comment and no "key = value" is passed over.
//
// Names of sections and keys are the same in large and small ASCII letters; the first of several equal
// ones counts. A line that begins with ';' or '#' is a comment. One thread at a time.

#include <optional>
#include <string>
#include <string_view>

namespace tarnwick {

/// A value as it stands in the text, without the blanks around it.
struct TIniValue {
    std::string_view text;  ///< Lives as long as the CIniText is not changed.
    int nLine = 0;          ///< From 1.
};

/// The beginning of a value that is a number, before a blank and a remark: "5" in "5 ; was 6". Other
/// values (a path may hold ';') have no remarks.
std::string_view WithoutRemark(std::string_view value);

class CIniText {
  public:
    CIniText() = default;
    explicit CIniText(std::string text) : m_text(std::move(text)) {}

    [[nodiscard]] const std::string& Text() const { return m_text; }

    [[nodiscard]] std::optional<TIniValue> Find(std::string_view section,
                                                std::string_view key) const;

    /// Replaces the value and leaves a remark behind it. A new key goes to the end of its section, a new
    /// section to the end of the text, with line ends as the text has them. The value has no line end.
    void Set(std::string_view section, std::string_view key, std::string_view value);

  private:
    [[nodiscard]] std::string_view LineEnd() const;
    void Add(std::string_view section, std::string_view key, std::string_view value);

    std::string m_text;
};

}  // namespace tarnwick
