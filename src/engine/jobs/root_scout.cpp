#include "engine/jobs/root_scout.h"

#include <algorithm>
#include <mutex>
#include <new>

#include "platform/clock.h"

#include "engine/heuristics/heuristic_bits.h"
#include "engine/jobs/heuristic_passes.h"
#include "engine/jobs/job_memory.h"
#include "engine/scout/mate_scout.h"
#include "engine/search/engine_state.h"

namespace tarnwick {
namespace {

/// Shorter problems are searched in full before a scout could set out.
constexpr int LeastPlies = 11;
/// From here up all keys can hardly be found anyway, so that the first one is worth a try, and every
/// thread that there is may scout.
constexpr int LeastPliesForAllKeys = 17;

/// One or two seconds for a mate in six, three times as much for each further move: less than the full
/// search grows by.
constexpr std::uint64_t BudgetAtLeastPlies = 100'000;
constexpr std::uint64_t GrowthPerMove = 3;
constexpr std::uint64_t MostBudget = 25'000'000;
/// With heuristics a job has many scouts.
constexpr std::uint64_t BudgetsOfAll = 4;

/// The longest first turn of the scout that looks at all moves, two seconds or so. Nearly all that is solved at
/// all is solved in it; only what is left is worth the turns of others.
constexpr std::uint64_t FirstTurn = 500'000;
/// First turn of all others, and how turns grow from round to round. The scout of all moves has turns as
/// long as those of all others together: half of the work is always that of the one that needs no luck.
constexpr std::uint64_t TurnOfFirstRound = 15'000;
constexpr std::uint64_t GrowthPerRound = 3;

/// A scout's rules, and how far it got.
struct TScoutPlan {
    const char* name = "scout";
    TScoutFilter filter;
    const THeuristicRung* pRung = nullptr;  ///< Null: no heuristics.
    bool bFailed = false;
    TPassReport report{};
};

/// Moves that leave few replies or threaten mate.
constexpr TScoutFilter ForcingFilters[] = {
    {.mostReplies = 2, .bThreats = true},
    {.mostReplies = 4, .bThreats = true},
};

/// Heuristics that hardly change what a scout looks at: a set of these alone is not worth one, nor are two
/// sets that differ in nothing else.
constexpr std::uint32_t MinorHeuristics =
    SH_FINDFORCEDMATE | SH_3MOVESTOMATE | SH_DONTLETPROMOTEDQUEENMOVE |
    SH_DONTLETPROMOTEDFIGUREMOVE | SH_DONTLETBLACKQUEENCHECKTWICE;

bool LookAlike(const THeuristicRung& a, const THeuristicRung& b) {
    const TSpecialHeuristics& p = a.parameters;
    const TSpecialHeuristics& q = b.parameters;
    return (a.mask & ~MinorHeuristics) == (b.mask & ~MinorHeuristics) &&
           p.bKingStrict == q.bKingStrict && p.bKingAlmostStrict == q.bKingAlmostStrict &&
           p.bExtEdgeStrict == q.bExtEdgeStrict && p.bSurroundedStrict == q.bSurroundedStrict &&
           p.UnblockFieldCount == q.UnblockFieldCount;
}

/// The sets that are worth a scout. Of those that look alike the last, which is the weakest.
std::vector<const THeuristicRung*> RungsForScouts(const std::vector<THeuristicRung>& ladder) {
    std::vector<const THeuristicRung*> rungs;
    for (const THeuristicRung& rung : ladder) {
        if ((rung.mask & ~MinorHeuristics) == 0) {
            continue;
        }
        if (rungs.empty() || !LookAlike(*rungs.back(), rung)) {
            rungs.push_back(&rung);
        } else {
            rungs.back() = &rung;
        }
    }
    return rungs;
}

std::vector<TScoutPlan> MakePlans(const TRootSearch& search) {
    std::vector<TScoutPlan> plans{TScoutPlan{}};
    if (search.ladder.empty()) {
        return plans;
    }
    for (const TScoutFilter& filter : ForcingFilters) {
        plans.push_back({.name = "forcing scout", .filter = filter});
    }
    for (const THeuristicRung* pRung : RungsForScouts(search.ladder)) {
        plans.push_back({.name = "heuristic scout", .filter = {}, .pRung = pRung});
    }
    for (std::size_t i = 0; i < plans.size(); ++i) {
        plans[i].filter.salt = static_cast<std::uint16_t>(i);
    }
    return plans;
}

/// The root in the pass that a scout works in, put back at the end.
class CScoutRoot {
  public:
    CScoutRoot(TThreadContext& thread, TChessboard& root, const TScoutPlan& plan)
        : m_thread(thread), m_root(root), m_before(RungOf(thread, root)), m_pass(root.m_pass) {
        TakeRung(plan.pRung != nullptr ? *plan.pRung : THeuristicRung{}, thread, root);
        root.m_heuristicFlags.SetRaw(root.m_heuristicFlags.Raw() & ~SH_FINDFORCEDMATE);
        root.m_pass = static_cast<std::uint8_t>(plan.pRung != nullptr ? HeuristicPass : FinalPass);
    }
    ~CScoutRoot() {
        TakeRung(m_before, m_thread, m_root);
        m_root.m_pass = m_pass;
    }
    CScoutRoot(const CScoutRoot&) = delete;
    CScoutRoot& operator=(const CScoutRoot&) = delete;

  private:
    TThreadContext& m_thread;
    TChessboard& m_root;
    const THeuristicRung m_before;
    const std::uint8_t m_pass;
};

/// The scouts of one thread, which share its table.
class TScoutTeam {
  public:
    TScoutTeam(TRootSearch& search, TThreadContext& thread, TChessboard& root, TScoutShare share)
        : m_search(search),
          m_thread(thread),
          m_root(root),
          m_table(ScoutTableMiB(search.task.m_options) / static_cast<std::size_t>(share.parts)),
          m_all(MakePlans(search)) {
        for (std::size_t i = 0; i < m_all.size(); ++i) {
            if (static_cast<int>(i) % share.parts == share.part) {
                m_plans.push_back(&m_all[i]);
            }
        }
        const std::uint64_t budget = ScoutBudget(search.task.m_shPlies);
        m_budget = m_all.size() == 1 ? budget : budget * BudgetsOfAll;
    }

    /// Writes what each scout did into the search's list of passes.
    ~TScoutTeam() {
        const std::lock_guard guard(m_search.lock);
        for (TScoutPlan* pPlan : m_plans) {
            if (!pPlan->report.name.empty()) {
                m_search.passes.push_back(std::move(pPlan->report));
            }
        }
    }
    TScoutTeam(const TScoutTeam&) = delete;
    TScoutTeam& operator=(const TScoutTeam&) = delete;

    /// True: a key was found, and the search is over.
    bool Run() {
        if (m_plans.size() == 1 && !m_plans[0]->filter.IsOn() && m_plans[0]->pRung == nullptr) {
            return TakesTurn(*m_plans[0], m_budget);
        }
        const std::uint64_t first = std::min(FirstTurn, m_budget / BudgetsOfAll);
        if (!m_plans.empty() && m_plans[0] == &m_all[0] && TakesTurn(*m_plans[0], first)) {
            return true;
        }
        for (std::uint64_t turn = TurnOfFirstRound; MayGoOn(); turn *= GrowthPerRound) {
            for (TScoutPlan* pPlan : m_plans) {
                const bool bAllMoves = pPlan == &m_all[0];
                if (TakesTurn(*pPlan, bAllMoves ? turn * CountOpenOthers() : turn)) {
                    return true;
                }
            }
        }
        return false;
    }

  private:
    /// At least one, so that the scout of all moves goes on when it is alone.
    std::uint64_t CountOpenOthers() const {
        const auto open = std::count_if(m_plans.begin(), m_plans.end(), [this](const auto* p) {
            return p != &m_all[0] && !p->bFailed;
        });
        return std::max<std::uint64_t>(1, static_cast<std::uint64_t>(open));
    }

    bool MayGoOn() const {
        const bool bAnyLeft = std::any_of(m_plans.begin(), m_plans.end(),
                                          [](const TScoutPlan* p) { return !p->bFailed; });
        return bAnyLeft && m_expanded < m_budget && !IsStopRequested(m_thread) &&
               !m_search.bStopRuleMet;
    }

    bool TakesTurn(TScoutPlan& plan, std::uint64_t turn) {
        if (plan.bFailed || !MayGoOn()) {
            return false;
        }
        const CScoutRoot root(m_thread, m_root, plan);
        const std::int64_t before = NowMs();
        plan.report.name = plan.name;
        plan.report.heuristics = HeuristicListOf(m_root);
        TMateScout scout(m_thread, m_table, std::min(turn, m_budget - m_expanded), plan.filter);
        const std::optional<TMove> key = scout.FindKey(m_root);
        m_expanded += scout.Expanded();
        plan.bFailed = scout.HasFailed();
        plan.report.bComplete = plan.bFailed;
        plan.report.nodes += scout.Expanded();
        plan.report.ms += static_cast<std::uint64_t>(NowMs() - before);
        if (!key) {
            return false;
        }
        plan.report.keysFound = 1;
        for (std::size_t i = 0; i < m_search.moves.size(); ++i) {
            if (m_search.moves[i].move.SameAs(*key)) {
                NoteFinder(m_search, plan.name);
                AddSolution(m_search, i);
            }
        }
        return true;
    }

    TRootSearch& m_search;
    TThreadContext& m_thread;
    TChessboard& m_root;
    TProofTable m_table;
    std::vector<TScoutPlan> m_all;
    std::vector<TScoutPlan*> m_plans;  ///< Those of this thread.
    std::uint64_t m_budget = 0;
    std::uint64_t m_expanded = 0;
};

}  // namespace

std::uint64_t ScoutBudget(int plies) {
    std::uint64_t budget = BudgetAtLeastPlies;
    for (int p = LeastPlies; p + 2 <= plies && budget < MostBudget; p += 2) {
        budget *= GrowthPerMove;
    }
    return std::min(budget, MostBudget);
}

bool MayScout(const TRootSearch& search) {
    const TEngineOptions& options = search.task.m_options;
    const int plies = search.task.m_shPlies;
    const bool bLongEnough = plies >= (options.bAllSolutions ? LeastPliesForAllKeys : LeastPlies);
    return options.bScout && bLongEnough && ScoutTableMiB(options) > 0;
}

TScoutShare ScoutShareOf(const TRootSearch& search, int thread, int threads) {
    if (!MayScout(search)) {
        return {0, 0};
    }
    if (search.task.m_shPlies >= LeastPliesForAllKeys && !search.ladder.empty()) {
        return {thread, threads};
    }
    return {0, thread + 1 == threads ? 1 : 0};
}

void ScoutRoot(TRootSearch& search, TThreadContext& thread, TChessboard& root, TScoutShare share) {
    if (share.parts == 0) {
        return;
    }
    try {
        TScoutTeam(search, thread, root, share).Run();
    } catch (const std::bad_alloc&) {  // The full search needs no scout.
        ++search.task.m_failedThreads;
    }
}

}  // namespace tarnwick
