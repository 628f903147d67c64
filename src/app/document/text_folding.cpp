#include "app/document/text_folding.h"

#include "base/encoding.h"

namespace tarnwick {
namespace {

constexpr wchar_t FirstLatin1Letter = 0xC0;
/// The base letters of U+00C0 to U+00FF; the signs of multiplication and division stay.
constexpr std::wstring_view Latin1 =
    L"aaaaaaaceeeeiiiidnooooo\u00D7ouuuuytsaaaaaaaceeeeiiiidnooooo\u00F7ouuuuyty";
constexpr wchar_t FirstExtendedLetter = 0x100;
/// Those of U+0100 to U+017F.
constexpr std::wstring_view LatinExtended =
    L"aaaaaaccccccccddddeeeeeeeeeegggggggghhhhiiiiiiiiiiiijjkkkllllllllllnnnnnnnnn"
    L"oooooooorrrrrrssssssssttttttuuuuuuuuuuuuwwyyyzzzzzzs";
static_assert(Latin1.size() == 0x40 && LatinExtended.size() == 0x80);

bool IsBetween(wchar_t c, wchar_t first, wchar_t last) {
    return c >= first && c <= last;
}

wchar_t FoldedCyrillic(wchar_t c) {
    if (IsBetween(c, 0x410, 0x42F)) {
        c += 0x20;
    } else if (IsBetween(c, 0x400, 0x40F)) {
        c += 0x50;
    }
    switch (c) {
        case L'й':
            return L'и';
        case L'ё':
            return L'е';
        case L'ї':
            return L'і';
        case L'Ґ':
        case L'ґ':
            return L'г';
        default:
            return c;
    }
}

/// 0 for what vanishes: a combining accent.
wchar_t Folded(wchar_t c) {
    if (c < FirstLatin1Letter) {
        return IsBetween(c, L'A', L'Z') ? c + (L'a' - L'A') : c;
    }
    if (c < FirstExtendedLetter) {
        return Latin1[static_cast<std::size_t>(c - FirstLatin1Letter)];
    }
    if (c < FirstExtendedLetter + 0x80) {
        return LatinExtended[static_cast<std::size_t>(c - FirstExtendedLetter)];
    }
    if (IsBetween(c, 0x300, 0x36F)) {
        return 0;
    }
    if (IsBetween(c, 0x391, 0x3A9)) {
        return c + 0x20;  // Greek
    }
    return FoldedCyrillic(c);
}

}  // namespace

std::string FoldedText(std::wstring_view text) {
    std::string folded;
    folded.reserve(text.size() + text.size() / 4);
    for (const wchar_t c : text) {
        const wchar_t f = Folded(c);
        if (f > 0 && f < 0x80) {
            folded += static_cast<char>(f);  // most letters: no call for them
        } else if (f != 0) {
            folded += ToUtf8({&f, 1});
        }
    }
    return folded;
}

}  // namespace tarnwick
