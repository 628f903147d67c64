#pragma once
// What a screen reader says about the board. UTF-8 in the user's language.

#include <string>

#include "app/view/move_drag.h"
#include "chess/chessboard.h"

namespace tarnwick {

/// "white knight"; "empty" for a code without a man. A marked pawn is a pawn.
std::string ManName(TFigureCode code);

/// "e4, white knight", "e4, empty", and behind it what the user does there: "selected", "can move here",
/// and whether the last move came from there or ended there.
std::string FieldNameForReader(const TChessboard& board, const CMoveDrag& drag, int field);

/// "Last move: white knight from e4 to f6, takes black pawn, check". Empty in the first position.
std::string LastMoveForReader(const TChessboard& board);

/// The board as a whole: the side to move and the last move.
std::string BoardForReader(const TChessboard& board);

}  // namespace tarnwick
