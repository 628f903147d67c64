#pragma once
// FindForcedMate: a search in which White is held to forcing moves (forced_moves.h). A long problem that
// is forced all the way is solved in a fraction of the time; of any other the passes behind it know as much
// as before, because "none found" here is never a proof: it answers ResultDoubtful, and what is stored of
// it stands under the heuristics of its pass. A mate is a mate and is stored as such.
//
// The functions run on a search thread (find_mate.h), never throw and never allocate. A search that is
// told to stop answers ResultNoMate, which then means nothing.
//
// The scheduler has no part in it: its moves are few and take no turns. Threads are used near the root.

#include "chess/chessboard.h"
#include "chess/move.h"
#include "engine/search/node_result.h"

namespace tarnwick {

struct TThreadContext;

/// A depth in moves that is no limit.
inline constexpr int NoForcedDepth = 32767;
/// A first move is looked at from here on; shorter problems need no forced search.
inline constexpr int LeastForcedPlies = 4;

/// One first move of a root whose heuristics hold SH_FINDFORCEDMATE. ResultMate, or ResultDoubtful when no
/// forced mate was found or the move itself forces nothing. The root is left as it is; the level and the
/// other choices are those of thread.m_heuristics.
TNodeResult SearchForcedFirstMove(TThreadContext& thread, TChessboard& root, TMove move) noexcept;

/// The board after a first move, Black to move, its heuristics set: all replies.
TNodeResult FindForcedMateAtRoot(TChessboard& afterFirstMove) noexcept;

/// White to move, at least 1 ply left, SH_FINDFORCEDMATE in the board's heuristics. moves, above 0, limits
/// the depth in White's moves beside the plies left; ResultEndOfFFMDepth: that limit was in the way.
TNodeResult FindForcedMateWhite(TChessboard& board, int moves) noexcept;

/// White to move: a forced mate of at most maxPlies, odd, the shortest first.
bool LookForQuickerMateFFM(TChessboard& board, int maxPlies) noexcept;

}  // namespace tarnwick
