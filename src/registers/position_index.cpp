#include "registers/position_index.h"

#include <algorithm>
#include <cassert>
#include <new>

namespace tarnwick {
namespace {

constexpr std::uint32_t FirstLineCount = 64;  // one page
constexpr std::size_t HugePagesFrom = std::size_t{4} << 20;

}  // namespace

void CPositionIndex::ReserveOne() {
    if (m_lineCount == 0) {
        Resize(FirstLineCount);
    } else if (m_entryCount >= std::uint64_t{m_lineCount} * LineSize * 7 / 10) {
        Resize(m_lineCount * 2);
    }
}

void CPositionIndex::Resize(std::uint32_t lineCount) {
    if (lineCount == 0) {
        throw std::bad_alloc();  // 2^31 lines have been outgrown
    }
    const std::size_t bytes = std::size_t{lineCount} * sizeof(TLine);
    CPageMemory old(bytes, bytes >= HugePagesFrom);
    std::swap(m_memory, old);
    const std::uint32_t oldLineCount = std::exchange(m_lineCount, lineCount);
    m_shift = 32 - static_cast<std::uint32_t>(std::countr_zero(lineCount));
    const auto* oldLines = static_cast<const TLine*>(old.Data());
    for (std::uint32_t line = 0; line < oldLineCount; ++line) {
        for (std::uint32_t i = 0; i < LineSize && oldLines[line].m_number[i] != 0; ++i) {
            Put(oldLines[line].m_hash[i], oldLines[line].m_number[i]);
        }
    }
    // Prefetch may meet the new shift with the old lines: then it fetches a line in vain.
    m_prefetchShift.store(m_shift, std::memory_order_relaxed);
    m_pPrefetchLines.store(Lines(), std::memory_order_relaxed);
}

void CPositionIndex::Put(std::uint32_t hash, std::uint32_t number) noexcept {
    std::uint32_t line = HomeOf(hash);
    while (Lines()[line].IsFull()) {
        line = Next(line);
    }
    TLine& target = Lines()[line];
    std::uint32_t slot = 0;
    while (target.m_number[slot] != 0) {
        ++slot;
    }
    target.m_hash[slot] = hash;
    target.m_number[slot] = number;
}

void CPositionIndex::Insert(TPositionHash hash, TRecordNumber record) noexcept {
    assert(m_lineCount != 0);
    Put(hash.m_value, record + 1);
    ++m_entryCount;
}

/// Whether an entry that now stands in the line `now` could also stand in `line`, which lies before it
/// on its way from home.
bool CPositionIndex::MayStandIn(std::uint32_t line, std::uint32_t hash,
                                std::uint32_t now) const noexcept {
    const std::uint32_t mask = m_lineCount - 1;
    return ((now - HomeOf(hash)) & mask) >= ((now - line) & mask);
}

/// Empties a slot and closes the gap with the last entry of the line.
void CPositionIndex::TakeOut(std::uint32_t line, std::uint32_t slot) noexcept {
    TLine& target = Lines()[line];
    std::uint32_t last = LineSize - 1;
    while (target.m_number[last] == 0) {
        --last;
    }
    target.m_hash[slot] = target.m_hash[last];
    target.m_number[slot] = target.m_number[last];
    target.m_hash[last] = 0;
    target.m_number[last] = 0;
}

void CPositionIndex::Erase(TPositionHash hash, TRecordNumber record) noexcept {
    std::uint32_t line = HomeOf(hash.m_value);
    std::uint32_t slot = 0;
    while (Lines()[line].m_number[slot] != record + 1) {
        if (++slot == LineSize) {
            slot = 0;
            line = Next(line);
        }
    }
    --m_entryCount;
    bool bWasFull = Lines()[line].IsFull();
    TakeOut(line, slot);
    // A line that is no longer full ends lookups, so an entry further on that passed it moves into it.
    std::uint32_t gap = line;
    for (std::uint32_t next = Next(line); bWasFull; next = Next(next)) {
        TLine& later = Lines()[next];
        bWasFull = later.IsFull();
        for (std::uint32_t i = 0; i < LineSize && later.m_number[i] != 0; ++i) {
            if (MayStandIn(gap, later.m_hash[i], next)) {
                TLine& target = Lines()[gap];
                target.m_hash[LineSize - 1] = later.m_hash[i];
                target.m_number[LineSize - 1] = later.m_number[i];
                TakeOut(next, i);
                gap = next;
                break;
            }
        }
    }
}

void CPositionIndex::Clear() noexcept {
    m_pPrefetchLines.store(nullptr, std::memory_order_relaxed);
    m_memory = CPageMemory();
    m_lineCount = 0;
    m_entryCount = 0;
}

}  // namespace tarnwick
