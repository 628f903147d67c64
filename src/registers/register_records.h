#pragma once
// TRegisterRecords: the records of one table in numbered slots.
//
// A record is a position (64 bytes), its two numbers of plies (4 bytes) and a link to another record
// (4 bytes), each kind in an array of its own: a sweep over millions of records reads only the numbers.
// Slots come in chunks, which are taken from the system as needed and given back all together; a freed
// slot is used again before a new one.

#include <cstdint>
#include <limits>
#include <span>
#include <vector>

#include "platform/page_memory.h"

#include "registers/chessboard_register_item.h"

namespace tarnwick {

/// The two numbers of plies of a record; temporary_register.h says what they mean.
struct TRecordValues {
    std::uint16_t m_first = 0;
    std::uint16_t m_second = 0;

    friend bool operator==(const TRecordValues&, const TRecordValues&) = default;
};

using TRecordNumber = std::uint32_t;
inline constexpr TRecordNumber NoRecord = std::numeric_limits<TRecordNumber>::max();

class TRegisterRecords {
  public:
    static constexpr std::uint32_t ChunkBits = 18;  // 18 MiB: whole pages of 2 MiB
    static constexpr std::uint32_t ChunkSize = 1u << ChunkBits;
    /// Links that are no record numbers: the slot is free; its record stands in a tree bucket.
    static constexpr std::uint32_t FreeLink = NoRecord - 1;
    static constexpr std::uint32_t TreeLink = NoRecord - 2;

    /// Memory for one more record. Throws std::bad_alloc.
    void ReserveOne();
    /// Takes a slot that ReserveOne saw to. The caller fills position, values and link.
    TRecordNumber Take() noexcept;
    void Free(TRecordNumber record) noexcept;
    /// Gives the memory of the highest chunk back; the number of records that were in it. Once begun,
    /// all chunks must be dropped before the slots are used again.
    std::uint32_t DropLastChunk() noexcept;
    bool HasChunks() const noexcept { return !m_chunks.empty(); }

    TChessboardRegisterItem& Position(TRecordNumber record) noexcept {
        return m_chunks[record >> ChunkBits].Positions()[record & (ChunkSize - 1)];
    }
    const TChessboardRegisterItem& Position(TRecordNumber record) const noexcept {
        return m_chunks[record >> ChunkBits].Positions()[record & (ChunkSize - 1)];
    }
    TRecordValues Values(TRecordNumber record) const noexcept {
        return m_chunks[record >> ChunkBits].Values()[record & (ChunkSize - 1)];
    }
    void SetValues(TRecordNumber record, TRecordValues values) noexcept {
        m_chunks[record >> ChunkBits].Values()[record & (ChunkSize - 1)] = values;
    }
    std::uint32_t Link(TRecordNumber record) const noexcept {
        return m_chunks[record >> ChunkBits].Links()[record & (ChunkSize - 1)];
    }
    void SetLink(TRecordNumber record, std::uint32_t link) noexcept {
        m_chunks[record >> ChunkBits].Links()[record & (ChunkSize - 1)] = link;
    }

    /// Brings the memory of a position near.
    void PrefetchPosition(TRecordNumber record) const noexcept {
        __builtin_prefetch(&Position(record));
    }
    void PrefetchValues(TRecordNumber record) const noexcept {
        const TChunk& chunk = m_chunks[record >> ChunkBits];
        __builtin_prefetch(chunk.Values() + (record & (ChunkSize - 1)));
    }
    /// Numbers of plies of all slots of a chunk up to End, free ones among them: see Link.
    std::span<const TRecordValues> ChunkValues(std::uint32_t chunk) const noexcept;
    std::uint32_t ChunkCount() const noexcept {
        return static_cast<std::uint32_t>(m_chunks.size());
    }

    std::uint32_t Count() const noexcept { return m_count; }
    /// One more than the highest number ever taken.
    TRecordNumber End() const noexcept { return m_end; }
    std::uint64_t BytesUsed() const noexcept;

  private:
    class TChunk {
      public:
        static constexpr std::size_t Bytes = ChunkSize * (sizeof(TChessboardRegisterItem) + 8);
        explicit TChunk(bool bHugePages) : m_memory(Bytes, bHugePages) {}
        TChessboardRegisterItem* Positions() const noexcept {
            return static_cast<TChessboardRegisterItem*>(m_memory.Data());
        }
        TRecordValues* Values() const noexcept {
            return reinterpret_cast<TRecordValues*>(Positions() + ChunkSize);
        }
        std::uint32_t* Links() const noexcept {
            return reinterpret_cast<std::uint32_t*>(Values() + ChunkSize);
        }

      private:
        CPageMemory m_memory;
    };

    std::vector<TChunk> m_chunks;
    TRecordNumber m_end = 0;
    std::uint32_t m_count = 0;
    TRecordNumber m_firstFree = NoRecord;  ///< Free slots are chained through their positions.
};

}  // namespace tarnwick
