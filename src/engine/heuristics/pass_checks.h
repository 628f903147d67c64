#pragma once
// What the nodes ask in the pass with heuristics. Each question costs one test when no heuristic is set.

#include "chess/lines.h"
#include "engine/heuristics/dynamic_heuristics.h"
#include "engine/heuristics/heuristic_bits.h"
#include "engine/heuristics/heuristic_checks.h"
#include "engine/heuristics/one_colour_play.h"
#include "engine/heuristics/white_screens.h"
#include "engine/search/thread_context.h"

namespace tarnwick {

/// The make operations may refuse White's legal moves, so that a list which they went through need not
/// be the whole truth.
inline bool MayHooksRefuse(const TChessboard& board) noexcept {
    return board.m_heuristicFlags.HasAny(SH_SINGLEQUEENMATE) || IsOneColourPlay(board);
}

/// A step of the white king away from the black one that captures nothing.
inline bool KingRecedes(const TChessboard& child) noexcept {
    const TMove move = child.m_lastMove;
    if (!child.m_heuristicFlags.HasAny(SH_DONTRECEDEBLACKKING) || move.IsPass() ||
        child.m_fields[move.to] != WhiteKing ||
        child.m_pPrevious->m_fields[move.to] != EmptyField) {
        return false;
    }
    const int king = BlackKingField(child);
    return KingDistance(move.to, king) > KingDistance(move.from, king);
}

/// The child after White's move is not worth a search: mate there would be doubtful.
inline bool IsCutAfterWhite(TChessboard& child) noexcept {
    return child.m_pass == 1 && child.m_heuristicFlags.Raw() != 0 &&
           (KingRecedes(child) ||
            (child.m_heuristicFlags.HasAny(HeuristicsWithScreens) && IsScreenedOut(child)) ||
            BreaksHeuristicsAfterWhite(child));
}

/// The same after Black's move. To be asked before any store is, because the key may change.
inline bool IsCutAfterBlack(TChessboard& child) noexcept {
    return child.m_pass == 1 && child.m_heuristicFlags.Raw() != 0 &&
           BreaksHeuristicsAfterBlack(child);
}

/// After White's move: a search of the reply with a stricter set finds mate. False: the usual search has
/// its turn.
inline bool MatesByFallback(TChessboard& child) noexcept {
    return child.m_pass == 1 && Thread(child).m_heuristics.bHeuristicsFallback &&
           MatesWithStrictEdge(child);
}

}  // namespace tarnwick
