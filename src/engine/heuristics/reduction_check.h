#pragma once
// SH_REDUCTIONTOGLOBREGPOS: in a miniature, what White can do without his weaker men is looked up in the
// tables of few men. If none of the reduced positions is won in time, the mate counts as doubtful.

#include <optional>

#include "chess/chessboard.h"
#include "engine/search/node_result.h"

namespace tarnwick {

/// What the tables say of a position with White to move; nothing if they do not hold it.
using TReducedLookup = std::optional<TNodeResult> (*)(TChessboard& board);

/// After Black's move: all reductions that the lookup knows, and at least one, are no mate within the
/// plies left. Takes White's pawns off together, then each bishop and knight alone. Without tables
/// nothing is known and nothing is ever cut.
bool IsReducedPositionLost(const TChessboard& afterBlack, TReducedLookup lookUp) noexcept;

/// The same with the tables of the job.
bool IsReducedPositionLost(const TChessboard& afterBlack) noexcept;

}  // namespace tarnwick
