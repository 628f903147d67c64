#pragma once
// Reading the compressed forms of a table. The flags by which a type counts its indices stand in the table's
// first element, behind the compression: those under which the sizes agree are the right ones.

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <vector>

#include "base/user_dialog.h"

#include "tables/random_access_packed_buffer.h"
#include "tables/register/global_register.h"

namespace tarnwick {

/// Bytes of the type's table as its flags are now.
std::uint64_t TableBytes(const TGlobalRegister& subregister);

/// The unpacked bytes of an ".lz4" file, and the register with the flags that belong to them. Nothing if the file
/// is damaged or of another type. Throws std::bad_alloc.
std::optional<std::vector<std::uint8_t>> ReadLz4Table(TGlobalRegister& subregister,
                                                      const std::filesystem::path& path);

/// A ".packed.lzw" file, open for reading, and the register with its flags; null if it is damaged or of another type.
/// `quota`: bytes for all tables; a file beyond a quarter of it stays on disk in any case.
std::unique_ptr<RandomAccessLZWBuffer::CRandomAccessPackedBufferBase> OpenPackedFor(
    TGlobalRegister& subregister, const std::filesystem::path& path, bool bOnDisk,
    std::uint64_t quota, TUserDialog& dialog);

}  // namespace tarnwick
