#include "base/encoding.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace tarnwick {
namespace {

constexpr char32_t ReplacementCharacter = 0xFFFD;
constexpr char32_t LastCodePoint = 0x10FFFF;

/// What stands at one place of a UTF-8 text. length is in bytes, at least 1.
struct TDecoded {
    char32_t codePoint;
    std::size_t length;
    bool bValid;
};

/// The allowed range of the second byte. It is where overlong forms, surrogates and code points
/// above the last one differ from good characters; third and fourth bytes are always 80 to BF.
struct TSecondByteRange {
    std::uint8_t low;
    std::uint8_t high;
};

constexpr TSecondByteRange SecondByteRange(std::uint8_t first) {
    switch (first) {
        case 0xE0:
            return {0xA0, 0xBF};  // below: overlong
        case 0xED:
            return {0x80, 0x9F};  // above: surrogates
        case 0xF0:
            return {0x90, 0xBF};  // below: overlong
        case 0xF4:
            return {0x80, 0x8F};  // above: beyond U+10FFFF
        default:
            return {0x80, 0xBF};
    }
}

/// Bytes of the character that the byte begins; 0 for a byte that begins none.
constexpr std::size_t SequenceLength(std::uint8_t first) {
    if (first < 0x80) {
        return 1;
    }
    if (first >= 0xC2 && first <= 0xDF) {
        return 2;
    }
    if (first >= 0xE0 && first <= 0xEF) {
        return 3;
    }
    return first >= 0xF0 && first <= 0xF4 ? 4 : 0;
}

/// Reads the character at the start of a text that is not empty.
TDecoded DecodeOne(std::string_view text) noexcept {
    const auto first = static_cast<std::uint8_t>(text[0]);
    const std::size_t length = SequenceLength(first);
    if (length <= 1) {
        return {length == 1 ? char32_t{first} : ReplacementCharacter, 1, length == 1};
    }
    // The first byte of a character of n bytes has n ones, a zero, and the top bits of the value.
    char32_t codePoint = first & (0x7FU >> length);
    TSecondByteRange range = SecondByteRange(first);
    for (std::size_t i = 1; i < length; ++i) {
        const auto next = i < text.size() ? static_cast<std::uint8_t>(text[i]) : std::uint8_t{0};
        if (next < range.low || next > range.high) {
            return {ReplacementCharacter, i, false};
        }
        codePoint = (codePoint << 6) | (next & 0x3FU);
        range = {0x80, 0xBF};
    }
    return {codePoint, length, true};
}

void AppendUtf8(std::string& result, char32_t codePoint) {
    const auto put = [&result](char32_t byte) {
        result.push_back(static_cast<char>(static_cast<unsigned char>(byte)));
    };
    if (codePoint < 0x80) {
        put(codePoint);
    } else if (codePoint < 0x800) {
        put(0xC0 | (codePoint >> 6));
        put(0x80 | (codePoint & 0x3F));
    } else if (codePoint < 0x10000) {
        put(0xE0 | (codePoint >> 12));
        put(0x80 | ((codePoint >> 6) & 0x3F));
        put(0x80 | (codePoint & 0x3F));
    } else {
        put(0xF0 | (codePoint >> 18));
        put(0x80 | ((codePoint >> 12) & 0x3F));
        put(0x80 | ((codePoint >> 6) & 0x3F));
        put(0x80 | (codePoint & 0x3F));
    }
}

// clang-format off
/// Code points of the bytes 80 to FF.
constexpr std::array<char16_t, 128> Windows1250UpperHalf = {
    0x20AC, 0x0081, 0x201A, 0x0083, 0x201E, 0x2026, 0x2020, 0x2021,
    0x0088, 0x2030, 0x0160, 0x2039, 0x015A, 0x0164, 0x017D, 0x0179,
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
    0x0098, 0x2122, 0x0161, 0x203A, 0x015B, 0x0165, 0x017E, 0x017A,
    0x00A0, 0x02C7, 0x02D8, 0x0141, 0x00A4, 0x0104, 0x00A6, 0x00A7,
    0x00A8, 0x00A9, 0x015E, 0x00AB, 0x00AC, 0x00AD, 0x00AE, 0x017B,
    0x00B0, 0x00B1, 0x02DB, 0x0142, 0x00B4, 0x00B5, 0x00B6, 0x00B7,
    0x00B8, 0x0105, 0x015F, 0x00BB, 0x013D, 0x02DD, 0x013E, 0x017C,
    0x0154, 0x00C1, 0x00C2, 0x0102, 0x00C4, 0x0139, 0x0106, 0x00C7,
    0x010C, 0x00C9, 0x0118, 0x00CB, 0x011A, 0x00CD, 0x00CE, 0x010E,
    0x0110, 0x0143, 0x0147, 0x00D3, 0x00D4, 0x0150, 0x00D6, 0x00D7,
    0x0158, 0x016E, 0x00DA, 0x0170, 0x00DC, 0x00DD, 0x0162, 0x00DF,
    0x0155, 0x00E1, 0x00E2, 0x0103, 0x00E4, 0x013A, 0x0107, 0x00E7,
    0x010D, 0x00E9, 0x0119, 0x00EB, 0x011B, 0x00ED, 0x00EE, 0x010F,
    0x0111, 0x0144, 0x0148, 0x00F3, 0x00F4, 0x0151, 0x00F6, 0x00F7,
    0x0159, 0x016F, 0x00FA, 0x0171, 0x00FC, 0x00FD, 0x0163, 0x02D9,
};
// clang-format on

}  // namespace

bool IsValidUtf8(std::string_view text) noexcept {
    while (!text.empty()) {
        const TDecoded decoded = DecodeOne(text);
        if (!decoded.bValid) {
            return false;
        }
        text.remove_prefix(decoded.length);
    }
    return true;
}

std::wstring FromUtf8(std::string_view text) {
    std::wstring result;
    result.reserve(text.size());
    while (!text.empty()) {
        const TDecoded decoded = DecodeOne(text);
        result.push_back(static_cast<wchar_t>(decoded.codePoint));
        text.remove_prefix(decoded.length);
    }
    return result;
}

std::string ToUtf8(std::wstring_view text) {
    std::string result;
    result.reserve(text.size());
    for (const wchar_t wide : text) {
        const auto codePoint = static_cast<char32_t>(wide);
        const bool bSurrogate = codePoint >= 0xD800 && codePoint <= 0xDFFF;
        AppendUtf8(result,
                   bSurrogate || codePoint > LastCodePoint ? ReplacementCharacter : codePoint);
    }
    return result;
}

std::string ToValidUtf8(std::string_view text) {
    return IsValidUtf8(text) ? std::string(text) : ToUtf8(FromUtf8(text));
}

std::wstring FromWindows1250(std::string_view text) {
    std::wstring result;
    result.reserve(text.size());
    for (const char c : text) {
        const auto byte = static_cast<std::uint8_t>(c);
        result.push_back(byte < 0x80 ? wchar_t{byte}
                                     : static_cast<wchar_t>(Windows1250UpperHalf[byte - 0x80U]));
    }
    return result;
}

}  // namespace tarnwick
