#pragma once

// A table that stays packed and gives single elements on demand.
//
// Tables have billions of elements, far more than memory, and the search wants one here and one there many
// thousand times a second. Whoever holds a table knows this interface alone; random_access_lzw_buffer.h is
// what stands behind it.

#include <cstdint>
#include <filesystem>
#include <memory>
#include <utility>
#include <vector>

#include "platform/random_access_file.h"

namespace tarnwick::RandomAccessLZWBuffer {

/// A whole table: its bytes and how many they are; null and 0 for none.
using TUnpackedTable = std::pair<std::unique_ptr<std::uint8_t[]>, std::uint64_t>;

class CRandomAccessPackedBufferBase {
  public:
    virtual ~CRandomAccessPackedBufferBase() = default;

    /// Reads the file, or its head and offsets alone and keeps it open (disk based, also where memory does
    /// not suffice for the whole). False, and no table, if the file is missing, short or damaged.
    virtual bool LoadFromFile(const std::filesystem::path& path, bool bDiskBased) = 0;
    /// Writes what Pack made; flags are TTableFlags. bPrepare calls PrepareSave before. False if the disk
    /// refuses or there is no table in memory; the file is then as it was.
    virtual bool SaveToFile(const std::filesystem::path& path, bool bPrepare,
                            std::uint16_t flags) = 0;
    /// The element. bWholeBlock unpacks all of its block, which pays if others of it are wanted soon.
    /// Any thread. Throws ChessException for an index beyond the table, a damaged block, a disk that fails.
    virtual std::uint16_t GetValue(std::uint64_t index, bool bWholeBlock) = 0;
    /// Changes an element: no table can, so it throws ChessException.
    virtual bool Update(std::uint64_t index, std::uint16_t element) = 0;
    /// The whole table, nulls where there is no memory; where a block is damaged the user is told, too.
    virtual TUnpackedTable DecompressAll() = 0;
    /// The largest element but for element 0, which is the table's flags, and the mark of unknown
    /// positions. `indexes` gets up to `limit` places of it, ascending. Throws as GetValue.
    virtual std::uint16_t FindMaxValue(std::vector<std::uint64_t>& indexes, std::size_t limit) = 0;
    /// Packs elementCount elements at source (bytes, or 16-bit numbers in the machine's order), `repeats`
    /// times in a row. Each block gets at least minRoom bytes, the last one `reserve` bytes behind it;
    /// bShrink gives memory back that is not needed. False, and no table, if an element has no code
    /// (lzw_block.h) or the packed table would be larger than a plain one of bytes.
    virtual bool Pack(std::uint64_t elementCount, const void* pSource, bool bShrink,
                      std::uint32_t minRoom, std::uint32_t reserve, std::uint32_t repeats) = 0;
    /// Bytes of the packed table, its offsets included, and 8.
    virtual std::uint64_t GetPackedSize() const = 0;
    /// Bytes that the table holds; disk based, those of its offsets.
    virtual std::uint64_t GetMemoryUsed() const = 0;
    /// What has to happen before SaveToFile: nothing, as no table can be changed.
    virtual void PrepareSave() = 0;
    /// Forgets changes that are not packed yet: there are none.
    virtual void ClearUpdates() = 0;
    /// A number that travels in the file's head.
    virtual void SetUserValue(std::uint32_t value) = 0;
    virtual std::uint32_t GetUserValue() const = 0;
    /// Elements of a block, 8192 or 16384.
    virtual std::uint32_t GetBlockSize() const = 0;
    /// Whether a file is held open.
    virtual bool IsDiskBased() const = 0;
    /// Packs the first elementCount elements of an unpacked table into a new file, piece by piece. False
    /// for a source too short, an element without a code, or a disk that refuses; nothing is left then.
    virtual bool PackFile(const std::filesystem::path& path, const CRandomAccessFile& source,
                          std::uint64_t elementCount, std::uint16_t flags) = 0;
    /// Bytes of an element, 1 or 2.
    virtual std::uint32_t GetElementSize() const = 0;

  protected:
    CRandomAccessPackedBufferBase() = default;
    CRandomAccessPackedBufferBase(const CRandomAccessPackedBufferBase&) = delete;
    CRandomAccessPackedBufferBase& operator=(const CRandomAccessPackedBufferBase&) = delete;
};

}  // namespace tarnwick::RandomAccessLZWBuffer
