#include "chess/line_history.h"

#include <cstring>

#include "chess/figure_codes.h"

namespace tarnwick {
namespace {

bool IsCastling(TFigureCode mover, TMove move) {
    return TypeOf(mover) == TypeKing && (move.to - move.from == 2 || move.from - move.to == 2);
}

/// The rook's fields of a castling, told by where the king arrives.
int CastledRookFrom(TMove move) {
    return move.to > move.from ? move.to + 1 : move.to - 2;
}
int CastledRookTo(TMove move) {
    return (move.from + move.to) / 2;
}

/// Where the man that stands on the field after the move stood before it. The board holds the
/// position before the move.
int FieldBefore(const TChessboard& before, TMove move, int field) {
    if (field == move.to) {
        return move.from;
    }
    if (IsCastling(before.m_fields[move.from], move) && field == CastledRookTo(move)) {
        return CastledRookFrom(move);
    }
    return field;
}

bool IsPawn(const TChessboard& board, int field) {
    return TypeOf(board.m_fields[field]) == TypePawn;
}

/// The fields are equal but for black men that the later board has lost.
bool IsSameForWhite(const TChessboard& later, const TChessboard& earlier) {
    for (int field = 0; field < FieldCount; ++field) {
        const TFigureCode now = later.m_fields[field];
        const TFigureCode then = earlier.m_fields[field];
        if (now != then && !(now == EmptyField && IsBlack(then))) {
            return false;
        }
    }
    return true;
}

/// The move that led to this board took a man that stood on its target.
bool IsAfterCapture(const TChessboard& board) {
    return board.m_pPrevious != nullptr && !board.m_lastMove.IsPass() &&
           board.m_pPrevious->m_fields[board.m_lastMove.to] != EmptyField;
}

}  // namespace

bool IsPromotedFigure(const TChessboard& board, int field) {
    if (board.m_fields[field] == EmptyField || IsPawn(board, field)) {
        return false;
    }
    for (const TChessboard* b = &board; b->m_pPrevious != nullptr; b = b->m_pPrevious) {
        field = FieldBefore(*b->m_pPrevious, b->m_lastMove, field);
        if (IsPawn(*b->m_pPrevious, field)) {
            return true;
        }
    }
    return false;
}

TField OriginalFieldOf(const TChessboard& board, int field) {
    if (board.m_fields[field] == EmptyField || IsPromotedFigure(board, field)) {
        return NoField;
    }
    for (const TChessboard* b = &board; b->m_pPrevious != nullptr; b = b->m_pPrevious) {
        field = FieldBefore(*b->m_pPrevious, b->m_lastMove, field);
    }
    return static_cast<TField>(field);
}

bool HasPositionRepeated(const TChessboard& board, std::uint16_t shMinMoves) {
    if (board.m_whiteKnights == 0 || IsAfterCapture(board)) {
        return false;
    }
    bool bKnightMoved = false;
    const TChessboard* b = &board;
    for (int moves = 1; b->m_pPrevious != nullptr && b->m_pPrevious->m_pPrevious != nullptr;
         ++moves) {
        const TChessboard& between = *b->m_pPrevious;
        const TChessboard& earlier = *between.m_pPrevious;
        if (IsAfterCapture(between) || between.m_blackChecker != NoChecker) {
            return false;
        }
        bKnightMoved |= TypeOf(earlier.m_fields[between.m_lastMove.from]) == TypeKnight;
        if (IsAfterCapture(earlier)) {
            // White had more men before that capture: nothing further back can be equal.
            return moves >= shMinMoves && bKnightMoved && IsSameForWhite(board, earlier);
        }
        b = &earlier;
    }
    return false;
}

}  // namespace tarnwick
