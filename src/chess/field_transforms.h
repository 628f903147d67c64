#pragma once
// Transforms of a whole position: where each field, move and man goes.

#include "chess/chessboard.h"

namespace tarnwick {

enum class TTransform : std::uint8_t {
    SwapColours,  ///< Top to bottom, and every man changes colour.
    ShiftLeft,    ///< One file towards a.
    ShiftRight,   ///< One file towards h.
    ShiftDown,    ///< One rank towards 1.
    ShiftUp,      ///< One rank towards 8.
    Rotate,       ///< Clockwise by 90 degrees: a1 goes to a8.
    Mirror        ///< Left to right.
};

/// Where the field goes; NoField when a shift pushes it off the board.
TField TransformField(TTransform transform, TField field) noexcept;

/// Takes the move along, its promotion as it is. False, and the move as it was, when a field of it
/// leaves the board. A castling becomes the same king's move elsewhere, which is none any more except
/// under SwapColours.
bool TransformMove(TTransform transform, TMove& move) noexcept;

/// The man's code after the transform: only SwapColours changes it.
TFigureCode TransformMan(TTransform transform, TFigureCode code) noexcept;

/// Moves all men and prepares the position anew; men that a shift pushes off the board are lost.
/// Everything that the fields do not tell stays. Throws what PreparePosition throws (a king was lost, a
/// pawn came to rank 1 or 8), the board then as it was.
void TransformPosition(TTransform transform, TChessboard& board);

}  // namespace tarnwick
