// Pseudo-legal moves of Black.

#include "chess/board_tables.h"
#include "chess/castling.h"
#include "chess/generate_moves.h"
#include "chess/lines.h"

namespace tarnwick {
namespace {

TMove* AppendCastling(const TChessboard& board, TCastling castling, TMove* pOut) {
    if (CanCastle(board, castling)) {
        *pOut++ = TMove{FieldsOf(castling).kingFrom, FieldsOf(castling).kingTo, 0, 0};
    }
    return pOut;
}

}  // namespace

int BlackEnPassantTarget(const TChessboard& board) {
    const TMove last = board.m_lastMove;
    if (board.m_pPrevious == nullptr || last.to != last.from + 16 || RankOf(last.from) != 1 ||
        TypeOf(board.m_fields[last.to]) != TypePawn || !IsWhite(board.m_fields[last.to])) {
        return -1;
    }
    return last.to - 8;
}

TMove* AppendBlackPawnMoves(const TChessboard& board, int from, TMove* pOut) {
    const int ahead = from - 8;
    if (board.m_fields[ahead] == EmptyField) {
        pOut = AppendPawnMove(from, ahead, pOut);
        if (RankOf(from) == 6 && board.m_fields[ahead - 8] == EmptyField) {
            *pOut++ = TMove{static_cast<TField>(from), static_cast<TField>(ahead - 8), 0, 0};
        }
    }
    const TFieldSet targets = BlackPawnTargets[static_cast<std::size_t>(from)];
    TFieldSet captures = targets & board.m_whiteMen;
    while (captures != 0) {
        pOut = AppendPawnMove(from, PopLowest(captures), pOut);
    }
    if (RankOf(from) == 3) {
        const int target = BlackEnPassantTarget(board);
        if (target >= 0 && (targets & FieldBit(target)) != 0) {
            *pOut++ = TMove{static_cast<TField>(from), static_cast<TField>(target), 0, 0};
        }
    }
    return pOut;
}

int GenerateBlackMoves(const TChessboard& board, int field, TMove* pList) {
    const TFigureCode code = board.m_fields[field];
    if (!IsBlack(code)) {
        return 0;
    }
    const TFieldSet own = board.m_blackMen;
    TMove* pEnd = pList;
    const TFigureCode type = TypeOf(code);
    switch (type) {
        case TypePawn:
            pEnd = AppendBlackPawnMoves(board, field, pEnd);
            break;
        case TypeKing:
            pEnd = AppendKingMoves(field, own, pEnd);
            if (field == E8) {
                pEnd = AppendCastling(board, TCastling::BlackShort, pEnd);
                pEnd = AppendCastling(board, TCastling::BlackLong, pEnd);
            }
            break;
        case TypeKnight:
            pEnd = AppendKnightMoves(field, own, pEnd);
            break;
        default:
            if ((type & TypeRook) != 0) {
                pEnd = AppendRookMoves(board, field, own, pEnd);
            }
            if ((type & TypeBishop) != 0) {
                pEnd = AppendBishopMoves(board, field, own, pEnd);
            }
            break;
    }
    return static_cast<int>(pEnd - pList);
}

int GenerateAllBlackMoves(const TChessboard& board, TMove* pList) {
    int count = 0;
    for (TFieldSet men = board.m_blackMen; men != 0;) {
        count += GenerateBlackMoves(board, PopLowest(men), pList + count);
    }
    return count;
}

}  // namespace tarnwick
