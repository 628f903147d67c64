#include "engine/heuristics/single_queen_mate.h"

#include <array>

#include "engine/heuristics/line_moves.h"
#include "engine/heuristics/white_captures.h"
#include "engine/search/thread_context.h"

namespace tarnwick {
namespace {

/// What White's other men may do.
struct TStillness {
    bool bMayCapture;
    bool bKingMayStep;  ///< No further than one field from where it stood at the root.
    bool bPawnsMayMove;
};

constexpr std::array<TStillness, 4> StillnessTable = {{
    {false, false, false},
    {true, false, false},
    {true, true, false},
    {true, true, true},
}};

const TStillness& StillnessOf(const TChessboard& board) {
    return StillnessTable[Thread(board).m_heuristics.SingleQueenTable & 3U];
}

}  // namespace

TFieldSet FieldsForbiddenToWhiteKing(const TChessboard& board) noexcept {
    if (board.m_whiteChecker != NoChecker) {
        return 0;
    }
    const TChessboard* pRoot = Thread(board).m_pRootBoard;
    if (pRoot == nullptr || !StillnessOf(board).bKingMayStep) {
        return ~FieldBit(WhiteKingField(board));
    }
    const int home = WhiteKingField(*pRoot);
    return ~(KingFields[static_cast<std::size_t>(home)] | FieldBit(home));
}

bool StirsBesideQueen(const TChessboard& afterWhite) noexcept {
    const TFigureCode mover = LastMover(afterWhite);
    const bool bForced =
        afterWhite.m_pPrevious != nullptr && afterWhite.m_pPrevious->m_whiteChecker != NoChecker;
    if (mover == WhiteQueen || mover == EmptyField || bForced ||
        afterWhite.m_blackChecker != NoChecker) {
        return false;
    }
    const TStillness& still = StillnessOf(afterWhite);
    if (LastCaptured(afterWhite) != EmptyField && still.bMayCapture) {
        return false;
    }
    if (mover == WhiteKing) {
        return (FieldsForbiddenToWhiteKing(*afterWhite.m_pPrevious) &
                FieldBit(afterWhite.m_lastMove.to)) != 0;
    }
    return mover != WhitePawn || !still.bPawnsMayMove;
}

bool IsQueenHuntOver(const TChessboard& afterBlack) noexcept {
    if (afterBlack.m_whiteQueens == 0) {
        return true;
    }
    return IsFigure(LastMover(afterBlack)) && !afterBlack.m_lastMove.IsPass() &&
           !CanWhiteCapture(afterBlack, afterBlack.m_lastMove.to);
}

}  // namespace tarnwick
