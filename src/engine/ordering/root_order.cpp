#include "engine/ordering/root_order.h"

#include <algorithm>

#include "chess/generate_moves.h"
#include "engine/ordering/white_order.h"

namespace tarnwick {

std::vector<TMove> SortFirstMoves(TChessboard& root) {
    TMove list[MaxMovesOfSide];
    const int count = GenerateAllWhiteMoves(root, list);
    std::vector<TMove> moves;
    for (int i = 0; i < count; ++i) {
        TMoveInfo info;
        if (AnalyseWhiteMove(root, list[i], info) >= 0) {
            list[i].fourth = ScoreWhiteMove(root, info, false);
            moves.push_back(list[i]);
        }
    }
    std::stable_sort(moves.begin(), moves.end(),
                     [](TMove a, TMove b) { return a.WhiteSortScore() < b.WhiteSortScore(); });
    return moves;
}

}  // namespace tarnwick
