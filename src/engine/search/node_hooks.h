#pragma once
// Where precalculated tables, heuristics and the scheduler enter the nodes. Each
// hook answers "nothing known, go on" until its subsystem stands behind it. The nodes call them in their
// fixed order behind the tests that will stay; a compiler removes the rest without a trace.

#include <optional>

#include "engine/search/node_result.h"
#include "engine/search/thread_context.h"

namespace tarnwick {

/// Bits of m_heuristicFlags that the nodes test before they call a hook.
inline constexpr std::uint32_t HeuristicsWithGenerators = 0x88400018;
inline constexpr std::uint32_t HeuristicsWithScreens = 0x020808A6;
inline constexpr std::uint32_t HeuristicsThatForbidSorting = 0x000800C4;
inline constexpr std::uint32_t HeuristicUnsorted = 0x00020000;
inline constexpr std::uint32_t HeuristicKingMayNotRecede = 0x00000400;
inline constexpr std::uint32_t HeuristicKingOnEdge = 0x00000004;
inline constexpr std::uint32_t HeuristicOneColourPlay = 0x00000008;
inline constexpr std::uint32_t HeuristicTrackedFigure = 0x00010000;

// ---- Tables

/// Precalculated data, asked first: they know the exact length of the mate.
inline std::optional<TNodeResult> AskGlobalRegister(TChessboard&) noexcept {
    return std::nullopt;
}

/// Precalculated data exist for the position, so that no shorter mate need be looked for.
inline bool HasGlobalData(const TChessboard&) noexcept {
    return false;
}

// ---- White nodes

/// The black king stands on the edge far from the end: a search that keeps it there comes first.
inline std::optional<TNodeResult> SearchKingOnEdge(TChessboard&) noexcept {
    return std::nullopt;
}

/// In the play on one colour of fields some material is known to mate.
inline bool IsKnownOneColourMate(const TChessboard&) noexcept {
    return false;
}

/// A shorter list in place of all moves. Returns its count, or -1 for no list of its own; *pLeftOut
/// receives how many moves were left out.
inline int GenerateHeuristicMoves(const TChessboard&, TMove* /*pList*/,
                                  int* /*pLeftOut*/) noexcept {
    return -1;
}

/// The child breaks a heuristic and counts as doubtful.
inline bool IsScreenedOut(const TChessboard& /*child*/) noexcept {
    return false;
}

/// Hands a reply to a juggled thread of this ply; nothing when the node searches it itself.
inline std::optional<TNodeResult> SearchOnThreadLevel(TChessboard& /*child*/) noexcept {
    return std::nullopt;
}

// ---- Black nodes

/// Queen against rook, right behind the first move: a refutation that a pass of White shows.
inline void TestQueenAgainstRook(TChessboard&) noexcept {}

/// Bishops on opposite colours behind blocked pawns: takes Black's off and sets the one-colour mode.
inline void SeparateOppositeBishops(TChessboard& /*child*/) noexcept {}

/// The child with Black's men followed, before it is searched without.
inline bool MatesWithTrackedFields(TChessboard& /*child*/) noexcept {
    return false;
}

// ---- Quicker mate

/// A recogniser of whole lines, run once per deepening.
inline bool MatesByWholeLine(TChessboard& /*child*/) noexcept {
    return false;
}

/// Last tests when the deepening found nothing: a pawn about to queen, a lone queen near the king.
inline bool MatesByLastChance(TChessboard& /*child*/, int /*limit*/) noexcept {
    return false;
}

}  // namespace tarnwick
