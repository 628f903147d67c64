#pragma once
// A level of threads: plain fork and join over the white moves of one node near the root. Each thread
// gets a slice of the ordered list and a copy of the board; the first that finds mate ends its siblings.
// All they share is the job with its register.

#include <optional>

#include "chess/chessboard.h"
#include "engine/search/node_result.h"

namespace tarnwick {

/// At most so many threads at the root and in one level.
inline constexpr int MostThreadsPerLevel = 64;

/// What the threads of a level run: a white node that takes the moves it is handed (m_presetMoveCount).
struct TLevelSearch {
    TNodeResult (*pWhiteNode)(TChessboard& board) noexcept;
    bool bLogger;  ///< The threads write move logs.
};

/// Searches the white moves of the node in threads. Nothing when no thread could be made: the node goes
/// on alone. On ResultRepetition the repetition limit stands in the slot of the ply below the node's, on
/// ResultMate the mating move in the thread's m_mateOfSlice. The list must outlive the call.
std::optional<TNodeResult> SearchInThreads(TChessboard& board, int moveCount, const TMove* pMoves,
                                           const TLevelSearch& search) noexcept;

/// The level of an ordinary node.
std::optional<TNodeResult> NextMultithreadingLevel(TChessboard& board, int moveCount,
                                                   const TMove* pMoves, bool bLogger) noexcept;

/// The number of the first thread that a node of this thread starts; the others follow by one. Each
/// thread of each level has its own range. threadsPerLevel is that of the job, width the number that a
/// level of this node may have at most; level counts the forks from the root to the new threads, which
/// may be fewer than the moves played: a node with one move makes none.
std::uint32_t FirstThreadNumber(int threadNumber, int threadsPerLevel, int width, int level);

/// The slice of thread k out of T: moves k, k + T, k + 2T and so on, so that each thread begins with one
/// of the best. pSlices has room for all moves; slice k begins at k * SliceSize.
int SliceSize(int moveCount, int threads);
void DealMoves(const TMove* pMoves, int moveCount, int threads, TMove* pSlices, int* pSizes);

}  // namespace tarnwick
