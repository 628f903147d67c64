#pragma once
// CPositionIndex: finds record numbers by the 32-bit hash of their positions.
//
// The index is a row of lines, each one cache line of 8 entries (hash and record number). The upper bits
// of the hash choose an entry's home line; when that is full, the entry stands in the next line that has
// room. So a lookup touches one cache line, rarely two, and compares positions only when all 32 bits
// agree. A line at which a lookup may stop is one that is not full, which erasing preserves by moving
// entries back.
//
// When 70% of the entries are in use the row doubles. As homes are the upper bits, line i goes to lines
// 2i and 2i + 1: both rows are walked once from front to back, and millions of entries take milliseconds.

#include <atomic>
#include <bit>
#include <cstdint>

#include "platform/page_memory.h"

#include "registers/chessboard_register_item.h"
#include "registers/register_records.h"

namespace tarnwick {

class CPositionIndex {
  public:
    static constexpr std::uint32_t LineSize = 8;

    /// The record with this hash that isSame(record) accepts; NoRecord if there is none.
    template <typename TIsSame>
    TRecordNumber Find(TPositionHash hash, const TIsSame& isSame) const noexcept {
        if (m_lineCount == 0) {
            return NoRecord;
        }
        for (std::uint32_t home = HomeOf(hash.m_value);; home = Next(home)) {
            const TLine& line = Lines()[home];
            // Entries with the same hash are collected without branches: nearly always there is none,
            // or the one that is sought.
            unsigned sameHash = 0;
            for (unsigned i = 0; i < LineSize; ++i) {
                sameHash |= static_cast<unsigned>(line.m_hash[i] == hash.m_value) << i;
            }
            for (; sameHash != 0; sameHash &= sameHash - 1) {
                const std::uint32_t number = line.m_number[std::countr_zero(sameHash)];
                if (number != 0 && isSame(number - 1)) {
                    return number - 1;
                }
            }
            if (!line.IsFull()) {
                return NoRecord;
            }
        }
    }

    /// Room for one more entry. Throws std::bad_alloc with nothing changed.
    void ReserveOne();
    /// Adds an entry for which ReserveOne has made room.
    void Insert(TPositionHash hash, TRecordNumber record) noexcept;
    /// Removes an entry that is there.
    void Erase(TPositionHash hash, TRecordNumber record) noexcept;
    /// Gives all memory back.
    void Clear() noexcept;

    /// Brings the home line near. May run beside any change: a stale address is harmless to prefetch.
    void Prefetch(TPositionHash hash) const noexcept {
        const auto* lines =
            static_cast<const TLine*>(m_pPrefetchLines.load(std::memory_order_relaxed));
        if (lines != nullptr) {
            const auto shift = m_prefetchShift.load(std::memory_order_relaxed);
            __builtin_prefetch(reinterpret_cast<const char*>(lines) +
                               (std::uint64_t{hash.m_value} >> shift) * sizeof(TLine));
        }
    }

    std::uint64_t BytesUsed() const noexcept { return m_memory.Size(); }

  private:
    struct alignas(64) TLine {
        std::uint32_t m_hash[LineSize];
        std::uint32_t
            m_number[LineSize];  ///< Record number + 1; 0 is empty. Filled from the front.

        bool IsFull() const noexcept { return m_number[LineSize - 1] != 0; }
    };
    static_assert(sizeof(TLine) == 64);

    TLine* Lines() const noexcept { return static_cast<TLine*>(m_memory.Data()); }
    std::uint32_t HomeOf(std::uint32_t hash) const noexcept { return hash >> m_shift; }
    std::uint32_t Next(std::uint32_t line) const noexcept { return (line + 1) & (m_lineCount - 1); }
    bool MayStandIn(std::uint32_t line, std::uint32_t hash, std::uint32_t now) const noexcept;
    void TakeOut(std::uint32_t line, std::uint32_t slot) noexcept;
    void Resize(std::uint32_t lineCount);
    void Put(std::uint32_t hash, std::uint32_t number) noexcept;

    CPageMemory m_memory;
    std::uint32_t m_lineCount =
        0;                      ///< Home lines, a power of two. Spare lines follow the last one.
    std::uint32_t m_shift = 0;  ///< 32 - log2 of m_lineCount.
    std::uint32_t m_entryCount = 0;
    std::atomic<const void*> m_pPrefetchLines{nullptr};
    std::atomic<std::uint32_t> m_prefetchShift{0};
};

}  // namespace tarnwick
