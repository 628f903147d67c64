#pragma once
// What is known of the position on the board without a search: by a look at its moves, and from the
// register of the problem's last solve, which may just be running. Takes some milliseconds at most: while the register is cleared or swept, what
// it holds counts as unknown.

#include <optional>
#include <string>

#include "chess/chessboard.h"
#include "registers/aggregated_register.h"

namespace tarnwick {

enum class TKnownMate {
    Unknown,
    Exactly,  ///< A mate in so many moves and not in fewer.
    AtMost,   ///< A mate in so many moves; perhaps there is a shorter one.
    NoMate,   ///< None within the moves that are left.
    Stalemate
};

/// White's move that would mate if Black could pass.
struct TKnownThreat {
    TMove move;
    int moves = 1;  ///< Until the mate, this move counted.
};

struct TKnownPosition {
    TKnownMate mate = TKnownMate::Unknown;
    int moves = 0;  ///< Of White, until the mate.
    std::optional<TKnownThreat> threat;
};

/// Of a prepared board with its plies left and its history, which tells about castling and en passant.
/// pRegister may be null. Throws ChessException when there is no memory for trial moves.
TKnownPosition LookUpPosition(const TChessboard& board,
                              const TAggregatedTemporaryChessboardRegister* pRegister);

/// "No mate in this position", "threat: Qa1-a8 (#1)" and the like, joined by "; "; empty: nothing known.
std::string KnownPositionText(const TKnownPosition& known, const TChessboard& board);

}  // namespace tarnwick
