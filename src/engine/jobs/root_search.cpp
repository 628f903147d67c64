// The pass loop. Pass 0 is the sieve of short mates; pass 2 searches every first move that is still open
// to its full depth. (Pass 1 is the pass of the heuristics.)

#include "engine/jobs/root_search.h"

#include <algorithm>
#include <optional>

#include "chess/generate_moves.h"
#include "chess/make_move.h"
#include "chess/mate_in_one.h"
#include "engine/jobs/moves_logger.h"
#include "engine/jobs/root_scout.h"
#include "engine/jobs/root_threads.h"
#include "engine/jobs/thread_advice.h"
#include "engine/ordering/root_order.h"
#include "engine/search/engine_state.h"
#include "engine/search/find_mate.h"

namespace tarnwick {
namespace {

bool IsStopRuleMet(const TEngineOptions& options, int solutions) {
    if (!options.bAllSolutions) {
        return solutions >= 1;
    }
    return (options.bStopOnDual && solutions >= 2) || (options.bStopOn3Sol && solutions >= 3);
}

/// The next open move of the pass; its index, or nothing when none is left or none is wanted.
std::optional<std::size_t> TakeMove(TRootSearch& search) {
    const std::lock_guard guard(search.lock);
    while (!search.bStopRuleMet && search.next < search.moves.size()) {
        const std::size_t i = search.next++;
        if (search.moves[i].result == TRootResult::Unknown) {
            return i;
        }
    }
    return std::nullopt;
}

TRootResult SearchFirstMove(TThreadContext& thread, TChessboard& root, TMove move) {
    TChessboard* child = CopyToNextSlot(root);
    if (MakeWhiteMove(*child, move) == MoveRefused) {
        return TRootResult::NoMate;
    }
    TNodeResult result = ResultNoMate;
    if (thread.m_pLogger != nullptr) {
        thread.m_pLogger->LogMove(*child);
        result = FindMateBlackToMoveLogged(*child);
        thread.m_pLogger->LogResult(*child, result);
    } else {
        result = FindMateBlackToMove(*child);
    }
    return result == ResultMate ? TRootResult::Mate : TRootResult::NoMate;
}

/// Keeps the result. A move that a stop left undecided stays open.
void KeepResult(TRootSearch& search, TThreadContext& thread, std::size_t i, TRootResult result) {
    if (result == TRootResult::Mate) {
        AddSolution(search, i);  // A mate that was found is one, stop or no stop.
    } else if (!IsStopRequested(thread) && thread.m_outsideStops == 0) {
        const std::lock_guard guard(search.lock);
        if (search.moves[i].result == TRootResult::Unknown) {
            search.moves[i].result = result;
        }
    }
    thread.m_outsideStops = 0;
}

/// Mate in one: the mating moves are the solutions, and nothing is left to search.
void SolveMateInOne(TRootSearch& search) {
    TMove moves[MaxMovesOfSide];
    const int count = GenerateMatingMoves(search.root, moves);
    for (int i = 0; i < count && !search.bStopRuleMet; ++i) {
        search.moves.push_back({moves[i], TRootResult::Unknown});
        AddSolution(search, search.moves.size() - 1);
    }
}

}  // namespace

void AddSolution(TRootSearch& search, std::size_t i) {
    {
        const std::lock_guard guard(search.lock);
        if (search.moves[i].result == TRootResult::Mate) {
            return;
        }
        search.moves[i].result = TRootResult::Mate;
        ++search.solutions;
        search.bStopRuleMet = IsStopRuleMet(search.task.m_options, search.solutions);
    }
    search.task.Report(search.task.m_callbacks.onSolution, search.moves[i].move);
}

void RunPass(TRootSearch& search, TThreadContext& thread, TChessboard& root, int pass) {
    root.m_pass = static_cast<std::uint8_t>(pass);
    thread.m_outsideStops = 0;
    while (!MustLeave(thread)) {
        const std::optional<std::size_t> i = TakeMove(search);
        if (!i) {
            return;
        }
        const TMove move = search.moves[*i].move;
        search.task.Report(search.task.m_callbacks.onFirstMove, move, static_cast<int>(*i),
                           static_cast<int>(search.moves.size()), pass);
        thread.m_currentFirstMove = move;
        thread.m_plies[root.m_shPlies].moveIndex = static_cast<std::uint16_t>(*i);
        const TRootResult result =
            pass == SievePass ? SieveFirstMove(root, move) : SearchFirstMove(thread, root, move);
        KeepResult(search, thread, *i, result);
    }
}

int FindMateAtRoot(TRootSearch& search, bool bAllowForce) {
    if (search.root.m_shPlies == 1) {
        SolveMateInOne(search);
        return 0;
    }
    for (TMove move : SortFirstMoves(search.root)) {
        move.fourth = 0;  // The sort score has done its work.
        search.moves.push_back({move, TRootResult::Unknown});
    }
    if (bAllowForce) {
        const int advice = AdviseThreads(search);
        if (advice != 0) {
            return -advice;
        }
    }
    TRootThreads threads(search);
    threads.RunPass(SievePass, false);
    threads.RunPass(FinalPass, MayScout(search));
    return 0;
}

}  // namespace tarnwick
