#pragma once
// The values of one table, wherever they are kept.

#include <cstdint>

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
};

}  // namespace tarnwick
