#pragma once
// The values of one table, wherever they are kept.

#include <cstdint>
#include <span>

namespace tarnwick {

/// The stored value of a position that has not been generated.
inline constexpr unsigned NotGenerated = 0xFFFF;

class CTableValues {
  public:
    CTableValues() = default;
    CTableValues(const CTableValues&) = delete;
    CTableValues& operator=(const CTableValues&) = delete;
    virtual ~CTableValues() = default;

    /// Moves in which White mates, 0 for no mate, NotGenerated. The index is below the type's count and names
    /// a position. Any thread.
    virtual unsigned ValueAt(std::uint64_t index) const = 0;
    /// Those of consecutive indices from `first` on, which may name no positions, in one go.
    virtual void ReadValues(std::uint64_t first, std::span<std::uint16_t> values) const {
        for (std::uint16_t& value : values) {
            value = static_cast<std::uint16_t>(ValueAt(first++));
        }
    }
    /// Bytes of the greatest value: 1 or 2.
    virtual int ElementSize() const { return 2; }
};

}  // namespace tarnwick
