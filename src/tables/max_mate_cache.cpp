#include "tables/max_mate_cache.h"

#include <algorithm>
#include <functional>
#include <string>

#include "base/chess_exception.h"
#include "base/little_endian.h"
#include "platform/atomic_file.h"
#include "platform/random_access_file.h"

namespace tarnwick {
namespace {

constexpr std::uint64_t LargestTwoByteValue = 1023;

}  // namespace

std::optional<TMaxMates> ReadMaxMates(const std::filesystem::path& path, std::uint64_t indexCount,
                                      std::size_t limit) {
    const CRandomAccessFile file(path);
    if (file.Size() < 8 || file.Size() % 8 != 0) {
        return std::nullopt;
    }
    const std::uint64_t count = std::min<std::uint64_t>(file.Size() / 8 - 1, limit);
    std::vector<std::uint8_t> bytes(8 + count * 8);
    if (!file.ReadAt(0, bytes)) {
        return std::nullopt;
    }
    TMaxMates mates;
    mates.moves = LoadLittleEndian<std::uint64_t>(&bytes[0]);
    for (std::size_t at = 8; at < bytes.size(); at += 8) {
        mates.indexes.push_back(LoadLittleEndian<std::uint64_t>(&bytes[at]));
    }
    // Element 0 is no position.
    const bool bInTable =
        !mates.indexes.empty() && mates.indexes.front() > 0 && mates.indexes.back() < indexCount;
    const bool bRising = std::ranges::adjacent_find(mates.indexes, std::ranges::greater_equal{}) ==
                         mates.indexes.end();
    if (mates.moves > LargestTwoByteValue || !bInTable || !bRising) {
        return std::nullopt;
    }
    return mates;
}

bool WriteMaxMates(const std::filesystem::path& path, const TMaxMates& mates) {
    std::string bytes(8 + mates.indexes.size() * 8, '\0');
    auto* to = reinterpret_cast<std::uint8_t*>(bytes.data());
    StoreLittleEndian(to, mates.moves);
    for (const std::uint64_t index : mates.indexes) {
        StoreLittleEndian(to += 8, index);
    }
    try {
        SaveFileAtomically(path, bytes);
        return true;
    } catch (const ChessException&) {
        return false;
    }
}

}  // namespace tarnwick
