// Any bytes as a table in the simple form, as a two-bit table with its details, and as a list of the longest
// mates: refused, or answers within their ranges. And the simple form of any table gives it back.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "base/chess_exception.h"

#include "file_in_memory.h"
#include "tables/max_mate_cache.h"
#include "tables/simple_rle.h"
#include "tables/two_bit_table.h"

namespace tarnwick {
namespace {

void ReadSimple(std::span<const std::uint8_t> bytes) {
    const auto simple = CSimpleRle::FromBytes({bytes.begin(), bytes.end()});
    for (std::uint64_t index = 0; simple && index < 10'000; index += 1 + index / 5) {
        const auto value = simple->ValueAt(index);
        if (value && *value >= 128 && *value != 255) {
            std::abort();
        }
    }
}

void WriteSimple(std::span<const std::uint8_t> table) {
    const auto bytes = MakeSimpleRle(table);
    if (!bytes) {
        return;
    }
    const auto simple = CSimpleRle::FromBytes(*bytes);
    for (std::size_t index = 0; index < table.size(); index += 1 + index / 9) {
        if (!simple || simple->ValueAt(index) != table[index]) {
            std::abort();
        }
    }
}

void ReadFiles(std::span<const std::uint8_t> bytes) {
    const CFileInMemory file(bytes);
    constexpr std::uint64_t IndexCount = 1 << 20;
    const auto mates = ReadMaxMates(CFileInMemory::Path(), IndexCount, MostMaxMates);
    if (mates && (mates->indexes.empty() || mates->indexes.size() > MostMaxMates ||
                  mates->indexes.back() >= IndexCount || !std::ranges::is_sorted(mates->indexes))) {
        std::abort();
    }
    try {
        const CTwoBitTable table(CFileInMemory::Path(), CFileInMemory::Path(), bytes.size() * 4);
        if (table.ValueAt(bytes.size() * 4 - 1) != bytes.back() >> 6) {
            std::abort();
        }
    } catch (const ChessException&) {
        if (!bytes.empty()) {
            std::abort();
        }
    }
}

}  // namespace
}  // namespace tarnwick

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::span<const std::uint8_t> bytes(data, size);
    tarnwick::ReadSimple(bytes);
    tarnwick::WriteSimple(bytes);
    tarnwick::ReadFiles(bytes);
    return 0;
}
