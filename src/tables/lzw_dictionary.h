#pragma once

// The dictionaries of the packed tables: LZW (Welch 1984) with codes that widen as entries come.
//
// Every block of a table starts with the same initial entries, so that each can be unpacked alone. The plain
// ones are the single elements. The seeded ones, of older files, also have what tables of few men are
// full of: R, the mark of positions that were never computed (255 or 65535), behind a small value and
// repeated.
//
// Both sides add an entry for each code, in the same order, so codes need no dictionary in the file.

#include <cstdint>
#include <limits>
#include <span>
#include <vector>

namespace tarnwick {

/// Elements of a table: one byte or two.
template <typename TElement>
inline constexpr TElement MarkOfUnknown = std::numeric_limits<TElement>::max();

/// Two-byte tables hold the values below and MarkOfUnknown; no other has a code.
inline constexpr std::uint32_t TwoByteValues = 1024;

/// When a dictionary is full. The numbers belong to the file format: a side that went on adding would give
/// its next code another width.
template <typename TElement, std::uint32_t BlockSize>
struct TLzwLimits {
    static constexpr std::uint32_t MostEntries = BlockSize / 4;
    /// Entries count as if they were stored in one piece: a head, then the elements. The unit is an element.
    static constexpr std::uint32_t StoreUnits = BlockSize * 4 - 1;
    static constexpr std::uint32_t EntryHead = sizeof(TElement) == 1 ? 3 : 2;
    /// Lengths of byte strings stand in one byte.
    static constexpr std::uint32_t LongestEntry =
        sizeof(TElement) == 1 ? 255 : std::numeric_limits<std::uint32_t>::max();

    static constexpr bool EncoderMayAdd(std::uint32_t count, std::uint32_t used,
                                        std::uint32_t length) noexcept {
        const std::uint32_t limit = StoreUnits - (sizeof(TElement) == 1 ? 3 : 2);
        return count < MostEntries && used + length <= limit && length <= LongestEntry;
    }
    /// Two units more than the encoder has; no block has so many elements that it could show.
    static constexpr bool DecoderMayAdd(std::uint32_t count, std::uint32_t used,
                                        std::uint32_t length) noexcept {
        return count < MostEntries && used + length < StoreUnits && length <= LongestEntry;
    }
};

/// How wide codes are: the smallest width with 2^width greater than the number of entries.
struct TCodeWidth {
    std::uint32_t bits = 0;
    std::uint32_t threshold = 1;  ///< Number of entries at which the width grows next.

    /// To be called after each added entry.
    constexpr void Grow(std::uint32_t count) noexcept {
        if (count == threshold) {
            ++bits;
            threshold = 1U << bits;
        }
    }
};

/// The initial entries by code, the same for all blocks. Immutable: any thread.
template <typename TElement>
class CLzwSeeds {
  public:
    static const CLzwSeeds& Of(bool bPlain);

    [[nodiscard]] std::uint32_t Count() const {
        return static_cast<std::uint32_t>(m_starts.size()) - 1;
    }
    [[nodiscard]] std::span<const TElement> Entry(std::uint32_t code) const {
        return std::span(m_pool).subspan(m_starts[code], m_starts[code + 1] - m_starts[code]);
    }
    /// All entries one behind the other.
    [[nodiscard]] std::span<const TElement> Pool() const { return m_pool; }
    [[nodiscard]] TCodeWidth Width() const { return m_width; }

  private:
    explicit CLzwSeeds(bool bPlain);
    void AddSeeded();
    void AddRuns(std::size_t shortest);
    void Add(std::size_t length, TElement first, TElement rest);

    std::vector<TElement> m_pool;
    std::vector<std::uint32_t> m_starts{0};  ///< By code, and the end of the last.
    TCodeWidth m_width;
};

/// The growing dictionary of the encoder: from an entry and one element more to the longer entry.
///
/// Every beginning of an entry is an entry too, so a string need never be stored or compared.
template <typename TElement, std::uint32_t BlockSize>
class CLzwEncoderDictionary {
  public:
    static constexpr std::uint32_t NoCode = 0xFFFE;

    explicit CLzwEncoderDictionary(bool bPlain);

    /// Back to the initial entries.
    void Reset();
    /// The code of the entry `prefix` with the element behind it, or NoCode. NoCode as prefix is the
    /// empty string.
    [[nodiscard]] std::uint32_t Find(std::uint32_t prefix, TElement element) const noexcept;
    /// Adds what Find did not find, unless the dictionary is full; length is that of the new entry.
    void Add(std::uint32_t prefix, TElement element, std::uint32_t length) noexcept;
    /// Of the next code, in bits.
    [[nodiscard]] std::uint32_t Width() const noexcept { return m_now.width.bits; }

  private:
    using TLimits = TLzwLimits<TElement, BlockSize>;
    static constexpr std::uint32_t Slots = 2 * TLimits::MostEntries;
    static constexpr std::uint32_t EmptyKey = 0xFFFFFFFF;

    struct TSlot {
        std::uint32_t key = EmptyKey;
        std::uint32_t code = NoCode;
    };
    struct TState {
        std::vector<TSlot> slots = std::vector<TSlot>(Slots);
        std::uint32_t count = 0;
        std::uint32_t used = 0;
        TCodeWidth width;
    };

    [[nodiscard]] std::uint32_t SlotOf(std::uint32_t key) const noexcept;

    TState m_now;
    TState m_initial;
};

}  // namespace tarnwick
