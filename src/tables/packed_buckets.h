#pragma once

// Packed buckets (".packed.lz4"): a table in pieces of 16 MiB, each packed for itself.
//
//   offset  bytes  content
//        0      8  size of the file
//        8      8  elements of the table
//       16      8  bytes of a bucket, 0x1000000
//       24      2  flags (TTableFlags)
//       26      2  zero
//       28      4  "LZ4e"
//       32   8 * n offset in the file of each of the n buckets
//        .         the sequences of each bucket (lz4e_stream.h), without a head
//
// For exchange with others who read this form; the program itself reads whole streams and packed.lzw. The
// form counts a table's elements as bytes: of a table of two-byte elements it has the first half.

#include <cstdint>
#include <filesystem>

#include "platform/random_access_file.h"

namespace tarnwick {

inline constexpr std::uint64_t PackedBucketBytes = 0x1000000;

/// Packs the first elementCount bytes of the source. Behind each bucket the line in the file path + ".log" says how
/// far it is; a log that cannot be written stops nothing. False if the source is shorter. Throws
/// ChessException if the disk refuses, and std::bad_alloc; path is then as it was.
bool WritePackedBuckets(const std::filesystem::path& path, const CRandomAccessFile& source,
                        std::uint64_t elementCount, std::uint16_t flags);

}  // namespace tarnwick
