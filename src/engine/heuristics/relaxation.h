#pragma once
// Relaxation: a pass with heuristics that found nothing may have been too strict. Between passes one
// thing at a time is weakened or dropped, from the strictest set down to none; the last pass then runs
// without heuristics, so that the order of the steps costs time at worst. It depends on the position, as
// several steps ask whether a heuristic still makes sense for the men on the board.
//
// Called by the thread that ended the pass while no other works on the root. Parameters are those of the
// board's thread.

#include <cstdint>
#include <functional>
#include <string>

#include "chess/chessboard.h"

namespace tarnwick {

/// The set is empty now: no further pass with heuristics.
inline constexpr std::int8_t NothingToRelax = 0;
/// A further pass, the same in every run of the problem.
inline constexpr std::int8_t Relaxed = 1;
/// A further pass that a slower machine would not make: runs may differ.
inline constexpr std::int8_t RelaxedByTime = -1;

/// Passes that ended sooner than this leave time for a weaker level of forcing moves, in ms.
inline constexpr std::int64_t EarlyEndMs = 1000;

/// Receives lines for the solving output; each ends with a line feed.
using TSolvingOutput = std::function<void(const std::string&)>;

/// Makes the set of the board one step weaker: changes its heuristics, their key, and parameters of the
/// thread. With Black to move the board before Black's move is relaxed, and the words are copied. Returns
/// one of the three numbers above. The option bRelaxationLog writes TryRelaxSpecialHeuristics.log; a log
/// that fails harms nobody.
std::int8_t TryRelaxSpecialHeuristics(TChessboard& board, const TSolvingOutput& output = nullptr);

/// A step of the simulated ladder: the board with the set of the next pass, and whether the step needs
/// time to be left.
using TRelaxationVisitor = std::function<void(const TChessboard& board, bool bTimeDependent)>;

struct TRelaxationCounts {
    int steps = 0;          ///< Further passes with heuristics.
    int timeDependent = 0;  ///< Of them, those that need time to be left.
};

/// Walks the ladder as if no pass found a solution and all ended early. A preliminary pass with the edge
/// heuristics is passed over. bStopAtEdgeLoss: until no heuristic is left that holds the king. Board,
/// parameters and safe mode are afterwards as before.
TRelaxationCounts SimulateRelaxation(TChessboard& board, bool bStopAtEdgeLoss,
                                     const TRelaxationVisitor& visit = nullptr);

/// The passes of the ladder as a text for the user, the set of the board first.
std::string RelaxationText(TChessboard& board);

/// "1", "1b" ... "1z", "1aa" ...: name of the pass after so many relaxations.
std::string HeuristicPassName(int relaxations);

}  // namespace tarnwick
