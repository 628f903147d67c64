#include "engine/heuristics/zugzwang_position.h"

#include <algorithm>
#include <bit>

#include "chess/board_tables.h"
#include "engine/search/thread_context.h"

namespace tarnwick {
namespace {

/// White's moves to come until the position is to be back; negative when that is over, or while a quicker
/// mate is looked for, where the plies left do not tell the move.
int WhiteMovesToReturn(const TChessboard& board) {
    if (Thread(board).m_quickerMateNesting > 0) {
        return -1;
    }
    const int played = (board.m_shRootPlies - board.m_shPlies + 1) / 2;
    return Thread(board).m_heuristics.ZugzwangReturnMoves - played;
}

/// The least number of moves in which one side's men are back where they stood at the root: every man
/// off its place takes a move, the king as many as its way is long.
int MovesHome(TFieldSet men, TFieldSet rootMen, int king, int rootKing) {
    const TFieldSet away = men & ~rootMen & ~FieldBit(king);
    return KingDistance(king, rootKing) + std::popcount(away);
}

/// What moves cannot bring back.
bool IsLostForGood(const TChessboard& board, const TChessboard& root) {
    return std::popcount(OccupiedFields(board)) != std::popcount(OccupiedFields(root)) ||
           board.m_pawns != root.m_pawns;
}

}  // namespace

bool MissesZugzwangPosition(const TChessboard& afterWhite) noexcept {
    const TChessboard* pRoot = Thread(afterWhite).m_pRootBoard;
    const int movesLeft = WhiteMovesToReturn(afterWhite);
    if (pRoot == nullptr || movesLeft < 0) {
        return false;
    }
    if (movesLeft == 0) {
        return !std::equal(std::begin(afterWhite.m_fields), std::end(afterWhite.m_fields),
                           std::begin(pRoot->m_fields));
    }
    return IsLostForGood(afterWhite, *pRoot) ||
           MovesHome(afterWhite.m_whiteMen, pRoot->m_whiteMen, WhiteKingField(afterWhite),
                     WhiteKingField(*pRoot)) > movesLeft;
}

bool HasBlackLeftZugzwangPlan(const TChessboard& afterBlack) noexcept {
    const TChessboard* pRoot = Thread(afterBlack).m_pRootBoard;
    const int whiteMovesLeft = WhiteMovesToReturn(afterBlack);
    if (pRoot == nullptr || whiteMovesLeft <= 0) {
        return false;
    }
    return IsLostForGood(afterBlack, *pRoot) ||
           MovesHome(afterBlack.m_blackMen, pRoot->m_blackMen, BlackKingField(afterBlack),
                     BlackKingField(*pRoot)) > whiteMovesLeft - 1;
}

bool MayServeZugzwang(const TChessboard& board, TMove move) noexcept {
    if (WhiteMovesToReturn(board) <= 0) {
        return true;
    }
    return board.m_fields[move.to] == EmptyField && TypeOf(board.m_fields[move.from]) != TypePawn;
}

}  // namespace tarnwick
