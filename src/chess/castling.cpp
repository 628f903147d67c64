#include "chess/castling.h"

#include "chess/attacks.h"
#include "chess/board_stack.h"
#include "chess/generate_moves.h"

namespace tarnwick {
namespace {

constexpr TFieldSet Set(std::initializer_list<int> fields) {
    TFieldSet set = 0;
    for (const int field : fields) {
        set |= FieldBit(field);
    }
    return set;
}

// In the order of TCastling.
constexpr TCastlingFields CastlingTable[4] = {
    {4, 6, 7, 5, WhiteKing, WhiteRook, Set({5, 6})},
    {4, 2, 0, 3, WhiteKing, WhiteRook, Set({1, 2, 3})},
    {60, 62, 63, 61, BlackKing, BlackRook, Set({61, 62})},
    {60, 58, 56, 59, BlackKing, BlackRook, Set({57, 58, 59})},
};

bool StandAtHome(const TChessboard& board, const TCastlingFields& fields) {
    return board.m_fields[fields.kingFrom] == fields.king &&
           board.m_fields[fields.rookFrom] == fields.rook;
}

bool IsWhiteCastling(TCastling castling) {
    return castling == TCastling::WhiteShort || castling == TCastling::WhiteLong;
}

/// The rights that the placing alone suggests differ from the true ones of the line.
bool RightsDifferFromPlacing(const TChessboard& board, TCastling castling) {
    return StandAtHome(board, FieldsOf(castling)) && !HasCastlingRight(board, castling);
}

}  // namespace

const TCastlingFields& FieldsOf(TCastling castling) {
    return CastlingTable[static_cast<std::size_t>(castling)];
}

const TChessboard& CastlingRoot(const TChessboard& board) {
    if (board.m_pThread != nullptr && board.m_pThread->m_pRootBoard != nullptr) {
        return *board.m_pThread->m_pRootBoard;
    }
    const TChessboard* root = &board;
    while (root->m_pPrevious != nullptr) {
        root = root->m_pPrevious;
    }
    return *root;
}

bool HasCastlingRight(const TChessboard& board, TCastling castling) {
    const TCastlingFields& fields = FieldsOf(castling);
    if (!StandAtHome(board, fields) || !StandAtHome(CastlingRoot(board), fields)) {
        return false;
    }
    // A man that left and came back, or one that replaced the rook, has ended a move at home.
    for (const TChessboard* b = &board; b->m_pPrevious != nullptr; b = b->m_pPrevious) {
        const TMove last = b->m_lastMove;
        const bool bPass = last.IsPass();
        if (!bPass && (last.to == fields.rookFrom || last.to == fields.kingFrom)) {
            return false;
        }
    }
    return true;
}

bool CanCastle(const TChessboard& board, TCastling castling) {
    const TCastlingFields& fields = FieldsOf(castling);
    const bool bWhite = IsWhiteCastling(castling);
    if ((OccupiedFields(board) & fields.mustBeEmpty) != 0 ||
        (bWhite ? board.m_whiteChecker : board.m_blackChecker) != NoChecker ||
        !HasCastlingRight(board, castling)) {
        return false;
    }
    const TFieldSet occupied = OccupiedFields(board);
    const int crossed = fields.rookTo;
    if (bWhite) {
        return !IsAttackedByBlackOver(board, crossed, occupied) &&
               !IsAttackedByBlackOver(board, fields.kingTo, occupied);
    }
    return !IsAttackedByWhiteOver(board, crossed, occupied) &&
           !IsAttackedByWhiteOver(board, fields.kingTo, occupied);
}

bool IsPositionFullyDescribed(const TChessboard& board) {
    if (board.m_pPrevious != nullptr) {
        const int target =
            IsWhiteToMove(board) ? WhiteEnPassantTarget(board) : BlackEnPassantTarget(board);
        if (target >= 0) {
            const auto t = static_cast<std::size_t>(target);
            const TFieldSet takers = IsWhiteToMove(board) ? BlackPawnTargets[t] & board.m_whiteMen
                                                          : WhitePawnTargets[t] & board.m_blackMen;
            if ((takers & board.m_pawns) != 0) {
                return false;
            }
        }
    }
    if (board.m_fields[E1] == WhiteKing && (RightsDifferFromPlacing(board, TCastling::WhiteShort) ||
                                            RightsDifferFromPlacing(board, TCastling::WhiteLong))) {
        return false;
    }
    return board.m_fields[E8] != BlackKing ||
           !(RightsDifferFromPlacing(board, TCastling::BlackShort) ||
             RightsDifferFromPlacing(board, TCastling::BlackLong));
}

}  // namespace tarnwick
