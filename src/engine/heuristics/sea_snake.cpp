#include "engine/heuristics/sea_snake.h"

#include <algorithm>

#include "engine/heuristics/heuristic_bits.h"
#include "engine/heuristics/heuristic_key.h"
#include "engine/heuristics/line_moves.h"
#include "engine/heuristics/white_captures.h"
#include "engine/search/thread_context.h"

namespace tarnwick {
namespace {

const TSpecialHeuristics& Parameters(const TChessboard& board) {
    return Thread(board).m_heuristics;
}

bool IsPlanKnown(const TSpecialHeuristics& parameters) {
    return parameters.SeaSnakeApproachField < FieldCount &&
           parameters.SeaSnakeTurnBackField < FieldCount &&
           parameters.SeaSnakePendulumField1 < FieldCount &&
           parameters.SeaSnakePendulumField2 < FieldCount;
}

/// The plan is on: all of it is known, and it is not put off to a later move. Quicker-mate work has other
/// plies than the line; there the move at which it began counts.
bool IsPlanOn(const TChessboard& board) {
    const TThreadContext& thread = Thread(board);
    const int plies =
        thread.m_quickerMateNesting > 0 ? thread.m_quickerMateStartPlies : board.m_shPlies;
    return thread.m_heuristics.bSeaSnakeOn && IsPlanKnown(thread.m_heuristics) &&
           (board.m_shRootPlies - plies) / 2 >= thread.m_heuristics.SeaSnakeAfterMove;
}

/// The king may go as far from its goal as where it turns back or where it began, and one step more.
bool IsOnTheWay(const TChessboard& board, int field) {
    const int goal = Parameters(board).SeaSnakeApproachField;
    const int turnBack = Parameters(board).SeaSnakeTurnBackField;
    const TChessboard* pRoot = Thread(board).m_pRootBoard;
    const int start = pRoot != nullptr ? WhiteKingField(*pRoot) : turnBack;
    return KingDistance(field, goal) <=
           std::max(KingDistance(turnBack, goal), KingDistance(start, goal)) + 1;
}

bool IsPendulumField(const TChessboard& board, int field) {
    return field == Parameters(board).SeaSnakePendulumField1 ||
           field == Parameters(board).SeaSnakePendulumField2;
}

}  // namespace

bool MayServeSeaSnake(const TChessboard& board, TMove move) noexcept {
    const bool bPawnCaptures =
        board.m_fields[move.from] == WhitePawn && FileOf(move.from) != FileOf(move.to);
    if (!IsPlanOn(board) || board.m_fields[move.to] != EmptyField || bPawnCaptures ||
        move.PromotionType() != 0) {
        return true;
    }
    return board.m_fields[move.from] == WhiteKing && IsOnTheWay(board, move.to);
}

bool BreaksSeaSnakeAfterWhite(TChessboard& afterWhite) noexcept {
    const TMove move = afterWhite.m_lastMove;
    if (afterWhite.m_pPrevious == nullptr || move.IsPass() || !IsPlanOn(afterWhite)) {
        return false;
    }
    if (LastMover(afterWhite) == WhiteKing &&
        move.to == Parameters(afterWhite).SeaSnakeApproachField) {
        SetHeuristics(afterWhite, afterWhite.m_heuristicFlags.Raw() & ~SH_SEASNAKE);
        return false;
    }
    return afterWhite.m_blackChecker == NoChecker &&
           !MayServeSeaSnake(*afterWhite.m_pPrevious, move);
}

bool BreaksSeaSnakeAfterBlack(const TChessboard& afterBlack) noexcept {
    const TMove move = afterBlack.m_lastMove;
    if (afterBlack.m_pPrevious == nullptr || move.IsPass() || !IsPlanOn(afterBlack) ||
        LastMover(afterBlack) == BlackPawn || afterBlack.m_pPrevious->m_blackChecker != NoChecker) {
        return false;
    }
    const bool bSwings =
        IsPendulumField(afterBlack, move.from) && IsPendulumField(afterBlack, move.to);
    return !bSwings && !CanWhiteCapture(afterBlack, move.to);
}

}  // namespace tarnwick
