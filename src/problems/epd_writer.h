#pragma once
// Writes direct mates in EPD, as epd_reader.h and other solvers read them:
//
//     7k/8/5K2/8/8/8/8/6R1 w - - bm #2; id "The rook waits"; pm Kf7;
//
// "bm" has the length, "id" the description, "pm" the key in standard notation where the file knows exactly
// one; several keys are the comment "c0".

#include <span>

#include "problems/exported_text.h"

namespace tarnwick {

/// A line for each problem, in the given order. Left out, and told as losses, are problems that are no
/// direct mates and those whose position cannot be.
TExportedText EpdOfProblems(std::span<const TChessProblem* const> problems);

}  // namespace tarnwick
