#pragma once
// Questions about a position that decide which heuristics are worth a pass: how firmly the black king is
// held, what the white queen can do, who has how much. They are asked at the root and on the first levels,
// of a position as it stands, without search; a wrong answer costs time and never a solution.
//
// All take a prepared board, leave it as it is, never throw and never allocate. Unless a comment says
// otherwise either side may be to move.

#include "chess/chessboard.h"

namespace tarnwick {

// ---- How the black king is held (king_tests.cpp)

/// Fields the black king reaches in so many steps while everybody else stands still; its own is not
/// among them. White men that nobody covers count as free fields.
TFieldSet KingRegion(const TChessboard& board, int steps) noexcept;

/// The king cannot leave its region: walking on it gets no further from the edge, nor far at all.
bool IsBlackKingHeld(const TChessboard& board) noexcept;

/// The king has a field to step to at once.
bool HasKingField(const TChessboard& board) noexcept;

/// No black man but the king has a legal move: White has to leave the king one, or stalemate it.
bool IsBlackNearStalemate(const TChessboard& board) noexcept;

/// The king has at most one field left and stands in check, or White has a safe check.
bool IsMatingNet(const TChessboard& board) noexcept;

/// King in a corner: fields by which it may get out, those included from which a man of its own can step
/// aside. 0 to 3; 0 also when it stands elsewhere.
int CountCornerMoves(const TChessboard& board) noexcept;

/// Within two steps the king gets to no field of the inner sixteen.
bool CanHoldWithinExtendedEdge(const TChessboard& board) noexcept;

int CountBlackMenNearKing(const TChessboard& board) noexcept;

/// Every field beside the king is held by a black man or attacked by White, some by a black man.
bool IsKingCoveredByMen(const TChessboard& board) noexcept;

/// There are black men beside the king, and none of them can move.
bool AreCoveringMenBlocked(const TChessboard& board) noexcept;

/// A white queen, rook, bishop or knight attacks a field beside the king.
bool DoFiguresHoldKingArea(const TChessboard& board) noexcept;

/// The black king stands in a corner, and but for the man on keyField White has no figure that could ever
/// check it there, or none that can move at all.
bool IsKeyFigureNeededInCorner(const TChessboard& board, int keyField) noexcept;

/// White to move, not in check: had Black to move instead, every move would run into a mate in one.
bool IsZugzwangPosition(const TChessboard& board) noexcept;

// ---- What the white queen can do (queen_tests.cpp)

/// Fields from which a queen would check the king and take all its fields, if nobody took her or stepped
/// between. Empty without a white queen.
TFieldSet MatingFieldsOfQueen(const TChessboard& board) noexcept;
/// Directions from the king in which there is such a field, 0 to 8.
int CountMatingLines(const TChessboard& board) noexcept;
/// Such fields that the queen reaches in one move.
int CountMatingMoves(const TChessboard& board) noexcept;

/// White's one queen would mate on a field beside the king, were it not for one rook that covers it, also
/// beside the king, which has at most two free fields.
bool IsMatingFieldHeldByRook(const TChessboard& board) noexcept;

/// White's only figure is a queen, and two or more black figures, one of them beside the king, fight it.
bool IsQueenAgainstMen(const TChessboard& board) noexcept;

/// The queen has a check on a field where nobody takes her.
bool CanQueenCheckSafely(const TChessboard& board) noexcept;

/// The queen attacks a field beside the king.
bool IsQueenNearKing(const TChessboard& board) noexcept;

/// Nobody but the white queen and the black king is free to move: the others are walled in, or it is
/// their standing still that walls Black in. Two black pawns may still have moves to make.
bool IsSingleQueenPosition(const TChessboard& board) noexcept;

// ---- Material (material_tests.cpp)

/// Queen 9, rook 5, bishop and knight 3, pawn 1.
int WhitePoints(const TChessboard& board) noexcept;
int BlackPoints(const TChessboard& board) noexcept;

/// White queens that Black wins something by taking.
int CountLosableQueens(const TChessboard& board) noexcept;

/// Black has clearly more: White must win by what holds the king, not by force of numbers.
bool IsBlackAhead(const TChessboard& board) noexcept;

/// White has so many figures that losing one need not hurt.
bool HasFiguresToSpare(const TChessboard& board) noexcept;

/// Points of the black men that have no move, the king not counted.
int ImmovableBlackPoints(const TChessboard& board) noexcept;

/// One bishop each, on fields of opposite colours.
bool AreBishopsOpposite(const TChessboard& board) noexcept;

/// Opposite bishops, Black's is its only figure and its pawns are blocked, and no white man but the king
/// stands where it can go: Black's moves with it change nothing.
bool IsBlackBishopSeparated(const TChessboard& board) noexcept;

/// White has bishops on both colours.
bool HasBishopPair(const TChessboard& board) noexcept;

/// White's queen may go: Black has one too, or can take her.
bool IsQueenAtStake(const TChessboard& board) noexcept;

/// The white pawn on the field promotes in one or two moves if it is let.
bool IsAdvancedWhitePawn(const TChessboard& board, int field) noexcept;
bool HasAdvancedWhitePawn(const TChessboard& board) noexcept;

/// Field of a black pawn that promotes in one or two moves if it is let; NoField if there is none.
TField FindAdvancedBlackPawn(const TChessboard& board) noexcept;

/// Black has pawns, and White attacks every field on which one could promote by stepping.
bool ArePromotionFieldsGuarded(const TChessboard& board) noexcept;

/// Each side can move one bishop or knight, and but for the kings nothing else.
bool IsMinorDuel(const TChessboard& board) noexcept;

// ---- Whole types of positions (position_types.cpp)

/// White's lone rook waits while Black, otherwise walled in, must spend its pawn moves.
bool IsSweepingRookPosition(const TChessboard& board) noexcept;

/// A safe white man that pins a black figure to its king, which cannot move.
struct TKeyPin {
    TField keyField = NoField;     ///< The pinning man.
    TField pinnedField = NoField;  ///< The pinned one.
};
/// The pin of the most valuable black figure; NoField in both if there is none.
TKeyPin FindKeyPin(const TChessboard& board) noexcept;

}  // namespace tarnwick
