#pragma once

// A line of play in a pass with heuristics.

#include "engine/heuristics/heuristic_bits.h"
#include "engine/heuristics/heuristic_key.h"
#include "solve_support.h"

namespace tarnwick {

/// Plies left at the root: White, or Black, to move.
inline constexpr int WhiteLinePlies = 41;
inline constexpr int BlackLinePlies = 40;

class CHeuristicLine : public CSearchLine {
  public:
    CHeuristicLine(const std::string& fen, std::uint32_t mask, int plies = WhiteLinePlies)
        : CSearchLine(fen, plies) {
        Root().m_pass = 1;
        Set(mask);
    }

    /// The parameters; Set makes the key follow them.
    TSpecialHeuristics& Parameters() { return SearchThread().m_heuristics; }
    void Set(std::uint32_t mask) { SetHeuristics(Root(), mask); }
    bool Has(std::uint32_t bit) { return Board().m_heuristicFlags.HasAny(bit); }
};

}  // namespace tarnwick
