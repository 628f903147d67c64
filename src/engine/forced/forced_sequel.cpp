#include "engine/forced/forced_sequel.h"

#include <algorithm>

#include "engine/forced/forced_scopes.h"
#include "engine/heuristics/position_tests.h"

namespace tarnwick {
namespace {

/// Plies that are looked at behind a forced line: each node of it may ask.
constexpr int LongestSequel = 7;
/// Far from the leaves White's weakest moves are left out where there are many.
constexpr int MostPliesWithAllMoves = 13;
/// What holds the black king.
constexpr std::uint32_t HoldsKing = EdgeHeuristics | SH_ASSERTBLACKKINGSURROUNDED;

std::uint32_t SetOfSequel(const TChessboard& board) {
    const std::uint32_t mask = board.m_heuristicFlags.Raw() & ~SH_FINDFORCEDMATE;
    const bool bManyMoves = board.m_whiteQueens > 1 || board.m_whiteRooks > 1;
    return bManyMoves && board.m_shPlies > MostPliesWithAllMoves ? mask | SH_SKIPWORSTWHITEMOVES
                                                                 : mask;
}

bool MatesUnder(TChessboard& board, std::uint32_t mask) {
    const CHeuristicsScope set(board, mask);
    const CNestedWork nested(board);
    CPliesScope plies(board);
    plies.Set(std::min<int>(board.m_shPlies, LongestSequel));
    return FindMateWhiteToMove(board, true) == ResultMate;
}

bool IsWorthSequel(const TChessboard& board) {
    const TThreadContext& thread = Thread(board);
    return thread.m_heuristics.ForcedWithOthers >= TForcedWithOthers::Partially &&
           board.m_heuristicFlags.HasAny(HoldsKing) && board.m_pass == 1 &&
           thread.m_quickerMateNesting == 0 && BlackFigureCount(board) > 0 && IsMatingNet(board);
}

}  // namespace

/// First with the king held, then with the saved and the promoted figures watched in its place.
bool MatesBySequel(TChessboard& board) noexcept {
    if (!IsWorthSequel(board)) {
        return false;
    }
    const std::uint32_t mask = SetOfSequel(board);
    return MatesUnder(board, mask) ||
           MatesUnder(board, (mask & ~HoldsKing) | SH_DONTLETPROMOTEDFIGUREMOVE | SH_SAVEQUEENROOK);
}

}  // namespace tarnwick
