// Pseudo-legal moves of White, and the figures whose moves know no colour.

#include "chess/board_tables.h"
#include "chess/castling.h"
#include "chess/generate_moves.h"
#include "chess/lines.h"

namespace tarnwick {
namespace {

constexpr TMove Step(int from, int to) {
    return TMove{static_cast<TField>(from), static_cast<TField>(to), 0, 0};
}

/// Moves along one line until the first man; it is included unless it is the mover's own.
TMove* AppendLine(const TChessboard& board, int from, int fileStep, int rankStep, TFieldSet own,
                  TMove* pOut) {
    int file = FileOf(from) + fileStep;
    int rank = RankOf(from) + rankStep;
    for (; OnBoard(file, rank); file += fileStep, rank += rankStep) {
        const int to = FieldAt(file, rank);
        if ((own & FieldBit(to)) != 0) {
            break;
        }
        *pOut++ = Step(from, to);
        if (board.m_fields[to] != EmptyField) {
            break;
        }
    }
    return pOut;
}

TMove* AppendFigureMoves(const TChessboard& board, int from, TFigureCode type, TFieldSet own,
                         TMove* pOut) {
    if (type == TypeKnight) {
        return AppendKnightMoves(from, own, pOut);
    }
    if ((type & TypeRook) != 0) {
        pOut = AppendRookMoves(board, from, own, pOut);
    }
    if ((type & TypeBishop) != 0) {
        pOut = AppendBishopMoves(board, from, own, pOut);
    }
    return pOut;
}

TMove* AppendCastling(const TChessboard& board, TCastling castling, TMove* pOut) {
    if (CanCastle(board, castling)) {
        *pOut++ = Step(FieldsOf(castling).kingFrom, FieldsOf(castling).kingTo);
    }
    return pOut;
}

}  // namespace

TMove* AppendKingMoves(int from, TFieldSet own, TMove* pOut) {
    for (const TStep step : KingSteps) {
        const int file = FileOf(from) + step.file;
        const int rank = RankOf(from) + step.rank;
        if (OnBoard(file, rank) && (own & FieldBit(FieldAt(file, rank))) == 0) {
            *pOut++ = Step(from, FieldAt(file, rank));
        }
    }
    return pOut;
}

TMove* AppendKnightMoves(int from, TFieldSet own, TMove* pOut) {
    TFieldSet targets = KnightFields[static_cast<std::size_t>(from)] & ~own;
    while (targets != 0) {
        *pOut++ = Step(from, PopLowest(targets));
    }
    return pOut;
}

TMove* AppendBishopMoves(const TChessboard& board, int from, TFieldSet own, TMove* pOut) {
    pOut = AppendLine(board, from, 1, 1, own, pOut);
    pOut = AppendLine(board, from, -1, 1, own, pOut);
    pOut = AppendLine(board, from, 1, -1, own, pOut);
    return AppendLine(board, from, -1, -1, own, pOut);
}

TMove* AppendRookMoves(const TChessboard& board, int from, TFieldSet own, TMove* pOut) {
    pOut = AppendLine(board, from, 0, 1, own, pOut);
    pOut = AppendLine(board, from, 0, -1, own, pOut);
    pOut = AppendLine(board, from, -1, 0, own, pOut);
    return AppendLine(board, from, 1, 0, own, pOut);
}

TMove* AppendPawnMove(int from, int to, TMove* pOut) {
    if (RankOf(to) != 0 && RankOf(to) != 7) {
        *pOut++ = Step(from, to);
        return pOut;
    }
    for (const TFigureCode type : PromotionTypes) {
        *pOut++ = TMove{static_cast<TField>(from), static_cast<TField>(to), type, 0};
    }
    return pOut;
}

int WhiteEnPassantTarget(const TChessboard& board) {
    const TMove last = board.m_lastMove;
    if (board.m_pPrevious == nullptr || last.from != last.to + 16 || RankOf(last.from) != 6 ||
        TypeOf(board.m_fields[last.to]) != TypePawn || !IsBlack(board.m_fields[last.to])) {
        return -1;
    }
    return last.to + 8;
}

TMove* AppendWhitePawnMoves(const TChessboard& board, int from, TMove* pOut) {
    const int ahead = from + 8;
    if (board.m_fields[ahead] == EmptyField) {
        pOut = AppendPawnMove(from, ahead, pOut);
        if (RankOf(from) == 1 && board.m_fields[ahead + 8] == EmptyField) {
            *pOut++ = Step(from, ahead + 8);
        }
    }
    TFieldSet targets = WhitePawnTargets[static_cast<std::size_t>(from)];
    TFieldSet captures = targets & board.m_blackMen;
    while (captures != 0) {
        pOut = AppendPawnMove(from, PopLowest(captures), pOut);
    }
    if (RankOf(from) == 4) {
        const int target = WhiteEnPassantTarget(board);
        if (target >= 0 && (targets & FieldBit(target)) != 0) {
            *pOut++ = Step(from, target);
        }
    }
    return pOut;
}

int GenerateWhiteMoves(const TChessboard& board, int field, TMove* pList) {
    const TFigureCode code = board.m_fields[field];
    if (!IsWhite(code)) {
        return 0;
    }
    const TFieldSet own = board.m_whiteMen;
    TMove* pEnd = pList;
    switch (TypeOf(code)) {
        case TypePawn:
            pEnd = AppendWhitePawnMoves(board, field, pEnd);
            break;
        case TypeKing:
            pEnd = AppendKingMoves(field, own, pEnd);
            if (field == E1) {
                pEnd = AppendCastling(board, TCastling::WhiteShort, pEnd);
                pEnd = AppendCastling(board, TCastling::WhiteLong, pEnd);
            }
            break;
        default:
            pEnd = AppendFigureMoves(board, field, TypeOf(code), own, pEnd);
            break;
    }
    return static_cast<int>(pEnd - pList);
}

int GenerateAllWhiteMoves(const TChessboard& board, TMove* pList) {
    int count = 0;
    for (TFieldSet men = board.m_whiteMen; men != 0;) {
        count += GenerateWhiteMoves(board, PopLowest(men), pList + count);
    }
    return count;
}

}  // namespace tarnwick
