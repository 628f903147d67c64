#include "tables/packed_buckets.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include "base/chess_exception.h"
#include "base/little_endian.h"
#include "platform/atomic_file.h"

#include "tables/lz4e_stream.h"

namespace tarnwick {
namespace {

constexpr std::size_t HeadBytes = 32;

std::string_view AsText(std::span<const std::uint8_t> bytes) {
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

/// How far the packing is: for users who look into the folder, so a failure is nothing to them.
void LogProgress(const std::filesystem::path& path, std::size_t bucket, std::uint64_t done,
                 std::uint64_t all, std::uint64_t written) {
    char line[200];
    std::snprintf(
        line, sizeof line,
        "Compressed bucket %zu. Packed %llu of %llu (%llu%%). Compression ratio %0.1f%%\n", bucket,
        static_cast<unsigned long long>(done), static_cast<unsigned long long>(all),
        static_cast<unsigned long long>(done * 100 / all),
        static_cast<double>(written) * 100 / static_cast<double>(done));
    std::filesystem::path log = path;
    log += ".log";
    try {
        SaveFileAtomically(log, line);
    } catch (const ChessException&) {
        return;
    }
}

}  // namespace

bool WritePackedBuckets(const std::filesystem::path& path, const CRandomAccessFile& source,
                        std::uint64_t elementCount, std::uint16_t flags) {
    if (source.Size() < elementCount) {
        return false;
    }
    const std::uint64_t buckets = (elementCount + PackedBucketBytes - 1) / PackedBucketBytes;
    std::vector<std::uint8_t> head(HeadBytes + buckets * 8);
    CAtomicFileWriter writer(path);
    writer.Append(AsText(head));  // its place; the offsets come at the end
    std::uint64_t written = head.size();
    std::vector<std::uint8_t> bytes;
    std::vector<std::uint8_t> packed;
    for (std::size_t bucket = 0; bucket < buckets; ++bucket) {
        const std::uint64_t at = bucket * PackedBucketBytes;
        bytes.resize(std::min(PackedBucketBytes, elementCount - at));
        if (!source.ReadAt(at, bytes)) {
            return false;
        }
        packed.clear();
        AppendLz4eSequences(bytes, packed);
        StoreLittleEndian(&head[HeadBytes + bucket * 8], written);
        writer.Append(AsText(packed));
        written += packed.size();
        LogProgress(path, bucket + 1, at + bytes.size(), elementCount, written);
    }
    StoreLittleEndian(&head[0], written);
    StoreLittleEndian(&head[8], elementCount);
    StoreLittleEndian(&head[16], PackedBucketBytes);
    StoreLittleEndian(&head[24], flags);
    std::memcpy(&head[28], "LZ4e", 4);
    writer.Overwrite(0, AsText(head));
    writer.Commit();
    return true;
}

}  // namespace tarnwick
