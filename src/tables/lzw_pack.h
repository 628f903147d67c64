#pragma once

// Making packed tables: row upon row of blocks, in memory or straight into a file.

#include <cstdint>
#include <filesystem>
#include <span>
#include <vector>

#include "platform/random_access_file.h"

#include "tables/lzw_block.h"
#include "tables/packed_table_header.h"

namespace tarnwick {

/// Bytes that a packed table may take; one that would be larger than the plain table is of no use.
template <typename TElement>
std::uint64_t MostPackedTableBytes(std::uint64_t blocks, std::uint32_t blockSize,
                                   std::uint32_t minRoom);

/// What Pack of the interface is asked for.
struct TPackJob {
    std::span<const std::uint8_t> source;  ///< Elements, little-endian.
    std::uint32_t repeats = 1;
    std::uint32_t minRoom = 0;  ///< Bytes that each block gets at least.
    std::uint32_t reserve = 0;  ///< Bytes behind the last block.
};

/// The packed table: head, offsets and blocks; header tells what the head will say. False if an element has no
/// code or the limit above is passed. Throws std::bad_alloc.
template <typename TElement, std::uint32_t BlockSize>
bool PackTable(const TPackJob& job, TPackedTableHeader& header, std::vector<std::uint8_t>& packed);

/// Packs the unpacked table of header.elementCount elements into a new file. False if the source is
/// shorter or an element has no code. Throws ChessException if the disk refuses, and std::bad_alloc. The file
/// appears only when it is whole.
template <typename TElement, std::uint32_t BlockSize>
bool PackTableFile(const std::filesystem::path& path, const CRandomAccessFile& source,
                   TPackedTableHeader header);

}  // namespace tarnwick
