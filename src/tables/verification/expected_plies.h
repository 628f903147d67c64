#pragma once
// The value that a position must have by the values one move of each side further on.
//
// It goes over the board and the rules of the program, not over the fields that generation works with, so
// that each checks the other. Castling is unknown to tables: Black's is passed over, and White's king
// stands on no field from which he could castle.

#include <functional>
#include <memory>

#include "chess/chessboard.h"
#include "tables/register/table_store.h"
#include "tables/table_index.h"

namespace tarnwick {

/// A table with its index arithmetic.
struct TFoundTable {
    std::shared_ptr<const CTableIndex> pIndex;
    std::shared_ptr<CTableStore> pValues;
};

/// The table of the board's men; null where there is none. Any thread.
using TTableLookup = std::function<const TFoundTable*(const TChessboard& board)>;

/// In plies, 0 for no mate, PliesUnknown for a position that has not been generated: for the positions
/// further on that counts as no mate yet.
inline constexpr unsigned PliesUnknown = NotGenerated;
constexpr unsigned PliesOfMoves(unsigned moves) {
    return moves == 0 || moves == NotGenerated ? moves : 2 * moves - 1;
}

/// White to move, in a board stack; its table is `own`. Throws ChessException naming a type for which there is no
/// table and no verdict.
unsigned ExpectedPlies(TChessboard& board, const TFoundTable& own, const TTableLookup& lookup);

}  // namespace tarnwick
