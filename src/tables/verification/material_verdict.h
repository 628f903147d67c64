#pragma once
// What a position with few men and no table is worth by its material.

#include "chess/chessboard.h"

namespace tarnwick {

enum class TMaterialVerdict : std::uint8_t {
    NoMate,
    Mate,    ///< There is one, in at most two moves.
    Unknown  ///< Only a table can tell.
};

/// White to move, m_whiteChecker valid, the board in a board stack with free slots behind it.
TMaterialVerdict MaterialVerdict(TChessboard& board);

}  // namespace tarnwick
