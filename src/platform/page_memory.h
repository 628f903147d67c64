#pragma once

// Large blocks of memory straight from the system: they come cleared, cost nothing before they are
// touched, and go back to the system when they are freed, so that the shown size of the program falls.

#include <cstddef>
#include <utility>

namespace tarnwick {

class CPageMemory {
  public:
    CPageMemory() = default;  ///< No memory: Data() is null.
    /// Throws std::bad_alloc. bHugePages asks for pages of 2 MiB, which make scattered access over more
    /// than a few MiB about half as dear; memory then counts in such steps.
    CPageMemory(std::size_t bytes, bool bHugePages);
    CPageMemory(CPageMemory&& other) noexcept
        : m_pData(std::exchange(other.m_pData, nullptr)), m_size(std::exchange(other.m_size, 0)) {}
    CPageMemory& operator=(CPageMemory&& other) noexcept {
        std::swap(m_pData, other.m_pData);
        std::swap(m_size, other.m_size);
        return *this;
    }
    ~CPageMemory();

    /// All zero again; what was touched goes back to the system.
    void Reset() noexcept;

    /// Aligned to a page at least, zero where nothing was written.
    void* Data() const noexcept { return m_pData; }
    std::size_t Size() const noexcept { return m_size; }  ///< In bytes.

  private:
    void* m_pData = nullptr;
    std::size_t m_size = 0;
};

}  // namespace tarnwick
