#pragma once
// The check that a position may start a task, and its material.

#include <cstdint>

#include "chess/chessboard.h"

namespace tarnwick {

/// Men of one colour beside the king.
struct TMenCounts {
    int queens = 0;
    int rooks = 0;
    int bishops = 0;
    int knights = 0;
    int pawns = 0;

    int Figures() const { return queens + rooks + bishops + knights; }
    int Men() const { return Figures() + pawns; }
};

/// Material of a start position. Differences are White's number minus Black's, sums are both together;
/// the kings are not counted, as they cancel out or add two that nobody asks for.
struct TMaterialRecord {
    TMenCounts white;
    TMenCounts black;
    TMenCounts difference;
    TMenCounts sum;
};

/// Counts what stands on the fields; the board need not be prepared.
TMaterialRecord CountMaterial(const TChessboard& board);

/// Prepares the position for a task of that many plies (odd: White mates; even: Black defends) and
/// refuses it when the side that is not to move stands in check. On success *pMaterial, if not null,
/// receives the material of *pOriginalBoard, or of the board itself when that is null: a task may begin
/// after moves have been played, and the user's own position then tells the kind of problem.
///
/// Throws ChessException: what PreparePosition throws, and the two texts about the checked king. The
/// board is unusable then.
void CheckStartPosition(TChessboard& board, std::uint16_t shPlies, bool bClearFlags,
                        const TChessboard* pOriginalBoard, TMaterialRecord* pMaterial);

}  // namespace tarnwick
