// What the white queen can do against the black king.

#include <bit>

#include "chess/attacks.h"
#include "engine/heuristics/free_fields.h"
#include "engine/heuristics/line_moves.h"
#include "engine/heuristics/position_tests.h"
#include "engine/heuristics/scratch_moves.h"

namespace tarnwick {
namespace {

/// A few steps of pawns that are not yet blocked do not spoil the type.
constexpr int MostMovablePawns = 2;

TFieldSet Queens(const TChessboard& board, TFieldSet men) {
    return board.m_diagonalSliders & board.m_straightSliders & men;
}

TFieldSet QueenReach(int field, TFieldSet occupied) {
    return BishopReach(field, occupied) | RookReach(field, occupied);
}

TFieldSet KingNeighbours(const TChessboard& board) {
    return KingFields[static_cast<std::size_t>(BlackKingField(board))];
}

/// -1, 0 or 1.
int SignOf(int difference) {
    return (difference > 0 ? 1 : 0) - (difference < 0 ? 1 : 0);
}

/// 0 to 8, by the eight directions from one field to another of the same line.
int DirectionOf(int from, int to) {
    return (SignOf(FileOf(to) - FileOf(from)) + 1) * 3 + SignOf(RankOf(to) - RankOf(from)) + 1;
}

/// Neighbours of the king that are free while the queen is off the board.
TFieldSet FieldsLeftToTheQueen(const TChessboard& board, TFieldSet queen, TFieldSet occupied) {
    TFieldSet left = 0;
    for (TFieldSet near = KingNeighbours(board) & ~board.m_blackMen; near != 0;) {
        const int field = PopLowest(near);
        left |= IsAttackedByWhiteOver(board, field, occupied, queen) ? 0 : FieldBit(field);
    }
    return left;
}

/// Each move of the white man, if it has any, lets a walled-in black man loose.
bool IsBoundToItsField(const TChessboard& board, int field) {
    const TFieldSet walledIn = board.m_blackMen & ~FieldBit(BlackKingField(board)) &
                               ~MovableBlackMen(board, board.m_blackMen);
    return !AnyWhiteMove(board, field, [&](const TChessboard& after, TMove) {
        return MovableBlackMen(after, walledIn & after.m_blackMen) == 0;
    });
}

}  // namespace

TFieldSet MatingFieldsOfQueen(const TChessboard& board) noexcept {
    if (board.m_whiteQueens == 0) {
        return 0;
    }
    const int king = BlackKingField(board);
    const TFieldSet all = Queens(board, board.m_whiteMen);
    const TFieldSet queen = all & -all;
    const TFieldSet occupied = OccupiedFields(board) & ~queen & ~FieldBit(king);
    const TFieldSet flights = FieldsLeftToTheQueen(board, queen, occupied);
    TFieldSet mating = 0;
    for (TFieldSet from = QueenReach(king, occupied) & ~board.m_whiteMen; from != 0;) {
        const int field = PopLowest(from);
        const bool bAdjacent = (KingNeighbours(board) & FieldBit(field)) != 0;
        if (bAdjacent && !IsAttackedByWhiteOver(board, field, occupied, queen)) {
            continue;
        }
        if ((flights & ~FieldBit(field) & ~QueenReach(field, occupied)) == 0) {
            mating |= FieldBit(field);
        }
    }
    return mating;
}

int CountMatingLines(const TChessboard& board) noexcept {
    unsigned directions = 0;
    for (TFieldSet mating = MatingFieldsOfQueen(board); mating != 0;) {
        directions |= 1u << DirectionOf(BlackKingField(board), PopLowest(mating));
    }
    return std::popcount(directions);
}

int CountMatingMoves(const TChessboard& board) noexcept {
    if (board.m_whiteQueens == 0) {
        return 0;
    }
    const int queen = LowestField(Queens(board, board.m_whiteMen));
    return std::popcount(MatingFieldsOfQueen(board) & QueenReach(queen, OccupiedFields(board)));
}

bool IsMatingFieldHeldByRook(const TChessboard& board) noexcept {
    if (board.m_whiteQueens != 1 || CountFreeFields(board) > 2) {
        return false;
    }
    const int queen = LowestField(Queens(board, board.m_whiteMen));
    const TFieldSet rooks = board.m_straightSliders & ~board.m_diagonalSliders & board.m_blackMen;
    TFieldSet fields = MatingFieldsOfQueen(board) & KingNeighbours(board) &
                       QueenReach(queen, OccupiedFields(board));
    while (fields != 0) {
        const TFieldSet guards =
            BlackAttackersOf(board, PopLowest(fields)) & ~FieldBit(BlackKingField(board));
        if (guards != 0 && !HasMoreThanOne(guards) &&
            (guards & rooks & KingNeighbours(board)) != 0) {
            return true;
        }
    }
    return false;
}

bool IsQueenAgainstMen(const TChessboard& board) noexcept {
    const TFieldSet figures = KingNeighbours(board) & board.m_blackMen & ~board.m_pawns;
    return board.m_whiteQueens == 1 && WhiteFigureCount(board) == 1 &&
           BlackFigureCount(board) >= 2 && figures != 0;
}

bool CanQueenCheckSafely(const TChessboard& board) noexcept {
    for (TFieldSet queens = Queens(board, board.m_whiteMen); queens != 0;) {
        const bool bChecks =
            AnyWhiteMove(board, PopLowest(queens), [](const TChessboard& after, TMove move) {
                return after.m_blackChecker == move.to && BlackAttackersOf(after, move.to) == 0;
            });
        if (bChecks) {
            return true;
        }
    }
    return false;
}

bool IsQueenNearKing(const TChessboard& board) noexcept {
    for (TFieldSet queens = Queens(board, board.m_whiteMen); queens != 0;) {
        if ((QueenReach(PopLowest(queens), OccupiedFields(board)) & KingNeighbours(board)) != 0) {
            return true;
        }
    }
    return false;
}

bool IsSingleQueenPosition(const TChessboard& board) noexcept {
    if (board.m_whiteQueens != 1 || BlackFigureCount(board) == 0) {
        return false;
    }
    const TFieldSet black = board.m_blackMen & ~FieldBit(BlackKingField(board));
    const TFieldSet movable = MovableBlackMen(board, black);
    if (std::popcount(movable) > MostMovablePawns || (movable & ~board.m_pawns) != 0) {
        return false;
    }
    for (TFieldSet men = board.m_whiteMen & ~Queens(board, board.m_whiteMen); men != 0;) {
        if (!IsBoundToItsField(board, PopLowest(men))) {
            return false;
        }
    }
    return true;
}

}  // namespace tarnwick
