#include "tables/register/table_store.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <span>
#include <string>

#include "base/chess_exception.h"
#include "base/little_endian.h"

namespace tarnwick {
namespace {

/// Pieces in which a table on disk is walked.
constexpr std::size_t PieceBytes = 0x40000;

unsigned ElementAt(const std::uint8_t* pElement, int elementSize) noexcept {
    if (elementSize == 2) {
        return LoadLittleEndian<std::uint16_t>(pElement);
    }
    return *pElement == 0xFF ? NotGenerated : *pElement;
}

/// Elements of which the first one has this index.
void TakeLargest(std::span<const std::uint8_t> bytes, int elementSize, std::uint64_t firstIndex,
                 std::size_t limit, TLargestValue& largest) {
    const auto size = static_cast<std::size_t>(elementSize);
    for (std::size_t i = 0; i < bytes.size() / size; ++i) {
        const unsigned value = ElementAt(&bytes[i * size], elementSize);
        const std::uint64_t index = firstIndex + i;
        if (value < largest.value || value == NotGenerated || index == 0) {
            continue;
        }
        if (value > largest.value) {
            largest.value = value;
            largest.indexes.clear();
        }
        if (largest.indexes.size() < limit) {
            largest.indexes.push_back(index);
        }
    }
}

}  // namespace

CMemoryStore::CMemoryStore(TOwner owner, int elementSize)
    : m_owner(std::move(owner)), m_pElements(nullptr), m_elementSize(elementSize) {
    if (const auto* pPages = std::get_if<CPageMemory>(&m_owner)) {
        m_pElements = static_cast<std::uint8_t*>(pPages->Data());
    } else if (auto* pVector = std::get_if<std::vector<std::uint8_t>>(&m_owner)) {
        m_pElements = pVector->data();
    } else {
        m_pElements = std::get<std::unique_ptr<std::uint8_t[]>>(m_owner).get();
    }
}

unsigned CMemoryStore::ValueAt(std::uint64_t index) const {
    if (m_elementSize == 1) {
        const std::uint8_t element =
            std::atomic_ref<std::uint8_t>(m_pElements[index]).load(std::memory_order_relaxed);
        return ElementAt(&element, 1);
    }
    const std::uint16_t element =
        std::atomic_ref<std::uint16_t>(TwoBytesAt(index)).load(std::memory_order_relaxed);
    return LoadLittleEndian<std::uint16_t>(reinterpret_cast<const std::uint8_t*>(&element));
}

void CMemoryStore::SetValueAt(std::uint64_t index, unsigned value) {
    if (value >= (m_elementSize == 1 ? 0xFFU : NotGenerated)) {
        throw ChessException("The elements of this table are too small for the value " +
                             std::to_string(value) + ".");
    }
    if (m_elementSize == 1) {
        std::atomic_ref<std::uint8_t>(m_pElements[index])
            .store(static_cast<std::uint8_t>(value), std::memory_order_relaxed);
        return;
    }
    std::uint16_t element = 0;
    StoreLittleEndian(reinterpret_cast<std::uint8_t*>(&element), static_cast<std::uint16_t>(value));
    std::atomic_ref<std::uint16_t>(TwoBytesAt(index)).store(element, std::memory_order_relaxed);
}

/// All owners' memory begins at a place for any type, so each pair of bytes is aligned.
std::uint16_t& CMemoryStore::TwoBytesAt(std::uint64_t index) const {
    return reinterpret_cast<std::uint16_t*>(m_pElements)[index];
}

TLargestValue CMemoryStore::FindLargest(std::uint64_t count, std::size_t limit) const {
    TLargestValue largest;
    TakeLargest({m_pElements, count * static_cast<std::uint64_t>(m_elementSize)}, m_elementSize, 0,
                limit, largest);
    return largest;
}

unsigned CDiskStore::ValueAt(std::uint64_t index) const {
    std::array<std::uint8_t, 2> element{};
    const auto size = static_cast<std::size_t>(m_elementSize);
    const bool bRead = m_file.ReadAt(index * size, std::span(element).first(size));
    return bRead ? ElementAt(element.data(), m_elementSize) : NotGenerated;
}

void CDiskStore::ReadValues(std::uint64_t first, std::span<std::uint16_t> values) const {
    const auto size = static_cast<std::size_t>(m_elementSize);
    std::vector<std::uint8_t> bytes(values.size() * size);
    const bool bRead = m_file.ReadAt(first * size, bytes);
    for (std::size_t i = 0; i < values.size(); ++i) {
        values[i] = static_cast<std::uint16_t>(bRead ? ElementAt(&bytes[i * size], m_elementSize)
                                                     : NotGenerated);
    }
}

void CDiskStore::SetValueAt(std::uint64_t, unsigned) {
    throw ChessException("A table on disk is changed in its file, not in the register.");
}

TLargestValue CDiskStore::FindLargest(std::uint64_t count, std::size_t limit) const {
    const auto size = static_cast<std::uint64_t>(m_elementSize);
    const std::uint64_t bytes = std::min(count * size, m_file.Size());
    std::vector<std::uint8_t> piece(PieceBytes);
    TLargestValue largest;
    for (std::uint64_t at = 0; at < bytes; at += PieceBytes) {
        const auto part = std::span(piece).first(
            static_cast<std::size_t>(std::min<std::uint64_t>(PieceBytes, bytes - at)));
        if (!m_file.ReadAt(at, part)) {
            break;
        }
        TakeLargest(part, m_elementSize, at / size, limit, largest);
    }
    return largest;
}

unsigned CPackedStore::ValueAt(std::uint64_t index) const {
    // The mark of a position without a value is 255 in packed bytes, too. Taken for a number it would be a
    // mate in 255 moves that nobody has proved, so it is told apart in every form of a table.
    try {
        const unsigned value = m_pBuffer->GetValue(index, false);
        return m_pBuffer->GetElementSize() == 1 && value == 0xFF ? NotGenerated : value;
    } catch (const ChessException&) {  // A damaged block, or a disk that fails.
        return NotGenerated;
    }
}

void CPackedStore::SetValueAt(std::uint64_t index, unsigned value) {
    if (!m_pBuffer->Update(index, static_cast<std::uint16_t>(value))) {
        throw ChessException(
            "Error (no mem.) in call to CRandomAccessPackedBufferBase::Update in "
            "TGlobalRegister::SetMateByIndex()");
    }
}

TLargestValue CPackedStore::FindLargest(std::uint64_t, std::size_t limit) const {
    TLargestValue largest;
    largest.value = m_pBuffer->FindMaxValue(largest.indexes, limit);
    return largest;
}

}  // namespace tarnwick
