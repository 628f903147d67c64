#include "engine/heuristics/saved_figures.h"

#include "chess/attacks.h"
#include "engine/heuristics/exchanges.h"
#include "engine/heuristics/heuristic_bits.h"
#include "engine/heuristics/heuristic_key.h"
#include "engine/heuristics/kings_room.h"
#include "engine/heuristics/line_moves.h"
#include "engine/search/thread_context.h"

namespace tarnwick {
namespace {

constexpr std::uint8_t PawnsToo = 1;
constexpr std::uint8_t PawnsNearPromotion = 2;
constexpr TFieldSet FirstRank = 0xFF;

int ValueOf(TFigureCode code) {
    return FigureValues[TypeOf(code)];
}

/// A white pawn that queens within two moves: safely from the seventh rank, or two free steps away with
/// the black king out of reach.
bool IsPromotionComing(const TChessboard& board) {
    if (HasSafePromotion(board)) {
        return true;
    }
    const TFieldSet sixth = board.m_pawns & board.m_whiteMen & (FirstRank << 40);
    const TFieldSet occupied = OccupiedFields(board);
    TFieldSet free = sixth & ~(occupied >> 8) & ~(occupied >> 16);
    while (free != 0) {
        const int field = PopLowest(free);
        if (KingDistance(BlackKingField(board), field + 16) > 2 &&
            !IsFieldAttackedByBlack(board, FileOf(field), RankOf(field) + 1)) {
            return true;
        }
    }
    return false;
}

/// White has no queen, or no rook, any more.
bool HasKindUsedUp(const TChessboard& board) {
    const TChessboard* root = board.m_pThread->m_pRootBoard;
    return root != nullptr && ((root->m_whiteQueens > 0 && board.m_whiteQueens == 0) ||
                               (root->m_whiteRooks > 0 && board.m_whiteRooks == 0));
}

/// Men to be kept: figures always, pawns as the mode says.
bool IsManToKeep(TFigureCode code, int field, std::uint8_t pawnMode) {
    if (IsFigure(code)) {
        return true;
    }
    return pawnMode == PawnsToo || (pawnMode == PawnsNearPromotion && RankOf(field) >= 5);
}

/// White's move before the last black one took, on the same field, a man worth what Black has now taken.
bool WasExchange(const TChessboard& afterBlack) {
    const TChessboard& before = *afterBlack.m_pPrevious;
    return before.m_pPrevious != nullptr && before.m_lastMove.to == afterBlack.m_lastMove.to &&
           ValueOf(LastCaptured(before)) >= ValueOf(LastCaptured(afterBlack));
}

}  // namespace

void NoteSavedFigure(TChessboard& afterBlack) noexcept {
    const TFigureCode captured = LastCaptured(afterBlack);
    if (captured != WhiteQueen && captured != WhiteRook) {
        return;
    }
    const bool bWithRook = Thread(afterBlack).m_heuristics.bSaveIncludesRook;
    afterBlack.m_stateBits.Set(bWithRook ? TStateBit::QueenSaved : TStateBit::RookSaved);
    UpdateHeurParams(afterBlack);
}

bool IsSavedForceGone(const TChessboard& afterBlack) noexcept {
    const bool bNoneLeft = afterBlack.m_stateBits.Has(TStateBit::RookSaved) &&
                           afterBlack.m_whiteQueens + afterBlack.m_whiteRooks == 0;
    const bool bKindGone =
        afterBlack.m_stateBits.Has(TStateBit::QueenSaved) && HasKindUsedUp(afterBlack);
    return (bNoneLeft || bKindGone) && !IsPromotionComing(afterBlack);
}

bool HasJustLostMan(const TChessboard& afterBlack) noexcept {
    const TFigureCode captured = LastCaptured(afterBlack);
    if (!IsWhite(captured)) {
        return false;
    }
    const std::uint8_t pawnMode = Thread(afterBlack).m_heuristics.LoseFiguresPawnMode;
    return IsManToKeep(captured, afterBlack.m_lastMove.to, pawnMode) && !WasExchange(afterBlack);
}

bool HasLostManForNothing(const TChessboard& afterBlack) noexcept {
    if (!HasJustLostMan(afterBlack)) {
        return false;
    }
    const int field = afterBlack.m_lastMove.to;
    return ValueOf(afterBlack.m_fields[field]) < ValueOf(LastCaptured(afterBlack)) ||
           !CanWhiteTakeOn(afterBlack, field);
}

bool IsLossStanding(TChessboard& afterBlack) noexcept {
    const TChessboard* afterWhite = afterBlack.m_pPrevious;
    if (!afterBlack.m_stateBits.Has(TStateBit::FigureLost) || afterWhite == nullptr ||
        afterWhite->m_pPrevious == nullptr) {
        return false;
    }
    const TChessboard& loss = *afterWhite->m_pPrevious;
    const bool bTakenBack = afterWhite->m_lastMove.to == loss.m_lastMove.to &&
                            ValueOf(LastCaptured(*afterWhite)) >= ValueOf(LastCaptured(loss)) &&
                            IsWhite(LastCaptured(loss));
    if (bTakenBack) {
        afterBlack.m_stateBits.Clear(TStateBit::FigureLost);
    }
    return !bTakenBack;
}

}  // namespace tarnwick
