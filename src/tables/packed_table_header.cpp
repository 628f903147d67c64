#include "tables/packed_table_header.h"

#include <algorithm>
#include <limits>

#include "base/little_endian.h"

namespace tarnwick {
namespace {

constexpr std::uint64_t PlainDictionaryBit = std::uint64_t{1} << 63;

/// The longest string of the initial dictionary. The first code gives at most that many elements, and each
/// further one at most one more than the one before it.
constexpr std::uint64_t LongestSeed = 128;

/// Whether so many bytes can hold the codes of so many elements: codes have more than 8 bits.
bool CanHold(std::uint64_t bytes, std::uint64_t elements) {
    const std::uint64_t codes = std::min<std::uint64_t>(bytes, LargePackedBlock);
    return elements <= codes * LongestSeed + codes * codes / 2;
}

}  // namespace

std::uint32_t TPackedTableHeader::ElementsOfBlock(std::uint64_t block) const {
    return static_cast<std::uint32_t>(
        std::min<std::uint64_t>(blockSize, elementCount - block * blockSize));
}

std::optional<TPackedTableHeader> ParsePackedHeader(std::span<const std::uint8_t> bytes,
                                                    std::uint64_t fileSize) {
    if (bytes.size() < PackedHeaderBytes) {
        return std::nullopt;
    }
    const auto size = LoadLittleEndian<std::uint64_t>(&bytes[0]);
    TPackedTableHeader header;
    header.totalSize = size & ~PlainDictionaryBit;
    header.bPlainDictionary = (size & PlainDictionaryBit) != 0;
    header.elementCount = LoadLittleEndian<std::uint64_t>(&bytes[8]);
    header.blockSize = LoadLittleEndian<std::uint32_t>(&bytes[16]);
    header.userValue = LoadLittleEndian<std::uint32_t>(&bytes[20]);
    header.flags = LoadLittleEndian<std::uint16_t>(&bytes[24]);
    if (header.blockSize != SmallPackedBlock && header.blockSize != LargePackedBlock) {
        return std::nullopt;
    }
    const bool bFits = header.totalSize <= fileSize && header.BlocksAt() <= header.totalSize &&
                       header.BlockCount() < std::numeric_limits<std::uint32_t>::max();
    return bFits ? std::optional(header) : std::nullopt;
}

bool AreBlockOffsetsSound(const TPackedTableHeader& header, std::span<const std::uint8_t> offsets) {
    const std::uint64_t blocks = header.BlockCount();
    if (offsets.size() < blocks * 8) {
        return false;
    }
    const auto offsetOf = [&](std::uint64_t block) {
        return block < blocks ? LoadLittleEndian<std::uint64_t>(&offsets[block * 8])
                              : header.totalSize;
    };
    std::uint64_t start = header.BlocksAt();
    for (std::uint64_t block = 0; block < blocks; ++block) {
        const std::uint64_t at = offsetOf(block);
        const std::uint64_t end = offsetOf(block + 1);
        if (at < start || end < at || end > header.totalSize ||
            !CanHold(end - at, header.ElementsOfBlock(block))) {
            return false;
        }
        start = end;
    }
    return true;
}

void FormatPackedHeader(const TPackedTableHeader& header, std::uint8_t* bytes) {
    std::fill_n(bytes, PackedHeaderBytes, std::uint8_t{0});
    StoreLittleEndian(bytes, header.totalSize | (header.bPlainDictionary ? PlainDictionaryBit : 0));
    StoreLittleEndian(bytes + 8, header.elementCount);
    StoreLittleEndian(bytes + 16, header.blockSize);
    StoreLittleEndian(bytes + 20, header.userValue);
    StoreLittleEndian(bytes + 24, header.flags);
}

}  // namespace tarnwick
