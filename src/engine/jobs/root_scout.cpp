#include "engine/jobs/root_scout.h"

#include <algorithm>
#include <new>

#include "engine/jobs/job_memory.h"
#include "engine/scout/mate_scout.h"

namespace tarnwick {
namespace {

/// Shorter problems are searched in full before a scout could set out.
constexpr int LeastPlies = 11;
/// From here up all keys can hardly be found anyway, so that the first one is worth a try.
constexpr int LeastPliesForAllKeys = 17;

/// One or two seconds for a mate in six, three times as much for each further move: less than the full
/// search grows by.
constexpr std::uint64_t BudgetAtLeastPlies = 100'000;
constexpr std::uint64_t GrowthPerMove = 3;
constexpr std::uint64_t MostBudget = 25'000'000;

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

void ScoutRoot(TRootSearch& search, TThreadContext& thread, TChessboard& root) {
    try {
        TProofTable table(ScoutTableMiB(search.task.m_options));
        root.m_pass = FinalPass;
        TMateScout scout(thread, table, ScoutBudget(search.task.m_shPlies));
        const std::optional<TMove> key = scout.FindKey(root);
        if (!key) {
            return;
        }
        for (std::size_t i = 0; i < search.moves.size(); ++i) {
            if (search.moves[i].move.SameAs(*key)) {
                AddSolution(search, i);
            }
        }
    } catch (const std::bad_alloc&) {  // The full search needs no scout.
        ++search.task.m_failedThreads;
    }
}

}  // namespace tarnwick
