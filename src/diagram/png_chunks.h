#pragma once
// The text chunks of a PNG picture (PNG Specification, ISO/IEC 15948). Only the outer form of the file is
// looked at, no pixel: any painter may have made it.

#include <optional>
#include <string>
#include <string_view>

namespace tarnwick {

/// Whether the bytes begin as every PNG file does.
bool IsPng(std::string_view bytes);

/// The text under that keyword: of the first tEXt chunk, or iTXt chunk that is not compressed, which has
/// it. Nothing where there is none, and for a damaged one: a chunk that is cut off, or whose checksum is
/// wrong. Whatever the bytes are, it takes time proportional to their number.
std::optional<std::string> PngText(std::string_view bytes, std::string_view keyword);

/// The picture with the text under the keyword, behind its first chunk; chunks that had the keyword are left
/// out. Keyword and text are ASCII, the keyword has 1 to 79 characters. Throws ChessException NotAPngText
/// for bytes that do not begin as a PNG picture with its head.
std::string WithPngText(std::string_view bytes, std::string_view keyword, std::string_view text);

}  // namespace tarnwick
