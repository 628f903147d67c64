#pragma once
// The passes over the first moves, on one thread or several.

#include <mutex>
#include <string>
#include <vector>

#include "chess/chessboard.h"
#include "chess/move.h"
#include "engine/jobs/heuristic_rung.h"
#include "engine/jobs/pass_report.h"
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

inline constexpr int SievePass = 0;
inline constexpr int HeuristicPass = 1;
inline constexpr int FinalPass = 2;

/// A root at work. With several threads, what follows `lock` is shared and under it.
struct TRootSearch {
    TSolveTask& task;
    TThreadContext& thread;  ///< Of the thread that called FindMateAtRoot.
    TChessboard& root;
    std::mutex lock{};
    std::vector<TRootMove> moves{};
    std::size_t next = 0;  ///< First move of this pass that no thread has taken.
    int solutions = 0;
    bool bStopRuleMet = false;  ///< One solution wanted and found, or a dual, or three.
    std::string found{};        ///< Name of the pass or scout that found the first key.
    std::string passName{};     ///< The pass in hand.
    std::vector<TPassReport> passes{};
    std::vector<THeuristicRung> ladder{};  ///< All sets of the passes with heuristics; empty: none.
    std::string error{};  ///< Text of the exception that ended a thread, if one did.
};

/// The root must be prepared, with m_shPlies, m_shRootPlies, m_pTask and m_pThread set. Fills
/// search.moves with every first move and its result, as far as stops and stop rules let it.
///
/// Returns 0, or with bAllowForce, before anything was searched, the number of threads that the engine
/// would rather have, negated.
int FindMateAtRoot(TRootSearch& search, bool bAllowForce);

/// Who has found a key, if it is the first. To be called before AddSolution.
void NoteFinder(TRootSearch& search, const std::string& name);

/// The first move of that index mates. Reports it, once, and sees whether that is enough.
void AddSolution(TRootSearch& search, std::size_t i);

/// One pass on the calling thread: takes moves that are still open until none is left. Several threads
/// may do so at once, each with its own context and root board.
void RunPass(TRootSearch& search, TThreadContext& thread, TChessboard& root, int pass);

/// Pass 0: first moves that mate in two, three or four, by fixed-depth tests of every reply. Settles
/// both ways a move whose replies the tests reach to the full depth.
TRootResult SieveFirstMove(TChessboard& root, TMove move);

}  // namespace tarnwick
