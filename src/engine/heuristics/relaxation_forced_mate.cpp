// SH_FINDFORCEDMATE weakens by letting ever slower threats count as forcing, a fixed number of times and,
// when all that was over quickly, a few times more. Then it goes, and the search sees all moves again.

#include <algorithm>
#include <string>

#include "platform/clock.h"

#include "engine/heuristics/board_questions.h"
#include "engine/heuristics/free_fields.h"
#include "engine/heuristics/position_tests.h"
#include "engine/heuristics/relaxation_ladder.h"
#include "engine/search/thread_context.h"

namespace tarnwick {
namespace {

/// From here on it is told how near the limit of time a decision was.
constexpr std::int64_t NearLimitFromMs = 800;
constexpr std::int64_t NearLimitToMs = 1200;
/// In shorter problems a last stronger level is cheap.
constexpr int ShortRootPlies = 22;

bool IsWeakest(TForcedLevel level) {
    return level == TForcedLevel::Threat5;
}
TForcedLevel NextLevel(TForcedLevel level) {
    return static_cast<TForcedLevel>(static_cast<int>(level) + 1);
}

bool RaiseLevelInTurn(TLadder& ladder) {
    TSpecialHeuristics& p = ladder.parameters;
    const int done = static_cast<int>(p.ForcedLevel) - static_cast<int>(p.ForcedStartLevel);
    if (done >= p.ForcedRelaxations || IsWeakest(p.ForcedLevel)) {
        return false;
    }
    p.ForcedLevel = NextLevel(p.ForcedLevel);
    if (p.ForcedLevel == TForcedLevel::Threat1Plus && IsQueenAgainstMen(ladder.board)) {
        p.ForcedLevel = TForcedLevel::Threat2;  // Captures beside the king gain nothing there.
    }
    return true;
}

/// Without a queen mates are threatened slowly: one level more.
bool RaiseLastLevelWithoutQueen(TLadder& ladder) {
    const TChessboard& board = ladder.board;
    const bool bWorthIt =
        (board.m_searchFlags.Has(TSearchFlag::FewFigures) && board.m_blackQueens > 0) ||
        board.m_shRootPlies < ShortRootPlies;
    if (ladder.parameters.ForcedLevel != TForcedLevel::Threat2 || board.m_whiteQueens > 0 ||
        !bWorthIt) {
        return false;
    }
    ladder.parameters.ForcedLevel = TForcedLevel::Threat2Plus;
    return true;
}

/// The forcing moves run once more with a weaker hold on the king: the one that the forces suggest.
bool TakeNextSetByMaterial(TLadder& ladder) {
    const TChessboard& board = ladder.board;
    if (ladder.parameters.ForcedWithOthers == TForcedWithOthers::No ||
        !ladder.Has(SH_KEEPKINGONTHEEDGE)) {
        return false;
    }
    ladder.set &= ~SH_KEEPKINGONTHEEDGE;
    const bool bTight = CountFreeFields(board) <= 2 && WhiteFigureCount(board) >= 2;
    if (bTight && WhitePoints(board) >= BlackPoints(board) - ImmovableBlackPoints(board)) {
        ladder.set |= SH_ASSERTBLACKKINGSURROUNDED;
    } else {
        SetExtendedEdge(board, ladder.parameters, ladder.set);
    }
    return true;
}

/// Whether a still weaker level is not worth even a second: the ordinary search does as well.
bool IsForcingExhausted(const TChessboard& board) {
    const int figures = WhiteFigureCount(board);
    if (figures < 3 && !(figures == 2 && board.m_whiteQueens == 0)) {
        return true;
    }
    if (IsKingInCorner(board) && figures >= 4 && CountCornerMoves(board) < 2) {
        return true;
    }
    if (BlackPoints(board) - ImmovableBlackPoints(board) < WhitePoints(board)) {
        return true;
    }
    return board.m_whiteQueens > 0 && figures >= 3 && CanQueenCheckSafely(board) &&
           IsQueenNearKing(board);
}

void TellNearLimit(const TLadder& ladder, std::int64_t elapsed) {
    if (ladder.bSimulated || !ladder.output || elapsed < NearLimitFromMs ||
        elapsed > NearLimitToMs) {
        return;
    }
    ladder.output("Time dependent relaxation near the limit: calcTime=" + std::to_string(elapsed) +
                  " msec.; limit=" + std::to_string(EarlyEndMs) + " msec. " +
                  (elapsed < EarlyEndMs ? "(additional relaxation accepted)"
                                        : "(additional relaxation refused)") +
                  "\n");
}

bool RaiseLevelInTime(TLadder& ladder) {
    const std::int64_t elapsed =
        ladder.bSimulated ? 0 : NowMs() - Thread(ladder.board).m_task.m_startMs;
    TellNearLimit(ladder, elapsed);
    TForcedLevel& level = ladder.parameters.ForcedLevel;
    const bool bQueenChecks = level == TForcedLevel::CheckOnly && ladder.board.m_whiteQueens > 0;
    if (elapsed >= EarlyEndMs || level >= TForcedLevel::Threat2Plus || bQueenChecks) {
        return false;
    }
    // Two levels at once where the one between differs by little.
    level = NextLevel(level);
    if (level == TForcedLevel::Threat1 || level == TForcedLevel::Threat2) {
        level = NextLevel(level);
    }
    return true;
}

}  // namespace

TRung RelaxForcedMate(TLadder& ladder) {
    if (!ladder.Has(SH_FINDFORCEDMATE)) {
        return TRung::GoOn;
    }
    if (ladder.parameters.bForcedInitialPass) {
        ladder.parameters.bForcedInitialPass = false;
        ladder.set = ladder.parameters.ForcedInitialSet;
        return TRung::Changed;
    }
    if (RaiseLevelInTurn(ladder) || RaiseLastLevelWithoutQueen(ladder) ||
        TakeNextSetByMaterial(ladder)) {
        return TRung::Changed;
    }
    if (!IsForcingExhausted(ladder.board) && RaiseLevelInTime(ladder)) {
        return TRung::ChangedByTime;
    }
    return Drop(ladder, SH_FINDFORCEDMATE);
}

}  // namespace tarnwick
