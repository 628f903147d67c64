#pragma once
// Sets of special heuristics in writing: the list that the user sees and types, as
// "SH_KEEPKINGNEARCORNER(3S), SH_DONTLETKINGMOVE(excptns)", and the settings of a problem file. Fields are
// written in capitals. What is read by these functions can come from anywhere.

#include <cstdint>
#include <string>
#include <string_view>

#include "engine/heuristics/special_heuristics.h"
#include "problems/chess_problem.h"

namespace tarnwick {

struct THeuristicSet {
    std::uint32_t mask = 0;
    TSpecialHeuristics parameters;
    std::uint8_t oneColourMode = 0;  ///< Of SH_ONECOLORPLAYPOSSIBLE: bits 0-1 of m_captureState.
};

/// The list of a set, in the order of the bits; empty for the empty set. Parameters that the list does
/// not show are those of the trial searches and of the passes.
std::string HeuristicListText(std::uint32_t mask, const TSpecialHeuristics& parameters,
                              std::uint8_t oneColourMode);

/// Reads such a list: names in any case, joined by commas, with blanks anywhere between words. Names and
/// brackets as HeuristicListText writes them, and SH_ZUGZWANG takes the number of moves. A parameter that
/// is not named is off; what a list cannot name has its default.
///
/// The fields of SH_DONTLETFIGUREUNBLOCK count as chosen by the user; with none given the engine is to
/// find the men. Throws ChessException, which names the item and what is allowed in its place.
THeuristicSet ParseHeuristicList(std::string_view text);

/// Lets a problem's own settings override a set. OFF takes a heuristic out. Empty brackets put one in,
/// or leave it as it is if it is in already. A heuristic put in goes before one that it excludes.
/// Throws what ParseHeuristicList throws; the set is then unchanged.
void ApplyHeuristicSettings(THeuristicSet& set, const TChessProblem& problem);

}  // namespace tarnwick
