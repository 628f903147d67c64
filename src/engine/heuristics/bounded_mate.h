#pragma once
// The short trial: can White, under the heuristics in force, keep hold of Black for a few plies, or does
// Black get away at once. It says whether a set of heuristics is worth a pass, and whether a broken one
// may be forgiven because mate is near.
//
// A trial works on the board's thread, in the slots below the board, and never throws or allocates. It
// has a budget of positions, so that it always ends soon; out of budget is no success. Nothing that a
// trial finds decides the answer of a search: it costs or saves time only.

#include <cstdint>

#include "chess/chessboard.h"

namespace tarnwick {

/// What a trial found.
enum class TTrialResult : std::int8_t {
    Kept = 0,            ///< White mates or holds Black within the limit.
    Escaped = 1,         ///< Black gets away.
    EscapedForSure = 2,  ///< A table or register knows that Black gets away.
    OutOfBudget = 3      ///< Not settled; counts as no success.
};

/// Positions that one call of a trial may look at: some ten milliseconds.
inline constexpr int TrialBudget = 20000;

/// How far a trial looks: limits in plies, tried from..to in steps of 2.
struct TTrialLimits {
    int from = 2;
    int to = 6;
    bool bTestMateInOneFirst = false;
};

/// Runs the trial with growing limits and stops at the first one at which Black gets away. Either side
/// may be to move. Kept at once while a quicker mate is being looked for (trials do not nest), and, with
/// bTestMateInOneFirst and White to move, when White mates at once.
TTrialResult IsBoundedMate(TChessboard& board, int from, int to, bool bTestMateInOneFirst) noexcept;

/// What TryHeuristics puts in force besides the mask.
struct TTrialOptions {
    bool bKingStrict = false;
    bool bKingAlmostStrict = false;
    TTrialLimits limits;
};

/// The trial with another set of heuristics. Mask, key and parameters are put back afterwards.
TTrialResult TryHeuristics(TChessboard& board, std::uint32_t heuristics,
                           const TTrialOptions& options) noexcept;

/// Can the black king be kept from moving, but for moves that it has to take back.
TTrialResult TryEdgeStrict(TChessboard& board, const TTrialLimits& limits) noexcept;

}  // namespace tarnwick
