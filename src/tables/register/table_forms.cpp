#include "tables/register/table_forms.h"

#include <array>
#include <set>
#include <utility>

#include "base/chess_exception.h"
#include "platform/random_access_file.h"

#include "tables/lz4e_stream.h"
#include "tables/packed_table_header.h"
#include "tables/random_access_lzw_buffer.h"

namespace tarnwick {
namespace {

namespace fs = std::filesystem;
using RandomAccessLZWBuffer::OpenPackedTable;
using RandomAccessLZWBuffer::TOpenedPackedTable;

/// All flags that a table of any type may have, the usual ones first.
std::array<std::uint8_t, 8> PossibleFlags() {
    std::array<std::uint8_t, 8> flags{};
    for (std::size_t set = 0; set < flags.size(); ++set) {
        flags[set] = static_cast<std::uint8_t>(set ^ CompactPawnsFlag);
    }
    return flags;
}

}  // namespace

std::uint64_t TableBytes(const TGlobalRegister& subregister) {
    return subregister.GetIndexCount() * static_cast<std::uint64_t>(subregister.ElementSize());
}

std::optional<std::vector<std::uint8_t>> ReadLz4Table(TGlobalRegister& subregister,
                                                      const fs::path& path) {
    std::set<std::uint64_t> sizesTried;
    for (const std::uint8_t flags : PossibleFlags()) {
        if (!subregister.SetFlags(flags) || !sizesTried.insert(TableBytes(subregister)).second) {
            continue;
        }
        try {
            const std::uint64_t bytes = TableBytes(subregister);
            std::vector<std::uint8_t> table = ReadLz4eFile(path, bytes);
            if (subregister.SetFlags(table[0]) && TableBytes(subregister) == bytes) {
                return table;
            }
        } catch (const ChessException&) {  // Of another size, or damaged.
        }
    }
    return std::nullopt;
}

std::unique_ptr<RandomAccessLZWBuffer::CRandomAccessPackedBufferBase> OpenPackedFor(
    TGlobalRegister& subregister, const fs::path& path, bool bOnDisk, std::uint64_t quota,
    TUserDialog& dialog) {
    std::array<std::uint8_t, PackedHeaderBytes> head{};
    const CRandomAccessFile file(path);
    const auto header = file.ReadAt(0, head) ? ParsePackedHeader(head, file.Size()) : std::nullopt;
    if (!header) {
        return nullptr;
    }
    // Whether pawns are compact stands in no head: the count tells.
    for (const int compact : {CompactPawnsFlag + 0, 0}) {
        if (subregister.SetFlags(static_cast<std::uint8_t>(header->flags | compact)) &&
            subregister.GetIndexCount() == header->elementCount) {
            break;
        }
    }
    TOpenedPackedTable opened = OpenPackedTable(path,
                                                {.letters = subregister.Letters(),
                                                 .elementCount = subregister.GetIndexCount(),
                                                 .bDiskBased = bOnDisk,
                                                 .quota = quota},
                                                &dialog);
    const bool bFits =
        opened.pBuffer != nullptr &&
        static_cast<int>(opened.pBuffer->GetElementSize()) == subregister.ElementSize();
    return bFits ? std::move(opened.pBuffer) : nullptr;
}

}  // namespace tarnwick
