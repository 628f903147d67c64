#pragma once

// The longest mates of a type, kept from one start to the next (MaxMateIndexesCache/TYPE.idx), as finding them
// takes a walk over the whole table.
//
//   offset  bytes  content
//        0      8  the greatest stored value: moves to mate, 0 for none
//        8  8 * n  indices of it, ascending

#include <cstdint>
#include <filesystem>
#include <optional>
#include <vector>

namespace tarnwick {

struct TMaxMates {
    std::uint64_t moves = 0;
    std::vector<std::uint64_t> indexes;
};

/// How many positions of the longest mate are shown to a user at most.
inline constexpr std::size_t MostMaxMates = 2048;

/// Up to `limit` of the positions that are kept. Nothing if there is no file, or what it says cannot be of a
/// table of so many indices: then they must be looked for anew.
std::optional<TMaxMates> ReadMaxMates(const std::filesystem::path& path, std::uint64_t indexCount,
                                      std::size_t limit);

/// False if the disk refuses, mostly because the user has not made the folder: nothing is kept then, and
/// nothing is lost but time.
bool WriteMaxMates(const std::filesystem::path& path, const TMaxMates& mates);

}  // namespace tarnwick
