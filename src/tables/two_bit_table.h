#pragma once

// Tables of two bits a position, for types of six men and more: 0 no, 1 to 3 as the generator meant them.
//
// Byte i / 4 holds index i in its bits (i % 4) * 2 and the next. Such a file is a quarter of the type's count
// long, which is how it is known; beside it stands a details file, whose first byte has the table's
// flags. A table without details is of no use to anybody and is refused.

#include <cstdint>
#include <filesystem>
#include <memory>
#include <mutex>
#include <optional>
#include <vector>

namespace tarnwick {

class CTwoBitTable {
  public:
    /// Reads both files whole. Throws ChessException naming the file that is missing, empty or of a wrong
    /// size, and std::bad_alloc.
    CTwoBitTable(const std::filesystem::path& path, const std::filesystem::path& details,
                 std::uint64_t indexCount);

    /// 0 to 3. The index is below the count of the constructor. Any thread, except during Add.
    [[nodiscard]] std::uint8_t ValueAt(std::uint64_t index) const noexcept {
        return m_bytes[index / 4] >> (index % 4 * 2) & 3;
    }
    /// Sets the value's bits in addition to those that are set; for verification, by several threads.
    void Add(std::uint64_t index, std::uint8_t value);

    /// Of the element that the details are about, in bytes: 1 or 2.
    [[nodiscard]] int ElementSize() const noexcept { return m_elementSize; }

  private:
    std::vector<std::uint8_t> m_bytes;
    int m_elementSize = 1;
    std::mutex m_mutex;
};

}  // namespace tarnwick
