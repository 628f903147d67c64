#pragma once

// The head of a packed table (".packed.lzw") and the checks that make its numbers safe to use.
//
//   offset  bytes  content
//        0      8  size of the file; bit 63: plain dictionary, else seeded
//        8      8  elements of the table
//       16      4  elements of a block, 8192 or 16384
//       20      4  user value, 0 if never set
//       24      2  flags: 2 combination numbers, 4 two-byte elements (TTableFlags)
//       26      6  zero
//       32   8 * n offset in the file of each of the n blocks
//        .         the blocks, each up to the next one's offset or the end
//
// All numbers are little-endian. The last block holds what is left of the elements.

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

namespace tarnwick {

inline constexpr std::size_t PackedHeaderBytes = 32;
inline constexpr std::uint32_t SmallPackedBlock = 0x2000;
inline constexpr std::uint32_t LargePackedBlock = 0x4000;

struct TPackedTableHeader {
    std::uint64_t totalSize = PackedHeaderBytes;  ///< Of the file, in bytes, without the bit.
    bool bPlainDictionary = true;
    std::uint64_t elementCount = 0;
    std::uint32_t blockSize = LargePackedBlock;  ///< In elements.
    std::uint32_t userValue = 0;
    std::uint16_t flags = 0;  ///< TTableFlags.

    [[nodiscard]] std::uint64_t BlockCount() const {
        return elementCount / blockSize + (elementCount % blockSize != 0 ? 1 : 0);
    }
    /// Bytes of head and offsets: where the blocks start.
    [[nodiscard]] std::uint64_t BlocksAt() const { return PackedHeaderBytes + BlockCount() * 8; }
    /// Elements of the block, which must be below BlockCount().
    [[nodiscard]] std::uint32_t ElementsOfBlock(std::uint64_t block) const;
};

/// The head of a file of so many bytes. Nothing if the bytes are fewer than PackedHeaderBytes, the block size is
/// none of the two, or what the head tells of (its size, its offsets) does not fit into the file.
std::optional<TPackedTableHeader> ParsePackedHeader(std::span<const std::uint8_t> bytes,
                                                    std::uint64_t fileSize);

/// Whether the offsets, BlockCount() times 8 bytes, rise from BlocksAt() to the total size, and each block has
/// bytes enough for its elements. Then no claim of the file can ask for more than 200 times its size.
bool AreBlockOffsetsSound(const TPackedTableHeader& header, std::span<const std::uint8_t> offsets);

/// Writes the PackedHeaderBytes.
void FormatPackedHeader(const TPackedTableHeader& header, std::uint8_t* bytes);

}  // namespace tarnwick
