#include "registers/register_records.h"

#include <algorithm>
#include <new>

namespace tarnwick {

void TRegisterRecords::ReserveOne() {
    if (m_firstFree != NoRecord || m_end >> ChunkBits < m_chunks.size()) {
        return;
    }
    if (m_chunks.size() >= (TreeLink >> ChunkBits)) {
        throw std::bad_alloc();  // the numbers are used up
    }
    // Many doubtful layers stay small: their only chunk takes no more pages than it needs.
    m_chunks.emplace_back(!m_chunks.empty());
}

TRecordNumber TRegisterRecords::Take() noexcept {
    ++m_count;
    if (m_firstFree == NoRecord) {
        return m_end++;
    }
    const TRecordNumber record = m_firstFree;
    std::memcpy(&m_firstFree, Position(record).m_fields, sizeof m_firstFree);
    if (m_firstFree != NoRecord) {
        __builtin_prefetch(&Position(m_firstFree), 1);  // what the next insert will write
    }
    return record;
}

void TRegisterRecords::Free(TRecordNumber record) noexcept {
    --m_count;
    std::memcpy(Position(record).m_fields, &m_firstFree, sizeof m_firstFree);
    SetValues(record, {65535, 65535});
    SetLink(record, FreeLink);
    m_firstFree = record;
}

std::uint32_t TRegisterRecords::DropLastChunk() noexcept {
    const std::uint32_t chunk = ChunkCount() - 1;
    const std::uint32_t* links = m_chunks[chunk].Links();
    const auto slots = static_cast<std::ptrdiff_t>(ChunkValues(chunk).size());
    const auto freeSlots = std::count(links, links + slots, FreeLink);
    const auto removed = static_cast<std::uint32_t>(slots - freeSlots);
    m_chunks.pop_back();
    m_end = std::min(m_end, chunk << ChunkBits);
    m_count -= removed;
    m_firstFree = NoRecord;
    return removed;
}

std::span<const TRecordValues> TRegisterRecords::ChunkValues(std::uint32_t chunk) const noexcept {
    const TRecordNumber begin = chunk << ChunkBits;
    return {m_chunks[chunk].Values(), std::min(m_end - begin, ChunkSize)};
}

std::uint64_t TRegisterRecords::BytesUsed() const noexcept {
    return std::uint64_t{m_end} * (TChunk::Bytes / ChunkSize);
}

}  // namespace tarnwick
