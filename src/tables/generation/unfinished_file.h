#pragma once
// The file from which a stopped generation goes on: "....precalc.unfinished".
//
//   offset  bytes  content
//        0      8  "TWunfin1"
//        8      8  bytes of an element, 1 or 2
//       16      8  length of the type's name, at most 5
//       24      .  the name, then what CRetrograde::Save writes
//        .      8  checksum of all before it
//
// It belongs to one machine and one version: a file that does not fit is left aside, and the generation
// begins anew.

#include <filesystem>
#include <string>

#include "tables/generation/retrograde.h"

namespace tarnwick {

std::filesystem::path UnfinishedPathOf(const std::filesystem::path& tablePath);

/// Throws ChessException where the file cannot be written.
template <typename Element>
void SaveUnfinished(const std::filesystem::path& path, const std::string& type,
                    const CRetrograde<Element>& retrograde);

/// False if there is no file that fits; the generation is then as new.
template <typename Element>
bool LoadUnfinished(const std::filesystem::path& path, const std::string& type,
                    CRetrograde<Element>& retrograde);

}  // namespace tarnwick
