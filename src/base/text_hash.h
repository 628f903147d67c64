#pragma once
// A hash that is the same in every run and on every machine, so that it may stand in files.

#include <cstdint>
#include <string_view>

namespace tarnwick {

/// FNV-1a of 64 bits. Two texts do not meet by chance, but may by somebody's effort.
constexpr std::uint64_t HashOfText(std::string_view text) {
    std::uint64_t hash = 0xCBF29CE484222325U;
    for (const char c : text) {
        hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001B3U;
    }
    return hash;
}

}  // namespace tarnwick
