#pragma once

// Where the files of a type lie, what they are called, and whether an unpacked one can be what its name says.
//
// A type's file stands in PROGRAM/Precalc, or in the second place that the options may name, there in the
// sub-folder of its number of men ("4pieces+pawns", "4pieces-pawns") if that exists. Types of fixed men have
// their folder CustomPrecalc. Lower-case letters have a "_" behind them (Qr_.precalc), so that Qr and QR
// stay apart where the file system takes them for the same.

#include <cstdint>
#include <filesystem>
#include <mutex>
#include <optional>
#include <set>
#include <string>
#include <string_view>

#include "base/user_dialog.h"
#include "platform/random_access_file.h"

namespace tarnwick {

/// The forms of a table's file, by what stands behind ".precalc".
enum class TTableFileMode {
    Unpacked = 0,
    Lz4 = 1,        ///< ".lz4": one stream (lz4e_stream.h)
    PackedLzw = 2,  ///< ".packed.lzw" (random_access_lzw_buffer.h)
    PackedLz4 = 3   ///< ".packed.lz4": buckets or the simple form
};

/// Whose files are looked for.
struct TTableName {
    std::string type;  ///< Letters; for a type of fixed men with its fields, "Kk+P_a4p_a5" say.
    int men = 0;       ///< On the board, kings included.
    bool bPawns = false;
    bool bFixedMen = false;
    /// A file given by name, mostly empty: relative to the program's folder, separators may be '\'.
    std::wstring wholeFileName{};
};

/// "Qr" becomes "Qr_". Letters in brackets name a field and stay; behind '+', only the man's letter counts.
std::string StemOfTable(std::string_view type);

/// The names of tables in the two places. Any thread.
class CTableFolders {
  public:
    /// precalcPath is the second place, empty for none.
    CTableFolders(std::filesystem::path programFolder, std::filesystem::path precalcPath);

    /// The file of this form, or the companion of a two-bit table (bDetails); bAlternative in the second
    /// place, the empty path if there is none. A whole file name answers to its own form alone: for others the
    /// name ends in "_SKIPTHIS", which no file has.
    std::filesystem::path MakeFileName(const TTableName& name, TTableFileMode mode, bool bDetails,
                                       bool bAlternative) const;

    /// Where the longest mates of a type are kept (max_mate_cache.h).
    std::filesystem::path MaxMateFile(const TTableName& name) const;

    /// The folder into which a new table of the type goes, in the first place: the sub-folder of its men,
    /// which need not exist yet.
    std::filesystem::path FolderOfNewTable(const TTableName& name) const;

  private:
    std::filesystem::path PlaceOf(const TTableName& name, bool bAlternative) const;
    bool Exists(const std::filesystem::path& folder) const;

    std::filesystem::path m_programFolder;
    std::filesystem::path m_precalcPath;
    mutable std::mutex m_mutex;
    /// Folders that were found; what was missing is looked for again, as generation makes it.
    mutable std::set<std::filesystem::path> m_found;
};

/// The packed name beside an existing file: bLzw ".packed.lzw", else ".packed.lz4". A name with ".LZ4" in it, in
/// capitals, loses its last extension; any other is only lengthened.
std::filesystem::path MakePackedFileName(const std::filesystem::path& name, bool bLzw);

/// The flags of an unpacked table, which its first byte has; nothing if the file is missing or empty.
std::optional<std::uint8_t> ReadTableFlags(const CRandomAccessFile& file);

/// What the size of an unpacked file says.
enum class TTableFileKind {
    Elements,  ///< An element for each index.
    TwoBit,    ///< Two bits for each index (two_bit_table.h).
    Improper   ///< Neither: the user has been told. Reading may fail anywhere.
};

/// indexCount and elementSize (1 or 2 bytes) follow from the type and the flags.
TTableFileKind CheckTableFileSize(const CRandomAccessFile& file, const std::filesystem::path& path,
                                  std::uint64_t indexCount, int elementSize, TUserDialog& dialog);

}  // namespace tarnwick
