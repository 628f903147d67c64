#pragma once
// The parameters of one heuristic in writing, without their brackets: for the reader of lists.

#include <cstdint>
#include <string>
#include <string_view>

#include "engine/heuristics/heuristic_list.h"

namespace tarnwick {

/// To be called once with all bits that are read, before the first of them: switches off the parameters
/// that two heuristics share, so that neither undoes what the other one read.
void ResetSharedParameters(std::uint32_t bits, TSpecialHeuristics& parameters);

/// Reads text, which has no blanks, into the parameters of the heuristic of that bit; the mask of the set
/// must be complete. False if the text is wrong; the set is then half changed.
bool ReadHeuristicParameters(std::uint32_t bit, std::string_view text, THeuristicSet& set);

/// What may stand in the brackets.
std::string AllowedParameters(std::uint32_t bit);

}  // namespace tarnwick
