#pragma once
// Names of the special heuristics, as problem files, lists on the screen and logs spell them.

#include <cstdint>
#include <string_view>

namespace tarnwick {

/// Number of bits in a mask of heuristics.
inline constexpr int HeuristicBitCount = 32;

/// The bit of the heuristic of that name, in any case; 0 if there is none of that name.
std::uint32_t HeuristicBitOfName(std::string_view name) noexcept;

/// Name of the heuristic of that single bit; "..." for a bit that is not used.
const char* HeuristicName(std::uint32_t bit) noexcept;

}  // namespace tarnwick
