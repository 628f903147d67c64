#include "problems/variant.h"

#include <algorithm>

#include "base/encoding.h"

#include "chess/move_text.h"
#include "problems/problem_texts.h"

namespace tarnwick {
namespace {

bool IsAlphanumeric(wchar_t c) {
    return (c >= L'0' && c <= L'9') || (c >= L'a' && c <= L'z') || (c >= L'A' && c <= L'Z');
}

bool IsBlank(wchar_t c) {
    return c == L' ' || c == L'\t';
}

/// Cuts the name and its braces off the text. A brace that is not closed takes the whole line.
std::wstring TakeName(std::wstring_view& text) {
    const std::size_t open = text.find(L'{');
    if (open == std::wstring_view::npos) {
        return {};
    }
    const std::size_t close = std::min(text.find(L'}', open), text.size());
    std::wstring name(text.substr(open + 1, close - open - 1));
    text.remove_prefix(std::min(close + 1, text.size()));
    return name;
}

/// Moves are plain letters and digits, but their separator may be any character: people like dashes.
/// Of a word that is too long for a move, the start is enough to be refused.
std::string ToMoveText(std::wstring_view word) {
    constexpr std::size_t enough = 16;
    std::string text;
    for (const wchar_t c : word.substr(0, enough)) {
        text += c < 0x80 && c > 0 ? static_cast<char>(c) : '-';
    }
    return text;
}

/// Cuts the next move and its comment off the text, which begins with the move.
TVariantEntry TakeEntry(std::wstring_view& text, bool bWhite) {
    const auto isEnd = [](wchar_t c) { return IsBlank(c) || c == L'['; };
    const auto end = std::ranges::find_if(text, isEnd);
    TVariantEntry entry;
    entry.m_text = ToMoveText({text.begin(), end});
    ParseFullMove(entry.m_move, entry.m_text, bWhite);

    const auto next = std::find_if_not(end, text.end(), IsBlank);
    text.remove_prefix(static_cast<std::size_t>(next - text.begin()));
    if (!text.empty() && text.front() == L'[') {
        const std::size_t close = std::min(text.find(L']'), text.size());
        entry.m_comment = text.substr(1, close - 1);
        text.remove_prefix(std::min(close + 1, text.size()));
    }
    return entry;
}

}  // namespace

bool TVariantEntry::operator==(const TVariantEntry& other) const {
    return m_text == other.m_text && m_move.SameAs(other.m_move) && m_comment == other.m_comment;
}

TVariant TVariant::FromText(std::wstring_view text, bool bTranslateMainVariantName) {
    text = text.substr(0, text.find_first_of(L"\r\n"));
    TVariant variant;
    variant.m_name = TakeName(text);
    if (bTranslateMainVariantName && IsMainVariantName(variant.m_name)) {
        variant.m_name = MainVariantName();
    }
    while (true) {
        const auto start = std::ranges::find_if(text, IsAlphanumeric);
        text.remove_prefix(static_cast<std::size_t>(start - text.begin()));
        if (text.empty()) {
            return variant;
        }
        const bool bWhite = variant.m_entries.size() % 2 == 0;
        variant.m_entries.push_back(TakeEntry(text, bWhite));
    }
}

std::wstring TVariant::ToText() const {
    const bool bMain = IsMainVariantName(m_name);
    std::wstring text = L"{" + (bMain ? FromUtf8(MainVariantText.en) : m_name) + L"} ";
    bool bFirst = true;
    for (const TVariantEntry& entry : m_entries) {
        if (!bFirst) {
            text += L' ';
        }
        bFirst = false;
        text.append(entry.m_text.begin(), entry.m_text.end());
        if (!entry.m_comment.empty()) {
            text += L'[' + entry.m_comment + L']';
        }
    }
    return text;
}

bool IsMainVariantName(std::wstring_view name) {
    return name == FromUtf8(MainVariantText.en) || name == FromUtf8(MainVariantText.pl) ||
           name == FromUtf8(MainVariantText.uk);
}

std::wstring MainVariantName() {
    return FromUtf8(UserText(MainVariantText));
}

}  // namespace tarnwick
