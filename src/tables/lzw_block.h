#pragma once

// One block of a packed table: packing, and unpacking from its front.
//
// Codes stand from bit 0 of byte 0 upwards, each as wide as the dictionary is at that moment; a block ends
// with a whole byte. One thread at a time for each object; both are too large for the stack.

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "tables/lzw_dictionary.h"

namespace tarnwick {

template <typename TElement, std::uint32_t BlockSize>
class CLzwBlockEncoder {
  public:
    explicit CLzwBlockEncoder(bool bPlainDictionary) : m_dictionary(bPlainDictionary) {}

    /// Appends the packed block of at most BlockSize elements. False if an element has no code: a value of
    /// 1024 or more in two-byte tables, where MarkOfUnknown has one in the seeded dictionary alone.
    bool Append(std::span<const TElement> elements, std::vector<std::uint8_t>& packed);

  private:
    void WriteCode(std::uint32_t code, std::vector<std::uint8_t>& packed);
    void Flush(std::vector<std::uint8_t>& packed);

    CLzwEncoderDictionary<TElement, BlockSize> m_dictionary;
    std::uint64_t m_bits = 0;  ///< Of codes that make no whole byte yet.
    std::uint32_t m_bitCount = 0;
};

/// Unpacks a block as far as it is asked, and goes on from there when it is asked for more.
template <typename TElement, std::uint32_t BlockSize>
class CLzwBlockDecoder {
  public:
    /// Bytes behind a packed block that must be readable: codes are loaded four bytes at a time.
    static constexpr std::size_t Slack = 4;
    /// Bytes that the block of most codes has. What stands behind them in a longer block is never read.
    static constexpr std::size_t MostPackedBytes = (std::size_t{BlockSize} * 13 + 7) / 8;

    explicit CLzwBlockDecoder(bool bPlainDictionary);

    /// Begins the block of so many elements, at most BlockSize. The bytes stay the caller's and must live
    /// until the last DecodeTo, with Slack bytes behind them.
    void Start(std::span<const std::uint8_t> packed, std::uint32_t elements) noexcept;

    /// Makes the first `want` elements available; a want beyond the block's elements is cut. False if the block is
    /// damaged: a code beyond the dictionary, too few bits, or a string beyond the last element. Some
    /// elements beyond the wanted one may be there too.
    bool DecodeTo(std::uint32_t want) noexcept;

    /// Elements that are available so far, from the block's first on.
    [[nodiscard]] std::span<const TElement> Decoded() const noexcept {
        return std::span(m_elements).subspan(m_outputAt, m_state.produced);
    }

  private:
    using TLimits = TLzwLimits<TElement, BlockSize>;

    /// A string as a place in m_elements: a new entry is what the last code gave and one element more, and both
    /// stand there in the output already.
    struct TEntry {
        std::uint16_t at = 0;
        std::uint16_t length = 0;
    };
    struct TState {
        std::uint32_t count = 0;  ///< Entries.
        std::uint32_t used = 0;   ///< Units of the store.
        TCodeWidth width;
        TEntry previous;             ///< What the last code gave; length 0 before the first.
        std::uint32_t produced = 0;  ///< Elements of the output.
        std::size_t bit = 0;         ///< Of the next code.
    };

    bool DecodeCode(TState& state) noexcept;

    std::vector<TElement> m_elements;  ///< The initial entries, then the output.
    std::uint32_t m_outputAt;
    std::vector<TEntry> m_entries;
    TState m_initial;
    TState m_state;
    std::span<const std::uint8_t> m_packed;
    std::uint32_t m_blockElements = 0;
};

}  // namespace tarnwick
