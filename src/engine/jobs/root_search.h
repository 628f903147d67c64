#pragma once
// The passes over the first moves, on one thread.

#include <vector>

#include "chess/chessboard.h"
#include "chess/move.h"
#include "engine/jobs/solve_task.h"
#include "engine/search/thread_context.h"

namespace tarnwick {

/// What became of a first move.
enum class TRootResult : std::uint8_t {
    Unknown,
    Mate,
    NoMate
};

struct TRootMove {
    TMove move;
    TRootResult result = TRootResult::Unknown;
};

/// A root at work.
struct TRootSearch {
    TSolveTask& task;
    TThreadContext& thread;
    TChessboard& root;
    std::vector<TRootMove> moves;
    int solutions = 0;
    bool bStopRuleMet = false;  ///< One solution wanted and found, or a dual, or three.
};

/// The root must be prepared, with m_shPlies, m_shRootPlies, m_pTask and m_pThread set. Fills
/// search.moves with every first move and its result, as far as stops and stop rules let it.
void FindMateAtRoot(TRootSearch& search);

/// Pass 0: first moves that mate in two, three or four, by fixed-depth tests of every reply. Settles
/// both ways a move whose replies the tests reach to the full depth.
TRootResult SieveFirstMove(TRootSearch& search, TMove move);

}  // namespace tarnwick
