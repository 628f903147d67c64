#pragma once
// What earlier runs found out about the problem in hand: a register of solved positions that takes in
// finished jobs and answers repeated ones without a search.

#include <optional>

#include "engine/jobs/start_solving.h"
#include "registers/chessboard_register.h"

namespace tarnwick {

/// Shorter problems are solved again in no time.
inline constexpr int LeastCachedPlies = 13;

/// The answer of an earlier run for these plies, if it is good enough: one key where one is wanted, all
/// where all are. The root must be prepared.
std::optional<TSolveResult> FindInResultsCache(TChessboardRegister<bool>& cache, TChessboard& root,
                                               const TEngineOptions& options);

/// Takes in a finished run of a problem of at least LeastCachedPlies. Stopped ones and answers without
/// proof leave the cache as it is.
void StoreInResultsCache(TChessboardRegister<bool>& cache, const TChessboard& root,
                         const TSolveResult& result);

}  // namespace tarnwick
