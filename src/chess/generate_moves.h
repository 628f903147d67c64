#pragma once
// Pseudo-legal moves of one man or one side: every move a man makes by its own rules onto a field not
// held by its own colour. Pins and king safety are not tested; the make operations refuse what is
// illegal. Castling is listed only when all its conditions hold.
//
// Order: lines walk up, down, then sideways; diagonals north-east first; a queen is rook moves then
// bishop moves; promotions expand to queen, rook, bishop, knight. The search's ordering starts from it.

#include "chess/chessboard.h"
#include "chess/move_list.h"

namespace tarnwick {

/// Writes the moves of the white man on the field (room for MaxMovesOfMan) and returns their count; 0
/// for a field without a white man.
int GenerateWhiteMoves(const TChessboard& board, int field, TMove* pList);
int GenerateBlackMoves(const TChessboard& board, int field, TMove* pList);

/// Moves of all men, fields 0 to 63 in order. Room for MaxMovesOfSide.
int GenerateAllWhiteMoves(const TChessboard& board, TMove* pList);
int GenerateAllBlackMoves(const TChessboard& board, TMove* pList);

// One man of a known kind. `own` is the set of men of the mover's colour.
TMove* AppendKingMoves(int from, TFieldSet own, TMove* pOut);
TMove* AppendKnightMoves(int from, TFieldSet own, TMove* pOut);
TMove* AppendBishopMoves(const TChessboard& board, int from, TFieldSet own, TMove* pOut);
TMove* AppendRookMoves(const TChessboard& board, int from, TFieldSet own, TMove* pOut);
TMove* AppendWhitePawnMoves(const TChessboard& board, int from, TMove* pOut);
TMove* AppendBlackPawnMoves(const TChessboard& board, int from, TMove* pOut);
/// One move, or the four promotions when `to` is on the first or last rank.
TMove* AppendPawnMove(int from, int to, TMove* pOut);

/// The field on which a pawn would capture en passant now, or -1: the last move was a double step of
/// the other side's pawn. The field says nothing about who could take there.
int WhiteEnPassantTarget(const TChessboard& board);
int BlackEnPassantTarget(const TChessboard& board);

}  // namespace tarnwick
