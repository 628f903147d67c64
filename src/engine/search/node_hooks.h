#pragma once
// What the nodes ask of others than the search itself: the precalculated tables, and masks of heuristics.

#include <bit>
#include <optional>

#include "engine/search/node_result.h"
#include "engine/search/thread_context.h"

namespace tarnwick {

/// Bits of m_heuristicFlags that the nodes test before they call a hook.
inline constexpr std::uint32_t HeuristicsWithGenerators = 0x88400008;
inline constexpr std::uint32_t HeuristicsThatForbidSorting = 0x000800C4;
inline constexpr std::uint32_t HeuristicUnsorted = 0x00020000;

// ---- Tables

/// Tables of more men, kings included, exist nowhere.
inline constexpr int MostMenInTables = 7;

/// Whether there are tables for so few men: to be asked before AskGlobalRegister, as it costs next to
/// nothing. The flag says that the job has tables at all.
inline bool MayTablesHold(const TChessboard& board) noexcept {
    return board.m_searchFlags.Has(TSearchFlag::GlobalRegisterMayHold) &&
           std::popcount(OccupiedFields(board)) <= MostMenInTables;
}

/// The board may neither castle nor lose a right to castle: tables know of none.
bool HasNoCastlingRights(const TChessboard& board) noexcept;

/// The answer of precalculated data for a white node, which knows the exact length of the mate; nothing if the
/// search has to find out. A mate within the additional moves counts as one in quicker-mate work.
/// bReduced: the board was made by leaving men out.
std::optional<TNodeResult> AskGlobalRegister(TChessboard& board, bool bReduced = false) noexcept;

}  // namespace tarnwick
