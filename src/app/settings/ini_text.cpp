#include "app/settings/ini_text.h"

#include <algorithm>
#include <cassert>
#include <utility>

namespace tarnwick {
namespace {

constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view Blanks = " \t\r\v\f";

std::string_view Trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(Blanks);
    if (first == std::string_view::npos) {
        return text.substr(text.size());
    }
    return text.substr(first, text.find_last_not_of(Blanks) + 1 - first);
}

char SmallLetter(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool SameName(std::string_view a, std::string_view b) {
    return std::ranges::equal(a, b, {}, SmallLetter, SmallLetter);
}

/// One line of the text at a time, with the section in which it stands.
class CLineWalk {
  public:
    explicit CLineWalk(std::string_view text) : m_text(text) {
        m_nEnd = text.starts_with(ByteOrderMark) ? ByteOrderMark.size() : 0;
    }

    /// False at the end of the text.
    bool Next() {
        if (m_nEnd >= m_text.size()) {
            return false;
        }
        const std::size_t end = m_text.find('\n', m_nEnd);
        const std::size_t begin =
            std::exchange(m_nEnd, end == std::string_view::npos ? m_text.size() : end + 1);
        m_line = Trimmed(m_text.substr(begin, std::min(end, m_text.size()) - begin));
        ++m_nLine;
        if (m_line.starts_with('[') && m_line.ends_with(']') && m_line.size() >= 2) {
            m_section = Trimmed(m_line.substr(1, m_line.size() - 2));
            m_bInSection = true;
        }
        return true;
    }

    [[nodiscard]] bool IsIn(std::string_view section) const {
        return m_bInSection && SameName(m_section, section);
    }
    [[nodiscard]] std::string_view Line() const { return m_line; }  ///< Without blanks around it.
    [[nodiscard]] int LineNumber() const { return m_nLine; }
    [[nodiscard]] std::size_t End() const { return m_nEnd; }  ///< Offset behind the line end.

    /// The value of the key, if this line has it.
    [[nodiscard]] std::optional<std::string_view> ValueOf(std::string_view key) const {
        const std::size_t sign = m_line.find('=');
        if (sign == std::string_view::npos || m_line.starts_with(';') || m_line.starts_with('#') ||
            !SameName(Trimmed(m_line.substr(0, sign)), key)) {
            return std::nullopt;
        }
        return Trimmed(m_line.substr(sign + 1));
    }

  private:
    std::string_view m_text;
    std::string_view m_line;
    std::string_view m_section;
    bool m_bInSection = false;
    std::size_t m_nEnd = 0;
    int m_nLine = 0;
};

}  // namespace

std::string_view WithoutRemark(std::string_view value) {
    const std::size_t end = value.find_first_of(Blanks);
    if (end == std::string_view::npos) {
        return value;
    }
    const std::string_view rest = Trimmed(value.substr(end));
    return rest.starts_with(';') || rest.starts_with('#') ? value.substr(0, end) : value;
}

std::optional<TIniValue> CIniText::Find(std::string_view section, std::string_view key) const {
    CLineWalk walk(m_text);
    while (walk.Next()) {
        if (!walk.IsIn(section)) {
            continue;
        }
        if (const std::optional<std::string_view> value = walk.ValueOf(key)) {
            return TIniValue{*value, walk.LineNumber()};
        }
    }
    return std::nullopt;
}

void CIniText::Set(std::string_view section, std::string_view key, std::string_view value) {
    assert(value.find_first_of("\r\n") == std::string_view::npos);
    const std::optional<TIniValue> old = Find(section, key);
    if (!old) {
        Add(section, key, value);
        return;
    }
    const std::string_view oldNumber = WithoutRemark(old->text);
    m_text.replace(static_cast<std::size_t>(oldNumber.data() - m_text.data()), oldNumber.size(),
                   value);
}

void CIniText::Add(std::string_view section, std::string_view key, std::string_view value) {
    std::optional<std::size_t> place;  // behind the last line of the section that is not blank
    CLineWalk walk(m_text);
    while (walk.Next() && (!place || walk.IsIn(section))) {
        if (walk.IsIn(section) && !walk.Line().empty()) {
            place = walk.End();
        }
    }
    const std::string lineEnd(LineEnd());
    std::string added;
    if (place.value_or(m_text.size()) == m_text.size() && !m_text.empty() &&
        m_text != ByteOrderMark && !m_text.ends_with('\n')) {
        added += lineEnd;
    }
    if (!place) {
        added.append("[").append(section).append("]").append(lineEnd);
    }
    added.append(key).append("=").append(value).append(lineEnd);
    m_text.insert(place.value_or(m_text.size()), added);
}

std::string_view CIniText::LineEnd() const {
    const std::size_t first = m_text.find('\n');
    const bool bWithReturn = first != std::string::npos && first > 0 && m_text[first - 1] == '\r';
    return bWithReturn ? "\r\n" : "\n";
}

}  // namespace tarnwick
