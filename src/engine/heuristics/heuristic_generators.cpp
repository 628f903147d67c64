#include "engine/heuristics/heuristic_generators.h"

#include <algorithm>

#include "chess/evasions.h"
#include "chess/generate_moves.h"
#include "chess/make_move.h"
#include "chess/move_list.h"
#include "engine/heuristics/heuristic_bits.h"
#include "engine/heuristics/key_white_figure.h"
#include "engine/heuristics/one_colour_play.h"
#include "engine/heuristics/sea_snake.h"
#include "engine/heuristics/zugzwang_position.h"
#include "engine/heuristics/zugzwang_triangle.h"
#include "engine/ordering/white_order.h"
#include "engine/search/thread_context.h"

namespace tarnwick {
namespace {

/// Nearer to the end the key figure may well be the one that mates.
constexpr int LeastPliesForKeyFigure = 8;
/// Far from the leaves the fine order of moves pays.
constexpr int LeastPliesForFullSort = 13;

using TIsWanted = bool (*)(TChessboard& board, TMove move);

/// One heuristic's view of the list.
struct TMoveFilter {
    std::uint32_t bit;
    TIsWanted isWanted;
};

bool IsOnTriangle(TChessboard& board, TMove move) {
    const TSpecialHeuristics& parameters = Thread(board).m_heuristics;
    return board.m_fields[move.from] == WhiteKing &&
           (move.to == parameters.TriangleField1 || move.to == parameters.TriangleField2 ||
            WhiteKingField(board) == parameters.TriangleField1 ||
            WhiteKingField(board) == parameters.TriangleField2);
}

bool ServesSeaSnake(TChessboard& board, TMove move) {
    if (MayServeSeaSnake(board, move)) {
        return true;
    }
    TChessboard* child = CopyToNextSlot(board);
    return MakeWhiteMove(*child, move) != MoveRefused && child->m_blackChecker != NoChecker;
}

bool ServesZugzwang(TChessboard& board, TMove move) {
    return MayServeZugzwang(board, move);
}

bool IsNotByKeyFigure(TChessboard& board, TMove move) {
    return board.m_shPlies < LeastPliesForKeyFigure || !IsLeftOutByKeyFigure(board, move);
}

/// In the order in which they are asked.
constexpr TMoveFilter Filters[] = {{SH_ZUGZWANGTRIANGLES, IsOnTriangle},
                                   {SH_SEASNAKE, ServesSeaSnake},
                                   {SH_ZUGZWANG, ServesZugzwang},
                                   {SH_KEYWHITEFIGURE, IsNotByKeyFigure}};

/// Fields of the other colour are left out with it, so that the node knows that its list is not whole.
bool MayPlayInOneColour(const TChessboard& board, TMove move) {
    return !IsOneColourPlay(board) ||
           board.m_pThread->m_pHooks->m_pMayWhitePlayInOneColour(board, move);
}

int ListAll(const TChessboard& board, TMove* pList) {
    return board.m_whiteChecker != NoChecker ? GenerateWhiteEvasions(board, pList)
                                             : GenerateAllWhiteMoves(board, pList);
}

/// Legal by the rules of the game; the make operation of the search may refuse more.
int CountLegal(TChessboard& board, const TMove* pBegin, const TMove* pEnd) {
    return static_cast<int>(std::count_if(pBegin, pEnd, [&](TMove move) {
        return MakeWhiteMoveToTry(*CopyToNextSlot(board), move) != MoveRefused;
    }));
}

/// The wanted moves come to the front, sorted and legal. Their count, or -1 when the filter changes
/// nothing, or, unless bMayBeEmpty, leaves nothing.
template <class TWanted>
int TakeWanted(TChessboard& board, TMove* pList, int* pLeftOut, bool bMayBeEmpty,
               TWanted isWanted) {
    const int count = ListAll(board, pList);
    TMove* const end = pList + count;
    TMove* const wantedEnd = std::partition(pList, end, isWanted);
    const int leftOut = CountLegal(board, wantedEnd, end);
    if (leftOut == 0) {
        return -1;
    }
    bool bMate = false;
    const int kept = SortWhiteMoves(board, static_cast<int>(wantedEnd - pList), pList,
                                    board.m_shPlies < LeastPliesForFullSort, &bMate);
    if (kept == 0 && !bMayBeEmpty) {
        return -1;
    }
    *pLeftOut = leftOut;
    return kept;
}

}  // namespace

int GenerateHeuristicMoves(TChessboard& board, TMove* pList, int* pLeftOut) noexcept {
    *pLeftOut = 0;
    for (const TMoveFilter& filter : Filters) {
        if (!board.m_heuristicFlags.HasAny(filter.bit)) {
            continue;
        }
        const int count = TakeWanted(board, pList, pLeftOut, false, [&](TMove move) {
            return MayPlayInOneColour(board, move) && filter.isWanted(board, move);
        });
        if (count >= 0) {
            return count;
        }
    }
    if (!IsOneColourPlay(board)) {
        return -1;
    }
    return TakeWanted(board, pList, pLeftOut, true,
                      [&](TMove move) { return MayPlayInOneColour(board, move); });
}

}  // namespace tarnwick
