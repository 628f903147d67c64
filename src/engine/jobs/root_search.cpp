// The pass loop. Pass 0 is the sieve of short mates. Pass 1 searches every first move that is still open
// under a set of heuristics; while it finds nothing it is run again with a weaker set, as 1b, 1c and so
// on. Pass 2 searches without heuristics what is open then, and only it decides that there is no mate.

#include "engine/jobs/root_search.h"

#include <algorithm>
#include <optional>

#include "platform/clock.h"

#include "chess/generate_moves.h"
#include "chess/make_move.h"
#include "chess/mate_in_one.h"
#include "engine/forced/find_forced_mate.h"
#include "engine/heuristics/pass_checks.h"
#include "engine/heuristics/relaxation.h"
#include "engine/heuristics/search_hooks.h"
#include "engine/jobs/heuristic_passes.h"
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

/// A first move as the white node searches its moves.
TNodeResult SearchFirstMove(TThreadContext& thread, TChessboard& root, TMove move) {
    TChessboard* child = CopyToNextSlot(root);
    if (MakeWhiteMove(*child, move) == MoveRefused) {
        return IsRefusedByHeuristic(root, move) ? ResultDoubtful : ResultNoMate;
    }
    if (IsCutAfterWhite(*child)) {
        return ResultDoubtful;
    }
    if (thread.m_pLogger == nullptr) {
        return FindMateBlackToMove(*child);
    }
    thread.m_pLogger->LogMove(*child);
    const TNodeResult result = FindMateBlackToMoveLogged(*child);
    thread.m_pLogger->LogResult(*child, result);
    return result;
}

/// What a pass says of a first move. A pass with heuristics never says that it does not mate.
TRootResult SearchFirstMove(TThreadContext& thread, TChessboard& root, TMove move, int pass) {
    if (pass == SievePass) {
        return SieveFirstMove(root, move);
    }
    const bool bForced = pass == HeuristicPass && root.m_shPlies >= LeastForcedPlies &&
                         root.m_heuristicFlags.HasAny(SH_FINDFORCEDMATE);
    const TNodeResult result =
        bForced ? SearchForcedFirstMove(thread, root, move) : SearchFirstMove(thread, root, move);
    if (result == ResultMate) {
        return TRootResult::Mate;
    }
    return pass == FinalPass ? TRootResult::NoMate : TRootResult::Unknown;
}

/// Keeps the result. A move that a stop left undecided stays open.
void KeepResult(TRootSearch& search, TThreadContext& thread, std::size_t i, TRootResult result) {
    if (result == TRootResult::Mate) {
        NoteFinder(search, search.passName);
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
        NoteFinder(search, "0");
        AddSolution(search, search.moves.size() - 1);
    }
}

/// Runs a pass and writes its report.
void RunReportedPass(TRootSearch& search, TRootThreads& threads, int pass, const std::string& name,
                     bool bScout) {
    TSolveTask& task = search.task;
    search.passName = name;
    TPassReport report{.name = name, .heuristics = HeuristicListOf(search.root)};
    const std::uint64_t nodesBefore = task.m_workNodes;
    const std::int64_t before = NowMs();
    const int keysBefore = search.solutions;
    task.Report(task.m_callbacks.onPass, report.name, report.heuristics);
    threads.RunPass(pass, bScout);
    TellNodesAndCheckLimits(search.thread);
    report.nodes = task.m_workNodes - nodesBefore;
    report.ms = static_cast<std::uint64_t>(NowMs() - before);
    report.keysFound = search.solutions - keysBefore;
    report.bComplete = !task.IsStopped() && !search.bStopRuleMet;
    search.passes.push_back(std::move(report));
}

bool IsAnyMoveOpen(const TRootSearch& search) {
    return std::any_of(search.moves.begin(), search.moves.end(), [](const TRootMove& rootMove) {
        return rootMove.result == TRootResult::Unknown;
    });
}

bool MayGoOn(const TRootSearch& search) {
    return !search.bStopRuleMet && !search.task.IsStopped() && IsAnyMoveOpen(search);
}

/// Whether the passes with heuristics go on with a weaker set, which is then on the root.
bool Relax(TRootSearch& search) {
    TSolveTask& task = search.task;
    if (search.solutions > 0 && task.m_options.bStopRelaxOnFirstSolution) {
        return false;
    }
    const auto output = [&task](const std::string& line) {
        task.Report(task.m_callbacks.onText, line);
    };
    return TryRelaxSpecialHeuristics(search.root, output) != NothingToRelax;
}

void RunHeuristicPasses(TRootSearch& search, TRootThreads& threads) {
    TAggregatedTemporaryChessboardRegister* pRegister = search.thread.m_pRegister;
    bool bScout = MayScout(search);
    for (int relaxations = 0; MayGoOn(search); ++relaxations) {
        const std::uint32_t mask = search.root.m_heuristicFlags.Raw();
        const std::uint32_t key = search.root.m_heuristicKey;
        if (pRegister != nullptr) {
            pRegister->RemoveDoubtful(mask, key);
        }
        RunReportedPass(search, threads, HeuristicPass, HeuristicPassName(relaxations), bScout);
        bScout = false;
        if (pRegister != nullptr) {
            pRegister->HoldDoubtful(mask, key);
        }
        if (!MayGoOn(search) || !Relax(search)) {
            return;
        }
    }
}

}  // namespace

void NoteFinder(TRootSearch& search, const std::string& name) {
    const std::lock_guard guard(search.lock);
    if (search.found.empty()) {
        search.found = name;
    }
}

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
        thread.m_plies[root.m_shPlies].moveIndex = static_cast<std::uint16_t>(*i);
        const TRootResult result = SearchFirstMove(thread, root, move, pass);
        KeepResult(search, thread, *i, result);
    }
}

int FindMateAtRoot(TRootSearch& search, bool bAllowForce) {
    search.ladder = HeuristicLadder(search.root);
    const bool bHeuristics = search.root.m_heuristicFlags.Raw() != 0;
    const THeuristicRung first = RungOf(search.thread, search.root);
    // The list of first moves has to be whole: no heuristic may refuse one while it is made.
    TakeRung({}, search.thread, search.root);
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
            TakeRung(first, search.thread, search.root);
            return -advice;
        }
    }
    TRootThreads threads(search);
    RunReportedPass(search, threads, SievePass, "0", false);
    if (bHeuristics) {
        TakeRung(first, search.thread, search.root);
        RunHeuristicPasses(search, threads);
        TakeRung({}, search.thread, search.root);
    }
    if (search.task.m_options.bRunPassWithoutHeuristics && MayGoOn(search)) {
        RunReportedPass(search, threads, FinalPass, "2", !bHeuristics && MayScout(search));
    }
    return 0;
}

}  // namespace tarnwick
