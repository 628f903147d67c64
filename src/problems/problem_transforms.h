#pragma once
// The user's transforms of a whole problem: position, answers, expected moves, variants, sort indications
// and the line of play go along.
//
// All throw ChessException with the text of PreparePosition when the new men make no position (a king
// was lost, a pawn came to rank 1 or 8); the problem is then as it was. What a shift pushes off the board
// is lost without a word: men, answers, sort indications, and a variant from that move on. A line of
// play is kept as far as its moves are still legal, since pawns and castlings have a direction.

#include "problems/chess_problem.h"

namespace tarnwick {

/// What the user should be told (problem_texts.h).
struct TTransformNotes {
    /// A variant had a castling, which now is a king's jump: CastlingNotRotatedText.
    bool bVariantHadCastling = false;
    /// The position allowed a castling before: CastlingChangedText, after a rotation or mirroring.
    bool bHadCastlingRights = false;
};

/// Top to bottom, and every man changes colour. The description gets "B&Wh.swapped: " in front.
TTransformNotes SwapColours(TChessProblem& problem);

/// delta is -1 (one file towards a), +1, -8 (one rank towards 1) or +8. The description stays.
TTransformNotes ShiftPosition(TChessProblem& problem, int delta);

/// Clockwise by 90 degrees. The description says by how much in all: "Rotated 90°: " and so on, nothing
/// after four rotations.
TTransformNotes RotatePosition(TChessProblem& problem);

/// Left to right. The description stays.
TTransformNotes MirrorPosition(TChessProblem& problem);

}  // namespace tarnwick
