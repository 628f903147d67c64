// One first move of the root, under the heuristics that suit a forced search.

#include "chess/board_tables.h"
#include "chess/make_move.h"
#include "engine/forced/find_forced_mate.h"
#include "engine/forced/forced_moves.h"
#include "engine/forced/forced_scopes.h"
#include "engine/heuristics/board_questions.h"
#include "engine/heuristics/one_colour_play.h"
#include "engine/jobs/moves_logger.h"
#include "engine/search/engine_state.h"

namespace tarnwick {
namespace {

bool ReplacesEdgeByArea(const TChessboard& board) {
    if (board.m_whiteQueens == 1 && board.m_whiteBishops == 1 && WhiteFigureCount(board) == 2) {
        return true;
    }
    return board.m_whiteQueens == 0 && board.m_whiteRooks <= 1 && DistanceOfKings(board) <= 2;
}

/// What holds below a first move. A heuristic that takes a man off the board has no place where a mate is
/// to be a mate. A small force holds the king by the fields around it rather than
/// by the edge.
std::uint32_t ForcedSet(const TChessboard& root, const TSpecialHeuristics& parameters) {
    if (parameters.ForcedWithOthers == TForcedWithOthers::No) {
        return SH_FINDFORCEDMATE;
    }
    std::uint32_t mask = root.m_heuristicFlags.Raw() | SH_FINDFORCEDMATE;
    mask &= ~SH_ONECOLORPLAYPOSSIBLE;
    if ((mask & SH_KEEPKINGONTHEEDGE) != 0 && ReplacesEdgeByArea(root)) {
        mask = (mask & ~SH_KEEPKINGONTHEEDGE) | SH_ASSERTBLACKKINGSURROUNDED;
    }
    return mask;
}

}  // namespace

TNodeResult SearchForcedFirstMove(TThreadContext& thread, TChessboard& root, TMove move) noexcept {
    if (MustLeave(thread) || root.m_shPlies < LeastForcedPlies || IsOneColourPlay(root)) {
        return ResultDoubtful;
    }
    const CHeuristicsScope set(root, ForcedSet(root, thread.m_heuristics));
    if (!IsForcedMove(root, move)) {
        return ResultDoubtful;
    }
    TChessboard* child = CopyToNextSlot(root);
    MakeWhiteMove(*child, move);
    if (thread.m_pLogger != nullptr) {
        thread.m_pLogger->LogMove(*child);
    }
    const TNodeResult result =
        FindForcedMateAtRoot(*child) == ResultMate ? ResultMate : ResultDoubtful;
    if (thread.m_pLogger != nullptr) {
        thread.m_pLogger->LogResult(*child, result);
    }
    return result;
}

}  // namespace tarnwick
