#pragma once
// When the search may have a table loaded. A table that nobody has asked for yet costs time and memory, and
// a position near the leaves is searched to its end sooner. Tables that are loaded already are always asked.

#include <bit>
#include <cstdint>

#include "chess/chessboard.h"

namespace tarnwick {

/// What the search says of itself when it asks.
struct TLookupLimits {
    bool bAllSolutions = false;  ///< All keys are wanted, which makes every answer worth more.
    /// The position was made by leaving men out, only to see whether it is won.
    bool bReducedPosition = false;
    /// Heuristics are in force under which the search is not cheap even with a white queen.
    bool bQueenIsSlow = false;
};

/// Heuristics that make bQueenIsSlow.
inline constexpr std::uint32_t HeuristicsOfSlowQueen = 0x000800C4;

/// Whether a table for the board, with its plies left, may be loaded now.
inline bool MayLoadInSearch(const TChessboard& board, const TLookupLimits& limits) noexcept {
    const int men = std::popcount(OccupiedFields(board)) - 2;
    const int plies = board.m_shPlies;
    const bool bQueen = board.m_whiteQueens > 0;
    const int sooner = limits.bAllSolutions ? 6 : 0;
    if (bQueen && !limits.bQueenIsSlow) {
        return plies >= 19 - sooner || (plies >= 15 - sooner && men <= 2);
    }
    const int enough = limits.bAllSolutions ? 15 : 21;
    const int least = enough - (bQueen ? 4 : 2);
    return plies >= enough || (plies >= least && men <= 2);
}

/// Most men, kings included, of a plain table that may be loaded at all.
inline int MostMenOfTable(const TLookupLimits& limits, int useDataPacked) noexcept {
    if (!limits.bReducedPosition) {
        return 7;
    }
    return useDataPacked < 2 ? 4 : 5;
}

}  // namespace tarnwick
