#pragma once
// The scout at the root of a job: a try for one mate by proof numbers before the first moves are searched
// in full. It settles in moments what hangs on forcing play, however long, and is given up after an
// effort that the full search of such a length would hardly notice.

#include "engine/jobs/root_search.h"

namespace tarnwick {

/// Whether the scout is worth its time: somebody wants one key, or the problem is so long that any key
/// is good news, and there is memory for its table.
bool MayScout(const TRootSearch& search);

/// Runs the scout on this thread and root. A key that it proves is added to the solutions.
void ScoutRoot(TRootSearch& search, TThreadContext& thread, TChessboard& root);

/// Expanded nodes after which the scout of a root with so many plies gives up.
std::uint64_t ScoutBudget(int plies);

}  // namespace tarnwick
