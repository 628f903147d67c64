#pragma once

// Bytes that are read from front to back: a file, or what an unpacker makes of one.
//
// Readers of large files work on this, so that they neither hold a file of gigabytes in memory
// nor care whether it is packed. One thread at a time.

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <span>
#include <string>

namespace tarnwick {

class TByteSource {
  public:
    virtual ~TByteSource() = default;
    TByteSource(const TByteSource&) = delete;
    TByteSource& operator=(const TByteSource&) = delete;

    /// Fills the bytes from the front and returns how many came; 0 only at the end (bytes is not empty).
    /// Throws ChessException naming file and offset if what comes next cannot be read. All that was
    /// whole before the fault has been returned by then.
    virtual std::size_t Read(std::span<std::uint8_t> bytes) = 0;

  protected:
    TByteSource() = default;
};

/// Reads until the bytes are full or the source ends; returns how many came. Throws as Read, and then
/// the bytes before the fault are lost to the caller.
std::size_t ReadFully(TByteSource& source, std::span<std::uint8_t> bytes);

/// A plain file.
class CFileSource final : public TByteSource {
  public:
    /// Throws ChessException naming the file if it cannot be opened or is no plain file.
    explicit CFileSource(const std::filesystem::path& path);

    std::size_t Read(std::span<std::uint8_t> bytes) override;
    /// Goes on from this offset, at most Size().
    void Seek(std::uint64_t offset);

    [[nodiscard]] std::uint64_t Size() const { return m_size; }
    [[nodiscard]] std::uint64_t Offset() const { return m_offset; }
    /// The file's name for messages, UTF-8.
    [[nodiscard]] const std::string& Name() const { return m_name; }

  private:
    std::ifstream m_file;
    std::string m_name;
    std::uint64_t m_size = 0;
    std::uint64_t m_offset = 0;
};

}  // namespace tarnwick
