#pragma once
// The root board of a job or of a look at a position, on the boards of a search thread.

#include "chess/chessboard.h"

namespace tarnwick {

struct TSolveTask;
struct TThreadContext;

/// The fields of `position` with White to move and everything that the search reads of a root: plies, job,
/// thread, and the job's material. The job's m_shPlies must be set. The thread must be told where the
/// returned board stands (m_pRootBoard). Throws ChessException for a position that cannot be solved.
TChessboard PrepareRoot(TSolveTask& task, TThreadContext& thread, const TChessboard& position);

}  // namespace tarnwick
