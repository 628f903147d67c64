// The surrounded king: in long mates the black king has at most two or three fields around it most of
// the time. The screen rejects moves that leave it more, with more room granted where White is
// strong and the king can be driven back.
//
// The limit is found first, then the count. Positions of many figures are counted plainly; the others
// with exceptions for the shapes that a heavy man closes in one move.

#include <bit>

#include "chess/attacks.h"
#include "chess/lines.h"
#include "chess/make_move.h"
#include "chess/pins.h"
#include "engine/heuristics/board_questions.h"
#include "engine/heuristics/free_fields.h"
#include "engine/heuristics/heuristic_bits.h"
#include "engine/heuristics/kings_room.h"
#include "engine/heuristics/line_moves.h"
#include "engine/heuristics/white_screens.h"
#include "engine/search/thread_context.h"

namespace tarnwick {
namespace {

constexpr int StrictLimit = 2;
constexpr int UsualLimit = 2;
constexpr int LimitInCheck = 3;

bool IsInCheck(const TChessboard& child) {
    return child.m_blackChecker != NoChecker;
}

bool HasPawnOnSeventh(const TChessboard& board) {
    return (board.m_pawns & board.m_whiteMen & SeventhRank) != 0;
}

/// White's force is too small to drive a king back from a wide field.
bool IsForceModest(const TChessboard& child) {
    return child.m_whiteQueens <= 1 && !child.m_searchFlags.Has(TSearchFlag::BareBlackKing) &&
           (child.m_whiteRooks == 0 || BlackKingEdgeDistance(child) > 0 ||
            (child.m_whiteQueens == 0 && !HasPawnOnSeventh(child)));
}

/// Against a king without figures, three white figures need fewer held fields.
int RoomAgainstLoneKing(const TChessboard& child) {
    if (child.m_searchFlags.Has(TSearchFlag::LongLightSort) || IsInCheck(child) ||
        BlackFigureCount(child) != 0 || WhiteFigureCount(child) < 3) {
        return 0;
    }
    return LastCaptured(child) == BlackPawn ? 2 : 1;
}

int LimitOfRoom(const TChessboard& child) {
    int limit = IsInCheck(child) ? LimitInCheck : UsualLimit;
    if (!IsInCheck(child) && child.m_heuristicFlags.HasAny(SH_SAVEQUEENROOK) &&
        WhiteFigureCount(child) == 1) {
        limit = UsualLimit + 1;
    }
    limit += IsForceModest(child) ? 0 : 1;
    limit += child.m_whiteQueens > 2 && WhiteFigureCount(child) < 5 ? 1 : 0;
    limit += child.m_lastMove.PromotionType() == TypeQueen ? 1 : 0;
    limit += IsFigure(LastCaptured(child)) ? 1 : 0;
    return limit + RoomAgainstLoneKing(child);
}

bool ExceedsSimpleCount(const TChessboard& child, int limit) {
    const bool bKingsNear = DistanceOfKings(child) <= 3;
    if (MajorCount(child) > 0 && WhiteFigureCount(child) + (bKingsNear ? 1 : 0) >= 3) {
        return CountFreeFieldsEdgeWeighted(child) > limit;
    }
    return CountFreeFields(child) > limit;
}

TRoomMode ModeOf(const TChessboard& child) {
    if (IsInCheck(child)) {
        return TRoomMode::InCheck;
    }
    const int heavy = (child.m_whiteRooks > 0 ? 1 : 0) + child.m_whiteQueens;
    return heavy >= 2 || (heavy == 1 && HasSafePromotion(child)) ? TRoomMode::TwoHeavyMen
                                                                 : TRoomMode::Usual;
}

/// White took the queen with this move, or with the one before it and was checked for it.
bool HasJustWonQueen(const TChessboard& child) {
    if (child.m_whiteQueens == 0 || child.m_blackQueens != 0) {
        return false;
    }
    if (LastCaptured(child) == BlackQueen) {
        return true;
    }
    const TChessboard* before = child.m_pPrevious;
    return before != nullptr && before->m_whiteChecker != NoChecker &&
           before->m_pPrevious != nullptr && LastCaptured(*before->m_pPrevious) == BlackQueen;
}

/// The queen that was made with the last white move comes down from the last rank with check.
bool ChecksWithNewQueen(const TChessboard& child) {
    const TMove move = child.m_lastMove;
    const TChessboard* before = child.m_pPrevious;
    return child.m_blackChecker == move.to && child.m_fields[move.to] == WhiteQueen &&
           RankOf(move.from) == 7 && before != nullptr && before->m_pPrevious != nullptr &&
           before->m_pPrevious->m_lastMove.PromotionType() == TypeQueen;
}

/// A check on a free king must come from a queen with helpers.
bool IsCheckTooWeak(const TChessboard& child) {
    const bool bOnEdge = BlackKingEdgeDistance(child) == 0;
    return child.m_fields[child.m_blackChecker] != WhiteQueen ||
           WhiteFigureCount(child) + (bOnEdge ? 1 : 0) < 4;
}

/// The rook gets to the crossing of its own and the king's lines, and gives check there unharmed.
bool CanRookCheckFrom(const TChessboard& child, int rook, int crossing) {
    const int king = BlackKingField(child);
    const TFieldSet occupied = OccupiedFields(child);
    return crossing != king && !IsWhite(child.m_fields[crossing]) &&
           ((Between(rook, crossing) | Between(crossing, king)) & occupied) == 0 &&
           !IsFieldAttackedByBlack(child, FileOf(crossing), RankOf(crossing));
}

/// A rook's check drives the king from the second line to the edge.
bool IsHeldByRookCheck(const TChessboard& child) {
    for (TFieldSet rooks = child.m_straightSliders & ~child.m_diagonalSliders & child.m_whiteMen;
         rooks != 0;) {
        const int rook = PopLowest(rooks);
        if (CanRookCheckFrom(child, rook, FieldAt(FileOf(rook), child.m_blackKingRank)) ||
            CanRookCheckFrom(child, rook, FieldAt(child.m_blackKingFile, RankOf(rook)))) {
            return !HasFreeInnerField(child);
        }
    }
    return false;
}

bool IsRoomDrivenBack(const TChessboard& child, int limit, int count) {
    return !IsInCheck(child) && limit < 3 && count == limit + 1 && child.m_whiteRooks > 0 &&
           BlackKingEdgeDistance(child) == 1 && IsHeldByRookCheck(child);
}

/// Room is judged by what White's move made of it: less than before is progress.
bool IsRoomKept(const TChessboard& child, int limit, TRoomMode mode, int count) {
    if (child.m_pPrevious != nullptr && count < CountFreeFields(*child.m_pPrevious)) {
        return false;
    }
    return !(child.m_whiteQueens > 0 && BlackKingEdgeDistance(child) <= 1 &&
             CountFreeFieldsAfterCapture(child, limit, mode) <= limit);
}

}  // namespace

bool IsScreenedByKingsRoom(const TChessboard& child) noexcept {
    if (Thread(child).m_heuristics.bSurroundedStrict) {
        return CountFreeFieldsEdgeWeighted(child) > StrictLimit;
    }
    if (child.m_blackChecker == DoubleCheck) {
        return false;
    }
    const int limit = LimitOfRoom(child);
    if (child.m_searchFlags.Has(TSearchFlag::LongLightSort)) {
        return ExceedsSimpleCount(child, limit);
    }
    const TRoomMode mode = ModeOf(child);
    const int count = CountFreeFields(child, limit, mode);
    if (count <= limit || HasJustWonQueen(child)) {
        return false;
    }
    if (IsInCheck(child)) {
        if (ChecksWithNewQueen(child)) {
            return false;
        }
        if (IsCheckTooWeak(child)) {
            return true;
        }
    }
    return !IsRoomDrivenBack(child, limit, count) && IsRoomKept(child, limit, mode, count);
}

}  // namespace tarnwick
