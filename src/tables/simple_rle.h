#pragma once

// The simple form of a table of bytes (".packed.lz4", as one LZ4e stream): runs, looked up without a dictionary.
//
//   offset  bytes  content
//        0      4  bytes of all this
//        4      4  number of groups G, each of 2048 elements but for the last
//        8  4 * G  where each group starts in the stream
//   8 + 4G      .  the stream
//
// In the stream a byte up to 127, or 255, is one element; a byte b from 128 to 254 behind it repeats it, so
// that the run has b - 126 elements in all. Runs end with their group. So no value from 128 to 254 can be
// written. Bytes of the stream belong to one group up to the next one's start.

#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "base/user_dialog.h"
#include "platform/random_access_file.h"

namespace tarnwick {

/// The form of a table; nothing if it holds a value from 128 to 254, or takes more than 32 bits can tell.
std::optional<std::vector<std::uint8_t>> MakeSimpleRle(std::span<const std::uint8_t> table);

/// A table in this form. Immutable: any thread.
class CSimpleRle {
  public:
    /// Takes the bytes; nothing if sizes and groups do not fit together. Values of a damaged stream show
    /// only when they are asked for.
    static std::optional<CSimpleRle> FromBytes(std::vector<std::uint8_t> bytes);

    /// The stored element; nothing if the table ends before it.
    [[nodiscard]] std::optional<std::uint8_t> ValueAt(std::uint64_t index) const noexcept;
    /// Plies to mate: 0 for no mate, 2n - 1 for a stored n, also for the mark 255.
    [[nodiscard]] std::optional<std::uint16_t> PliesAt(std::uint64_t index) const noexcept;

    [[nodiscard]] std::size_t SizeInBytes() const noexcept { return m_bytes.size(); }

  private:
    explicit CSimpleRle(std::vector<std::uint8_t> bytes) : m_bytes(std::move(bytes)) {}
    [[nodiscard]] std::uint32_t Groups() const noexcept;
    [[nodiscard]] std::uint32_t GroupStart(std::uint32_t group) const noexcept;

    std::vector<std::uint8_t> m_bytes;
};

/// Packs a table that is in memory into `path`, after asking the user whether the saving is worth it. False if the
/// table cannot be written in this form or the user says no; a failure of the disk is told, and false too.
bool PackSimple(std::span<const std::uint8_t> table, const std::filesystem::path& path,
                TUserDialog& dialog);
/// The same for the first elementCount bytes of a file, which come into memory for it; the user is told if they do
/// not fit or cannot be read.
bool PackSimple(const CRandomAccessFile& file, std::uint64_t elementCount,
                const std::filesystem::path& path, TUserDialog& dialog);

}  // namespace tarnwick
