#pragma once
// How many threads the engine would rather have for a root than the user gave it.

#include "engine/jobs/root_search.h"

namespace tarnwick {

/// What the advice depends on.
struct TThreadAdviceInput {
    int threads = 1;
    int firstMoves = 0;
    int forcingMoves = 0;  ///< First moves that check a king without a move.
    int cores = 1;
    /// Black has exactly one checking move, made by a pinned rook.
    bool bOneCheckByPinnedRook = false;
};

/// The advised number, at most 127; 0: the user's number is good.
int AdvisedThreads(const TThreadAdviceInput& input);

/// For a root of more than 13 plies whose thread number has not been settled yet; otherwise 0.
int AdviseThreads(TRootSearch& search);

/// First moves after which the black king is in check and has no field to go to.
int CountForcingFirstMoves(TRootSearch& search);

}  // namespace tarnwick
