#pragma once

// A file that is read at any place by several threads at once.
//
// Tables are far larger than memory, and one element is wanted here and another there. Each read says its own
// place, so threads share one open file without a lock. A mapping would be as fast, but a file that
// somebody cuts meanwhile would end the whole program; here the read fails and its caller goes on.

#include <cstdint>
#include <filesystem>
#include <span>
#include <utility>

namespace tarnwick {

class CRandomAccessFile {
  public:
    CRandomAccessFile() = default;  ///< No file: IsOpen() is false, every read fails.
    /// Opens a plain file. IsOpen() is false where there is none or it may not be read; never waits, as
    /// a pipe in the file's place would have it.
    explicit CRandomAccessFile(const std::filesystem::path& path) noexcept;
    CRandomAccessFile(CRandomAccessFile&& other) noexcept
        : m_descriptor(std::exchange(other.m_descriptor, -1)),
          m_size(std::exchange(other.m_size, 0)) {}
    CRandomAccessFile& operator=(CRandomAccessFile&& other) noexcept {
        std::swap(m_descriptor, other.m_descriptor);
        std::swap(m_size, other.m_size);
        return *this;
    }
    ~CRandomAccessFile();

    [[nodiscard]] bool IsOpen() const noexcept { return m_descriptor >= 0; }
    /// Bytes, when the file was opened.
    [[nodiscard]] std::uint64_t Size() const noexcept { return m_size; }

    /// Fills all bytes from this offset on; false if the file has fewer or the disk fails, the bytes then being
    /// anything. Any thread.
    bool ReadAt(std::uint64_t offset, std::span<std::uint8_t> bytes) const noexcept;

  private:
    int m_descriptor = -1;
    std::uint64_t m_size = 0;
};

}  // namespace tarnwick
