// The pass loop. Pass 0 is the sieve of short mates; pass 2 searches every first move that is still open
// to its full depth. (Pass 1 is the pass of the heuristics.)

#include "engine/jobs/root_search.h"

#include "chess/generate_moves.h"
#include "chess/make_move.h"
#include "chess/mate_in_one.h"
#include "engine/ordering/root_order.h"
#include "engine/search/engine_state.h"
#include "engine/search/find_mate.h"

namespace tarnwick {
namespace {

constexpr int SievePass = 0;
constexpr int FinalPass = 2;

bool IsStopRuleMet(const TEngineOptions& options, int solutions) {
    if (!options.bAllSolutions) {
        return solutions >= 1;
    }
    return (options.bStopOnDual && solutions >= 2) || (options.bStopOn3Sol && solutions >= 3);
}

void AddSolution(TRootSearch& search, TRootMove& rootMove) {
    rootMove.result = TRootResult::Mate;
    ++search.solutions;
    search.bStopRuleMet = IsStopRuleMet(search.task.m_options, search.solutions);
    if (search.task.m_callbacks.onSolution) {
        search.task.m_callbacks.onSolution(rootMove.move);
    }
}

TRootResult SearchFirstMove(TRootSearch& search, TMove move) {
    TChessboard* child = CopyToNextSlot(search.root);
    if (MakeWhiteMove(*child, move) == MoveRefused) {
        return TRootResult::NoMate;
    }
    return FindMateBlackToMove(*child) == ResultMate ? TRootResult::Mate : TRootResult::NoMate;
}

void RunPass(TRootSearch& search, int pass) {
    search.root.m_pass = static_cast<std::uint8_t>(pass);
    const int count = static_cast<int>(search.moves.size());
    for (int i = 0; i < count && !search.bStopRuleMet; ++i) {
        TRootMove& rootMove = search.moves[static_cast<std::size_t>(i)];
        if (MustLeave(search.thread)) {
            return;
        }
        if (rootMove.result != TRootResult::Unknown) {
            continue;
        }
        search.thread.m_currentFirstMove = rootMove.move;
        search.thread.m_plies[search.root.m_shPlies].moveIndex = static_cast<std::uint16_t>(i);
        if (search.task.m_callbacks.onFirstMove) {
            search.task.m_callbacks.onFirstMove(rootMove.move, i, count, pass);
        }
        const TRootResult result = pass == SievePass ? SieveFirstMove(search, rootMove.move)
                                                     : SearchFirstMove(search, rootMove.move);
        if (result == TRootResult::Mate) {
            AddSolution(search, rootMove);  // A mate that was found is one, stop or no stop.
        } else if (IsStopRequested(search.thread)) {
            return;
        } else {
            rootMove.result = result;
        }
    }
}

/// Mate in one: the mating moves are the solutions, and nothing is left to search.
void SolveMateInOne(TRootSearch& search) {
    TMove moves[MaxMovesOfSide];
    const int count = GenerateMatingMoves(search.root, moves);
    for (int i = 0; i < count && !search.bStopRuleMet; ++i) {
        search.moves.push_back({moves[i], TRootResult::Unknown});
        AddSolution(search, search.moves.back());
    }
}

}  // namespace

void FindMateAtRoot(TRootSearch& search) {
    if (search.root.m_shPlies == 1) {
        SolveMateInOne(search);
        return;
    }
    for (TMove move : SortFirstMoves(search.root)) {
        move.fourth = 0;  // The sort score has done its work.
        search.moves.push_back({move, TRootResult::Unknown});
    }
    for (const int pass : {SievePass, FinalPass}) {
        RunPass(search, pass);
    }
}

}  // namespace tarnwick
