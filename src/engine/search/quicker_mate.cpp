// Before a reply is searched to its full depth, shorter mates are tried, one move longer each time. Most
// replies of a long problem fall to a short mate, and what is learned on the way orders the deeper tries.

#include <algorithm>

#include "engine/search/engine_state.h"
#include "engine/search/find_mate.h"
#include "engine/search/node_hooks.h"

namespace tarnwick {
namespace {

/// No deepening goes beyond this: a mate in seven.
constexpr int LongestQuickerMate = 13;

int DeepeningLimit(const TChessboard& child) {
    int limit = std::min(child.m_shPlies - 1, LongestQuickerMate);
    const int men = std::popcount(OccupiedFields(child));
    if (child.m_whiteQueens >= 3 && men < 16) {
        limit = std::min(limit, 9);
    }
    return std::min<int>(limit, child.m_shPlies);
}

/// Additional moves for deepening step k. A register or table may answer with a longer mate on the last
/// steps, as long as it stays inside the plies truly left.
void SetAdditionalMoves(TThreadContext& thread, const TChessboard& child, int k, int limit) {
    const int spareMoves = (child.m_shPlies - k) / 2;
    if (thread.m_quickerMateNesting > 1) {
        thread.m_additionalMoves += thread.m_additionalMoves != 0 ? spareMoves : 0;
        return;
    }
    const bool bLastSteps = k + 6 > limit;
    const bool bStart = k + 6 == limit && child.m_shPlies - k >= 15 && !MayTablesHold(child);
    if (bStart) {
        thread.m_bUsedAdditionalMoves = false;
    }
    if (bStart || (bLastSteps && thread.m_additionalMoves >= 1)) {
        thread.m_additionalMoves = spareMoves;
    }
}

/// The child as if only k plies were left.
bool MatesWithin(TThreadContext& thread, TChessboard& child, int k) {
    const std::uint16_t plies = child.m_shPlies;
    thread.m_repetitionLimit[static_cast<std::size_t>(k)] = thread.m_repetitionLimit[plies];
    child.m_shPlies = static_cast<std::uint16_t>(k);
    const TNodeResult result = FindMateWhiteToMove(child, true);
    child.m_shPlies = plies;
    return result == ResultMate;
}

}  // namespace

bool LookForQuickerMate(TChessboard& child) noexcept {
    TThreadContext& thread = Thread(child);
    const int additionalBefore = thread.m_additionalMoves;
    const std::uint64_t nodesBefore = thread.m_nodes;
    if (thread.m_quickerMateNesting++ == 0) {
        thread.m_quickerMateStartPlies = child.m_shPlies;
        thread.m_nodesAtQuickerMate = nodesBefore;
    }
    const int limit = DeepeningLimit(child);
    bool bMate = false;
    for (int k = 1; k <= limit && !bMate && !IsStopRequested(thread); k += 2) {
        const int additional = thread.m_additionalMoves;
        SetAdditionalMoves(thread, child, k, limit);
        bMate = MatesWithin(thread, child, k);
        if (thread.m_quickerMateNesting > 1) {
            thread.m_additionalMoves = additional;
        }
    }
    --thread.m_quickerMateNesting;
    thread.m_nodes = nodesBefore;
    thread.m_additionalMoves = thread.m_quickerMateNesting == 0 ? 0 : additionalBefore;
    return bMate;
}

}  // namespace tarnwick
