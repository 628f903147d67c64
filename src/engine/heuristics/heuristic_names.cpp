#include "engine/heuristics/heuristic_names.h"

#include <algorithm>

#include "engine/heuristics/heuristic_catalogue.h"
#include "engine/heuristics/heuristic_words.h"

namespace tarnwick {
namespace {

constexpr const char* UnusedName = "...";

}  // namespace

std::uint32_t HeuristicBitOfName(std::string_view name) noexcept {
    for (const THeuristicEntry& entry : HeuristicCatalogue()) {
        if (std::ranges::equal(std::string_view(entry.name), name, {}, ToUpper, ToUpper)) {
            return entry.bit;
        }
    }
    return 0;
}

const char* HeuristicName(std::uint32_t bit) noexcept {
    const THeuristicEntry* pEntry = FindHeuristic(bit);
    return pEntry != nullptr ? pEntry->name : UnusedName;
}

}  // namespace tarnwick
