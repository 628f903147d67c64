#pragma once
// The scouts at the root of a job: tries for one mate by proof numbers before the first moves are searched
// in full. They settle in moments what hangs on forcing play, however long, and are given up after an
// effort that the full search of such a length would hardly notice.
//
// One scout looks at all moves. Others look at forcing moves only, more and more of them, or work under
// the heuristics of the job's passes, from the strictest set to the weakest. A scout whose rules are too
// strict fails at once, so that a ladder of them costs little; they take turns that grow longer.

#include "engine/jobs/root_search.h"

namespace tarnwick {

/// Whether scouts are worth their time: somebody wants one key, or the problem is so long that any key
/// is good news, and there is memory for their table.
bool MayScout(const TRootSearch& search);

/// Which of the job's scouts a thread sends out: number `part` of `parts`, counted round.
struct TScoutShare {
    int part = 0;
    int parts = 1;
};

/// How the scouts are shared by so many threads. Short problems need one thread to scout, and the others
/// for the search.
TScoutShare ScoutShareOf(const TRootSearch& search, int thread, int threads);

/// Runs the thread's share of the scouts on its root, which is afterwards as before. A key that one of
/// them proves is added to the solutions. A share with no parts does nothing.
void ScoutRoot(TRootSearch& search, TThreadContext& thread, TChessboard& root, TScoutShare share);

/// Expanded nodes after which the scout of a root with so many plies gives up.
std::uint64_t ScoutBudget(int plies);

}  // namespace tarnwick
