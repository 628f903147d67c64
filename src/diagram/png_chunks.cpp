// A PNG file is a signature and a row of chunks: length, type, content, checksum of type and content.
// Numbers have the high byte first.

#include "diagram/png_chunks.h"

#include <array>
#include <cstdint>

#include "base/chess_exception.h"
#include "base/language.h"

#include "diagram/picture_texts.h"

namespace tarnwick {
namespace {

using namespace std::string_view_literals;

constexpr std::string_view Signature = "\x89PNG\r\n\x1a\n"sv;
constexpr std::size_t NumberBytes = 4;
constexpr std::size_t TypeBytes = 4;
/// Length, type and checksum.
constexpr std::size_t FrameBytes = 2 * NumberBytes + TypeBytes;

/// Remainders of the 256 bytes for the checksum: CRC-32 with the reversed polynomial 0xEDB88320.
constexpr std::array<std::uint32_t, 256> Remainders = [] {
    std::array<std::uint32_t, 256> table{};
    for (std::uint32_t byte = 0; byte < 256; ++byte) {
        std::uint32_t rest = byte;
        for (int bit = 0; bit < 8; ++bit) {
            rest = (rest >> 1) ^ ((rest & 1) != 0 ? 0xEDB88320U : 0);
        }
        table[byte] = rest;
    }
    return table;
}();

std::uint32_t Checksum(std::string_view bytes) {
    std::uint32_t rest = 0xFFFFFFFFU;
    for (const char c : bytes) {
        rest = (rest >> 8) ^ Remainders[(rest ^ static_cast<unsigned char>(c)) & 0xFF];
    }
    return ~rest;
}

std::uint32_t NumberAt(std::string_view bytes, std::size_t at) {
    std::uint32_t number = 0;
    for (std::size_t i = 0; i < NumberBytes; ++i) {
        number = (number << 8) | static_cast<unsigned char>(bytes[at + i]);
    }
    return number;
}

std::string NumberBytesOf(std::uint32_t number) {
    std::string bytes;
    for (int shift = 24; shift >= 0; shift -= 8) {
        bytes += static_cast<char>((number >> shift) & 0xFF);
    }
    return bytes;
}

struct TChunk {
    std::string_view whole;  ///< Length to checksum.
    std::string_view type;
    std::string_view content;

    bool IsSound() const {
        return Checksum(whole.substr(NumberBytes, TypeBytes + content.size())) ==
               NumberAt(whole, whole.size() - NumberBytes);
    }
};

/// Cuts the next chunk off; nothing if no whole one is left.
std::optional<TChunk> TakeChunk(std::string_view& rest) {
    if (rest.size() < FrameBytes) {
        return std::nullopt;
    }
    const std::size_t length = NumberAt(rest, 0);
    if (length > rest.size() - FrameBytes) {
        return std::nullopt;
    }
    const TChunk chunk{.whole = rest.substr(0, FrameBytes + length),
                       .type = rest.substr(NumberBytes, TypeBytes),
                       .content = rest.substr(NumberBytes + TypeBytes, length)};
    rest.remove_prefix(chunk.whole.size());
    return chunk;
}

/// Cuts all up to the next NUL off, and the NUL; nothing if there is none.
std::optional<std::string_view> TakeString(std::string_view& rest) {
    const std::size_t end = rest.find('\0');
    if (end == std::string_view::npos) {
        return std::nullopt;
    }
    const std::string_view text = rest.substr(0, end);
    rest.remove_prefix(end + 1);
    return text;
}

/// The text of a tEXt or iTXt chunk with that keyword.
std::optional<std::string_view> TextOf(const TChunk& chunk, std::string_view keyword) {
    std::string_view rest = chunk.content;
    if ((chunk.type != "tEXt" && chunk.type != "iTXt") || TakeString(rest) != keyword) {
        return std::nullopt;
    }
    if (chunk.type == "tEXt") {
        return rest;
    }
    // Whether and how it is compressed, then its language and the keyword in that language.
    constexpr std::string_view NotCompressed = "\0\0"sv;
    if (!rest.starts_with(NotCompressed)) {
        return std::nullopt;
    }
    rest.remove_prefix(NotCompressed.size());
    return TakeString(rest) && TakeString(rest) ? std::optional(rest) : std::nullopt;
}

std::string TextChunk(std::string_view keyword, std::string_view text) {
    const std::string content = std::string(keyword) + '\0' + std::string(text);
    const std::string checked = "tEXt" + content;
    return NumberBytesOf(static_cast<std::uint32_t>(content.size())) + checked +
           NumberBytesOf(Checksum(checked));
}

}  // namespace

bool IsPng(std::string_view bytes) {
    return bytes.starts_with(Signature);
}

std::optional<std::string> PngText(std::string_view bytes, std::string_view keyword) {
    if (!IsPng(bytes)) {
        return std::nullopt;
    }
    std::string_view rest = bytes.substr(Signature.size());
    while (const std::optional<TChunk> chunk = TakeChunk(rest)) {
        const std::optional<std::string_view> text = TextOf(*chunk, keyword);
        if (text && chunk->IsSound()) {
            return std::string(*text);
        }
    }
    return std::nullopt;
}

std::string WithPngText(std::string_view bytes, std::string_view keyword, std::string_view text) {
    std::string_view rest = bytes.substr(IsPng(bytes) ? Signature.size() : bytes.size());
    const std::optional<TChunk> head = TakeChunk(rest);
    if (!head || head->type != "IHDR") {
        throw ChessException(UserText(NotAPngText));
    }
    std::string result = std::string(Signature) + std::string(head->whole);
    result += TextChunk(keyword, text);
    while (const std::optional<TChunk> chunk = TakeChunk(rest)) {
        if (!TextOf(*chunk, keyword)) {
            result += chunk->whole;
        }
    }
    return result += rest;
}

}  // namespace tarnwick
