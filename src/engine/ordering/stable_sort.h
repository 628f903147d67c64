#pragma once
// A stable sort of a move list in place. The library's stable sort allocates a buffer; a search may not.

#include "chess/move.h"

namespace tarnwick {

/// Insertion sort by ascending keyOf(move): lists are short and often nearly in order.
template <typename TKeyOf>
void SortStably(TMove* pMoves, int count, TKeyOf keyOf) {
    for (int i = 1; i < count; ++i) {
        const TMove move = pMoves[i];
        int j = i;
        for (; j > 0 && keyOf(pMoves[j - 1]) > keyOf(move); --j) {
            pMoves[j] = pMoves[j - 1];
        }
        pMoves[j] = move;
    }
}

}  // namespace tarnwick
