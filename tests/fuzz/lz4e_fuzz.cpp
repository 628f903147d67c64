// Any bytes as the file of a whole packed table, in both forms: a table of the size that was asked for, or a
// message. And any bytes as a table: it comes back as it was.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "base/chess_exception.h"
#include "base/little_endian.h"

#include "file_in_memory.h"
#include "tables/lz4e_stream.h"

namespace tarnwick {
namespace {

std::vector<std::uint8_t> Read(std::span<const std::uint8_t> bytes, std::uint64_t size) {
    const CFileInMemory file(bytes);
    std::vector<std::uint8_t> table;
    try {
        table = ReadLz4eFile(CFileInMemory::Path(), size);
        if (table.size() != size) {
            std::abort();
        }
    } catch (const ChessException&) {
        table.clear();
    }
    return table;
}

}  // namespace
}  // namespace tarnwick

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tarnwick;
    const std::span<const std::uint8_t> bytes(data, size);
    if (size >= Lz4eHeadBytes) {
        Read(bytes, LoadLittleEndian<std::uint32_t>(data + 4));
        Read(bytes, LoadLittleEndian<std::uint32_t>(data + 12));
    }
    // The packer takes longer to set up than all the rest.
    if (size % 8 == 1 && !std::ranges::equal(Read(PackLz4eStream(bytes), size), bytes)) {
        std::abort();
    }
    return 0;
}
