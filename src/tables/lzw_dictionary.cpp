#include "tables/lzw_dictionary.h"

namespace tarnwick {
namespace {

/// Small values that stand before R in the seeded dictionaries: 1 to this one.
constexpr std::uint32_t SeededValues = 20;
constexpr std::size_t LongestSeededRun = 128;

}  // namespace

// --- The initial entries ---

template <typename TElement>
const CLzwSeeds<TElement>& CLzwSeeds<TElement>::Of(bool bPlain) {
    static const CLzwSeeds plain(true);
    static const CLzwSeeds seeded(false);
    return bPlain ? plain : seeded;
}

template <typename TElement>
CLzwSeeds<TElement>::CLzwSeeds(bool bPlain) {
    if (!bPlain) {
        AddSeeded();
        return;
    }
    constexpr std::uint32_t Values = sizeof(TElement) == 1 ? 256 : TwoByteValues;
    for (std::uint32_t value = 0; value < Values; ++value) {
        Add(1, static_cast<TElement>(value), 0);
    }
}

/// In the order of the strings, which is that of the codes. Two-byte values compare by their wrapped
/// difference, so 65535 is -1 and its runs come first.
template <typename TElement>
void CLzwSeeds<TElement>::AddSeeded() {
    constexpr bool bBytes = sizeof(TElement) == 1;
    if (!bBytes) {
        AddRuns(1);
    }
    for (std::uint32_t value = 0; value < (bBytes ? 256 : TwoByteValues); ++value) {
        Add(1, static_cast<TElement>(value), 0);
        if (value >= 1 && value <= SeededValues) {
            Add(2, static_cast<TElement>(value), MarkOfUnknown<TElement>);
        }
    }
    if (bBytes) {
        AddRuns(2);  // the run of one is the value 255 itself
    }
}

template <typename TElement>
void CLzwSeeds<TElement>::AddRuns(std::size_t shortest) {
    for (std::size_t length = shortest; length <= LongestSeededRun; ++length) {
        Add(length, MarkOfUnknown<TElement>, MarkOfUnknown<TElement>);
    }
}

template <typename TElement>
void CLzwSeeds<TElement>::Add(std::size_t length, TElement first, TElement rest) {
    m_pool.push_back(first);
    m_pool.insert(m_pool.end(), length - 1, rest);
    m_starts.push_back(static_cast<std::uint32_t>(m_pool.size()));
    m_width.Grow(Count());
}

// --- The encoder's dictionary ---

template <typename TElement, std::uint32_t BlockSize>
CLzwEncoderDictionary<TElement, BlockSize>::CLzwEncoderDictionary(bool bPlain) {
    const auto& seeds = CLzwSeeds<TElement>::Of(bPlain);
    for (std::uint32_t code = 0; code < seeds.Count(); ++code) {
        const std::span<const TElement> entry = seeds.Entry(code);
        std::uint32_t prefix = NoCode;
        for (const TElement element : entry.first(entry.size() - 1)) {
            prefix = Find(prefix, element);
        }
        Add(prefix, entry.back(), static_cast<std::uint32_t>(entry.size()));
    }
    m_initial = m_now;
}

template <typename TElement, std::uint32_t BlockSize>
void CLzwEncoderDictionary<TElement, BlockSize>::Reset() {
    m_now = m_initial;
}

/// The slot of the key, or the empty one where it would stand. Half of the slots stay empty.
template <typename TElement, std::uint32_t BlockSize>
std::uint32_t CLzwEncoderDictionary<TElement, BlockSize>::SlotOf(std::uint32_t key) const noexcept {
    std::uint32_t slot = (key * 0x9E3779B1U >> 16) % Slots;
    while (m_now.slots[slot].key != key && m_now.slots[slot].key != EmptyKey) {
        slot = (slot + 1) % Slots;
    }
    return slot;
}

template <typename TElement, std::uint32_t BlockSize>
std::uint32_t CLzwEncoderDictionary<TElement, BlockSize>::Find(std::uint32_t prefix,
                                                               TElement element) const noexcept {
    return m_now.slots[SlotOf(prefix << 16 | element)].code;
}

template <typename TElement, std::uint32_t BlockSize>
void CLzwEncoderDictionary<TElement, BlockSize>::Add(std::uint32_t prefix, TElement element,
                                                     std::uint32_t length) noexcept {
    if (!TLimits::EncoderMayAdd(m_now.count, m_now.used, length)) {
        return;
    }
    const std::uint32_t key = prefix << 16 | element;
    m_now.slots[SlotOf(key)] = {key, m_now.count};
    m_now.used += TLimits::EntryHead + length;
    ++m_now.count;
    m_now.width.Grow(m_now.count);
}

template class CLzwSeeds<std::uint8_t>;
template class CLzwSeeds<std::uint16_t>;
template class CLzwEncoderDictionary<std::uint8_t, 0x2000>;
template class CLzwEncoderDictionary<std::uint16_t, 0x2000>;
template class CLzwEncoderDictionary<std::uint8_t, 0x4000>;
template class CLzwEncoderDictionary<std::uint16_t, 0x4000>;

}  // namespace tarnwick
