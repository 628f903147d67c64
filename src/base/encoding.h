#pragma once

// Texts between files (UTF-8 or Windows-1250 bytes) and problem records (wide strings).
//
// No conversion throws or stops for bad input: a damaged description must not cost the user the
// problem. What is no character becomes U+FFFD, the replacement character, so that the damage shows
// and a text that was read and written again is valid UTF-8. NUL and other control characters pass
// unchanged. Any thread.

#include <string>
#include <string_view>

namespace tarnwick {

// A wide character holds any code point; the records rely on it.
static_assert(sizeof(wchar_t) == 4);

/// True for well-formed UTF-8: no overlong form, no surrogate (U+D800 to U+DFFF), nothing above
/// U+10FFFF, nothing cut off. The empty text is valid.
bool IsValidUtf8(std::string_view text) noexcept;

/// Each longest run of bytes that begins a character but does not complete it, and each byte that
/// can begin none, becomes one U+FFFD (the practice that Unicode recommends, so that the bytes
/// behind a broken character are read rightly).
std::wstring FromUtf8(std::string_view text);

/// A wide character that is no code point (a surrogate or above U+10FFFF) becomes U+FFFD.
std::string ToUtf8(std::wstring_view text);

/// The text with its invalid bytes replaced as in FromUtf8: for file names in messages, which the
/// file system takes as any bytes.
std::string ToValidUtf8(std::string_view text);

/// Windows-1250, the code page of the Polish and English files that do not say "UTF-8". The five
/// bytes without a character become the control characters of the same number.
std::wstring FromWindows1250(std::string_view text);

}  // namespace tarnwick
