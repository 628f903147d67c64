// The decoder decides how fast a value comes out of a packed table, so it neither copies a dictionary for
// each block nor builds strings: an entry of the dictionary is a place in the output, and adding one is two
// stores. The initial entries stand before the output in the same array, so that a copy need not know
// where its source is.

#include "tables/lzw_block.h"

#include <algorithm>
#include <cstring>

#include "base/little_endian.h"

namespace tarnwick {
namespace {

/// A copy moves so many bytes at a time, and so writes up to so many beyond its end.
constexpr std::size_t CopyStep = 16;

/// Copies in steps. The source may end with the first element of the target, which is why the last element is
/// copied again, after the target's first one is there.
template <typename TElement>
void CopyString(const TElement* from, TElement* to, std::size_t length) {
    constexpr std::size_t Step = CopyStep / sizeof(TElement);
    for (std::size_t i = 0; i < length; i += Step) {
        std::uint8_t step[CopyStep];
        std::memcpy(step, from + i, CopyStep);
        std::memcpy(to + i, step, CopyStep);
    }
    to[length - 1] = from[length - 1];
}

}  // namespace

// --- Packing ---

template <typename TElement, std::uint32_t BlockSize>
bool CLzwBlockEncoder<TElement, BlockSize>::Append(std::span<const TElement> elements,
                                                   std::vector<std::uint8_t>& packed) {
    constexpr std::uint32_t NoCode = CLzwEncoderDictionary<TElement, BlockSize>::NoCode;
    m_dictionary.Reset();
    m_bits = 0;
    m_bitCount = 0;
    std::uint32_t code = NoCode;
    std::uint32_t length = 0;
    for (const TElement element : elements) {
        const std::uint32_t longer = m_dictionary.Find(code, element);
        if (longer != NoCode) {
            code = longer;
            ++length;
            continue;
        }
        if (code == NoCode) {
            return false;
        }
        WriteCode(code, packed);
        m_dictionary.Add(code, element, length + 1);
        code = m_dictionary.Find(NoCode, element);
        length = 1;
        if (code == NoCode) {
            return false;
        }
    }
    if (code != NoCode) {
        WriteCode(code, packed);
    }
    Flush(packed);
    return true;
}

template <typename TElement, std::uint32_t BlockSize>
void CLzwBlockEncoder<TElement, BlockSize>::WriteCode(std::uint32_t code,
                                                      std::vector<std::uint8_t>& packed) {
    m_bits |= std::uint64_t{code} << m_bitCount;
    m_bitCount += m_dictionary.Width();
    while (m_bitCount >= 8) {
        packed.push_back(static_cast<std::uint8_t>(m_bits));
        m_bits >>= 8;
        m_bitCount -= 8;
    }
}

template <typename TElement, std::uint32_t BlockSize>
void CLzwBlockEncoder<TElement, BlockSize>::Flush(std::vector<std::uint8_t>& packed) {
    if (m_bitCount > 0) {
        packed.push_back(static_cast<std::uint8_t>(m_bits));
    }
}

// --- Unpacking ---

template <typename TElement, std::uint32_t BlockSize>
CLzwBlockDecoder<TElement, BlockSize>::CLzwBlockDecoder(bool bPlainDictionary)
    : m_entries(TLimits::MostEntries) {
    const auto& seeds = CLzwSeeds<TElement>::Of(bPlainDictionary);
    m_outputAt = static_cast<std::uint32_t>(seeds.Pool().size());
    m_elements.resize(m_outputAt + BlockSize + 2 * CopyStep);
    std::ranges::copy(seeds.Pool(), m_elements.begin());
    for (std::uint32_t code = 0; code < seeds.Count(); ++code) {
        const std::span<const TElement> entry = seeds.Entry(code);
        m_entries[code] = {static_cast<std::uint16_t>(entry.data() - seeds.Pool().data()),
                           static_cast<std::uint16_t>(entry.size())};
    }
    m_initial.count = seeds.Count();
    m_initial.used = m_outputAt + seeds.Count() * TLimits::EntryHead;
    m_initial.width = seeds.Width();
    m_state = m_initial;
}

template <typename TElement, std::uint32_t BlockSize>
void CLzwBlockDecoder<TElement, BlockSize>::Start(std::span<const std::uint8_t> packed,
                                                  std::uint32_t elements) noexcept {
    m_packed = packed;
    m_blockElements = std::min(elements, BlockSize);
    m_state = m_initial;
}

template <typename TElement, std::uint32_t BlockSize>
bool CLzwBlockDecoder<TElement, BlockSize>::DecodeTo(std::uint32_t want) noexcept {
    want = std::min(want, m_blockElements);
    TState state = m_state;  // in registers, where members would be stored each time
    bool bSound = true;
    while (bSound && state.produced < want) {
        bSound = DecodeCode(state);
    }
    m_state = state;
    return bSound;
}

/// One code. False, and no change of the output, if it cannot be.
template <typename TElement, std::uint32_t BlockSize>
inline bool CLzwBlockDecoder<TElement, BlockSize>::DecodeCode(TState& state) noexcept {
    const bool bFirst = state.previous.length == 0;
    // The encoder has added an entry already when it writes a code; this side adds it with the code.
    const std::uint32_t bits =
        state.width.bits + (!bFirst && state.count + 1 == state.width.threshold ? 1 : 0);
    if (state.bit + bits > m_packed.size() * 8) {
        return false;
    }
    const auto word = LoadLittleEndian<std::uint32_t>(m_packed.data() + state.bit / 8);
    const std::uint32_t code = (word >> (state.bit % 8)) & ((1U << bits) - 1);

    const std::uint32_t newLength = state.previous.length + 1U;
    if (!bFirst && TLimits::DecoderMayAdd(state.count, state.used, newLength)) {
        m_entries[state.count] = {state.previous.at, static_cast<std::uint16_t>(newLength)};
        state.used += TLimits::EntryHead + newLength;
        ++state.count;
        state.width.Grow(state.count);
    }
    if (code >= state.count) {
        return false;
    }
    const TEntry entry = m_entries[code];
    if (entry.length > m_blockElements - state.produced) {
        return false;
    }
    const std::uint32_t to = m_outputAt + state.produced;
    CopyString(&m_elements[entry.at], &m_elements[to], entry.length);
    state.previous = {static_cast<std::uint16_t>(to), entry.length};
    state.produced += entry.length;
    state.bit += bits;
    return true;
}

template class CLzwBlockEncoder<std::uint8_t, 0x2000>;
template class CLzwBlockEncoder<std::uint16_t, 0x2000>;
template class CLzwBlockEncoder<std::uint8_t, 0x4000>;
template class CLzwBlockEncoder<std::uint16_t, 0x4000>;
template class CLzwBlockDecoder<std::uint8_t, 0x2000>;
template class CLzwBlockDecoder<std::uint16_t, 0x2000>;
template class CLzwBlockDecoder<std::uint8_t, 0x4000>;
template class CLzwBlockDecoder<std::uint16_t, 0x4000>;

}  // namespace tarnwick
