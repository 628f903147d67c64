#pragma once
// The word that tells apart sets of heuristics with the same bits and other parameters. Together with the
// mask it keys the doubtful layers of the register and stands in their files, so its arithmetic is fixed.

#include <cstdint>

#include "chess/chessboard.h"
#include "engine/heuristics/special_heuristics.h"

namespace tarnwick {

/// The word of the board's mask. 0 for an empty mask.
std::uint32_t HeurParamsOf(const TChessboard& board, const TSpecialHeuristics& parameters) noexcept;

/// Sets the mask and computes the word anew, with the parameters of the board's thread.
void SetHeuristics(TChessboard& board, std::uint32_t mask) noexcept;

/// Computes the word anew, after a parameter or a flag of the board has changed.
void UpdateHeurParams(TChessboard& board) noexcept;

}  // namespace tarnwick
