#pragma once

// Whole tables packed as LZ4 with long offsets: ".precalc.lz4" and the buckets and runs of ".packed.lz4".
//
//   offset  bytes  content
//        0      4  "LZ4e"
//        4      4  size unpacked
//        8      4  size packed, with this head
//       12      4  zero
//       16      .  sequences, as base/lz4_block.h reads them in its form LongOffsets
//
// Files of the older form start with "LZ4" and another fourth letter, and hold a block of the public format.
// Tables are packed once and read often, so packing takes its time: it looks 16 MB back, where a position
// with one man on another field is. A match nearer than 16 bytes is never
// longer than its offset, which lets readers copy 16 bytes at a time without a look.

#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <span>
#include <vector>

namespace tarnwick {

inline constexpr std::size_t Lz4eHeadBytes = 16;
/// The head has 32 bits for a size.
inline constexpr std::uint64_t MostLz4eBytes = 0xFFFFFFFF;

/// Appends the sequences of the bytes, of which there may be MostLz4eBytes. Throws std::bad_alloc.
void AppendLz4eSequences(std::span<const std::uint8_t> bytes, std::vector<std::uint8_t>& packed);

/// A stream with its head; empty if the bytes, or what they become, are more than the head can tell.
/// Throws std::bad_alloc.
std::vector<std::uint8_t> PackLz4eStream(std::span<const std::uint8_t> bytes);

/// Writes the stream of the bytes. Throws ChessException if there are too many of them or the disk refuses;
/// the file is then as it was.
void WriteLz4eFile(const std::filesystem::path& path, std::span<const std::uint8_t> bytes);

/// The bytes of a file of either form, if they are as many as expectedSize. Throws ChessException with the reason
/// otherwise, and std::bad_alloc; nothing is allocated for a size that the file's own cannot become.
std::vector<std::uint8_t> ReadLz4eFile(const std::filesystem::path& path,
                                       std::uint64_t expectedSize);

}  // namespace tarnwick
