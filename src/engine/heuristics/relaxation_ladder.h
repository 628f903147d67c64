#pragma once
// The steps of the relaxation. Each looks at the set and either changes it, which ends the relaxation
// for this time, or lets the next step have a look. Private to the relaxation_*.cpp files.

#include <cstdint>

#include "chess/chessboard.h"
#include "engine/heuristics/heuristic_bits.h"
#include "engine/heuristics/relaxation.h"
#include "engine/heuristics/special_heuristics.h"

namespace tarnwick {

/// A relaxation at work.
struct TLadder {
    TChessboard& board;
    TSpecialHeuristics& parameters;
    std::uint32_t set;  ///< Of the board; written back when a step has changed it.
    bool bSimulated;    ///< Nothing is told, and there is time for everything.
    const TSolvingOutput& output;
    bool bUnblockRestored = false;  ///< The followed men came back in this call.

    bool Has(std::uint32_t bits) const { return (set & bits) != 0; }
};

/// What a step did.
enum class TRung : std::uint8_t {
    GoOn,          ///< Nothing to do here.
    Changed,       ///< The set, or a parameter of it, is weaker now.
    ChangedByTime  ///< The same, because the passes so far were quick.
};

/// Clears the bits.
TRung Drop(TLadder& ladder, std::uint32_t bits);
/// One bit gives way to another.
TRung Replace(TLadder& ladder, std::uint32_t from, std::uint32_t to);

/// SH_DONTLETFIGUREUNBLOCK is in force or may come into force during the search.
bool IsUnblockInUse(const TLadder& ladder);

// Steps of relaxation_forced_mate.cpp, relaxation_tracked.cpp, relaxation_edge.cpp.
TRung RelaxForcedMate(TLadder& ladder);
TRung RestoreFollowedMen(TLadder& ladder);
TRung TakeTurnsWithKeyFigure(TLadder& ladder);
TRung ThinFollowedMenIfMany(TLadder& ladder);
TRung ThinFollowedMen(TLadder& ladder);
TRung ReduceFollowedMen(TLadder& ladder);
TRung DropKeyFigureInCorner(TLadder& ladder);
TRung DropKeyFigure(TLadder& ladder);
TRung RelaxStillKing(TLadder& ladder);
TRung RelaxSurrounded(TLadder& ladder);
TRung LeaveEdge(TLadder& ladder);
TRung RelaxExtendedEdge(TLadder& ladder);

/// Sets SH_KEEPKINGWITHINEXTEDGE in the set, and its parameters by the pawns around the king.
void SetExtendedEdge(const TChessboard& board, TSpecialHeuristics& parameters, std::uint32_t& set);

/// Adds SH_ASSERTBLACKKINGSURROUNDED or, where the king has to be kept by few men, the extended edge.
/// For a set that does not, or no longer, hold the king on the edge.
void AddSurrounded(const TChessboard& board, std::uint32_t& set);
void AddHoldOfFewMen(const TChessboard& board, TSpecialHeuristics& parameters, std::uint32_t& set);

}  // namespace tarnwick
