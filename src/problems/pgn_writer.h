#pragma once
// Writes problems as games for chess programs: PGN in its export format, as UTF-8.
//
// A problem is a game from its position: [SetUp "1"] and [FEN]. The main variant, else the line of moves,
// else the key is played; all other variants and keys are variations inside it, with their names and
// comments. White is the composer, Event the source and Date the year where the description begins
// like "Paul Morphy, New York Clipper, 1856: ..."; the whole description is the first comment. Black is the
// stipulation, Round the number. Direct mates end 1-0, self-mates 0-1, positions by their last move.

#include <span>

#include "problems/exported_text.h"

namespace tarnwick {

/// A game for each problem, in the given order. Left out, and told as losses, are problems whose
/// position cannot be; moves of a variant that chess does not allow are lost with what follows them.
TExportedText PgnOfProblems(std::span<const TChessProblem* const> problems);

}  // namespace tarnwick
