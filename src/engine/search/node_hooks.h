#pragma once
// Where precalculated tables enter the nodes. Each hook answers "nothing
// known, go on" until its subsystem stands behind it; a compiler removes it without a trace.

#include <optional>

#include "engine/search/node_result.h"
#include "engine/search/thread_context.h"

namespace tarnwick {

/// Bits of m_heuristicFlags that the nodes test before they call a hook.
inline constexpr std::uint32_t HeuristicsWithGenerators = 0x88400008;
inline constexpr std::uint32_t HeuristicsThatForbidSorting = 0x000800C4;
inline constexpr std::uint32_t HeuristicUnsorted = 0x00020000;

// ---- Tables

/// Precalculated data, asked first: they know the exact length of the mate.
inline std::optional<TNodeResult> AskGlobalRegister(TChessboard&) noexcept {
    return std::nullopt;
}

/// Precalculated data exist for the position, so that no shorter mate need be looked for.
inline bool HasGlobalData(const TChessboard&) noexcept {
    return false;
}

}  // namespace tarnwick
