#pragma once
// White's figures that are to stay on the board. SH_SAVEQUEEN/ROOK: with the last heavy man gone there
// is nothing left to mate with, unless a pawn is about to replace it. SH_DONTLOSEANYFIGURES: a solution
// that gives anything away is not believed, unless it mates at once.
//
// All functions look at a board after a black move.

#include "chess/chessboard.h"

namespace tarnwick {

/// SH_SAVEQUEEN/ROOK: Black has just taken a heavy man that was to be saved. Sets TStateBit::QueenSaved
/// when rooks are to be saved as well, else RookSaved, and computes the key anew.
void NoteSavedFigure(TChessboard& afterBlack) noexcept;

/// A saved man has fallen, White has no heavy man left (with bSaveIncludesRook: no queen, or no rook,
/// although it began with one), and no pawn is about to become one.
bool IsSavedForceGone(const TChessboard& afterBlack) noexcept;

/// SH_DONTLOSEANYFIGURES: Black has just taken a white figure, or a pawn that counts by
/// LoseFiguresPawnMode, that had not itself taken a man of its worth there.
bool HasJustLostMan(const TChessboard& afterBlack) noexcept;

/// HasJustLostMan, and White cannot take back as much as was lost.
bool HasLostManForNothing(const TChessboard& afterBlack) noexcept;

/// TStateBit::FigureLost is set from an earlier black move, and White has not taken back. Clears the bit
/// once White has.
bool IsLossStanding(TChessboard& afterBlack) noexcept;

}  // namespace tarnwick
