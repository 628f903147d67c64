#include "engine/ordering/white_order.h"

#include <algorithm>

#include "chess/board_stack.h"
#include "chess/board_tables.h"
#include "chess/evasions.h"
#include "chess/generate_moves.h"
#include "chess/make_move.h"
#include "engine/jobs/solve_task.h"
#include "engine/ordering/stable_sort.h"
#include "engine/search/repetition.h"
#include "engine/search/thread_context.h"

namespace tarnwick {
namespace {

constexpr int HopelessPenalty = 96;
constexpr int RepetitionScore = 127;

int GenerateReplies(const TChessboard& board, TMove* pList) {
    return board.m_blackChecker != NoChecker ? GenerateBlackEvasions(board, pList)
                                             : GenerateAllBlackMoves(board, pList);
}

/// Replies first; then small steps for what the move does: checks are forcing, captures of strong men
/// disarm Black, and in check the answers that move the king or take the checker come first.
int ScoreByReplies(const TChessboard& board, const TMoveInfo& info, bool bLight) {
    int score = 2 * info.replies + 2;
    if (bLight) {
        return score;
    }
    score -= info.bGivesCheck ? 1 : 0;
    if (info.bCaptures) {
        score -= FigureValues[TypeOf(board.m_fields[info.move.to])] / 3;
    }
    const bool bAnswersCheck =
        TypeOf(board.m_fields[info.move.from]) == TypeKing || info.move.to == board.m_whiteChecker;
    return score + (board.m_whiteChecker != NoChecker && !bAnswersCheck ? 1 : 0);
}

/// White's move number, or 0 inside quicker-mate work, where the plies left do not tell it.
int MoveNumber(const TChessboard& board) {
    return Thread(board).m_quickerMateNesting > 0 ? 0
                                                  : (board.m_shRootPlies - board.m_shPlies) / 2 + 1;
}

}  // namespace

TReplyCount CountReplies(TChessboard& afterWhite) noexcept {
    TMove replies[MaxMovesOfSide];
    const int count = GenerateReplies(afterWhite, replies);
    TReplyCount result;
    for (int i = 0; i < count; ++i) {
        TChessboard* next = CopyToNextSlot(afterWhite);
        const int made = MakeBlackMove(*next, replies[i], false);
        if (made == MoveMadeHopeless) {
            result.bHopeless = true;
            return result;
        }
        result.legal += made == MoveMade ? 1 : 0;
    }
    return result;
}

std::uint8_t ScoreWhiteMove(const TChessboard& board, const TMoveInfo& info, bool bLight) noexcept {
    const TSortHints& hints = board.m_pTask->m_sortHints;
    if (!hints.IsEmpty()) {
        if (const auto score = hints.ScoreFor(board, info, MoveNumber(board))) {
            return *score;
        }
    }
    if (info.bBlackHasNoMoves) {
        return ScoreBad;
    }
    if (info.bRepetition) {
        return RepetitionScore;
    }
    return static_cast<std::uint8_t>(
        std::clamp(ScoreByReplies(board, info, bLight), 1, static_cast<int>(ScoreHighest)));
}

int AnalyseWhiteMove(TChessboard& board, TMove move, TMoveInfo& info) noexcept {
    info = TMoveInfo{};
    info.move = move;
    TChessboard* child = CopyToNextSlot(board);
    if (MakeWhiteMove(*child, move) == MoveRefused) {
        return -1;
    }
    info.bGivesCheck = child->m_blackChecker != NoChecker;
    info.bDoubleCheck = child->m_blackChecker == DoubleCheck;
    info.bDiscoveredOrDouble =
        info.bGivesCheck && child->m_blackChecker != static_cast<std::int8_t>(move.to);
    info.bCaptures = board.m_fields[move.to] != EmptyField || child->m_lastMove.IsEnPassant();
    info.bRepetition = board.m_pTask->m_bSafeMode && FindRepeatedPosition(*child) != nullptr;
    const TReplyCount replies = CountReplies(*child);
    info.bHopeless = replies.bHopeless;
    info.replies = replies.legal + (replies.bHopeless ? HopelessPenalty : 0);
    info.bBlackHasNoMoves = info.replies == 0 && !info.bGivesCheck;
    return info.replies;
}

int SortWhiteMoves(TChessboard& board, int count, TMove* pMoves, bool bLight, bool* pbMate,
                   int* pNearBest) noexcept {
    *pbMate = false;
    int kept = 0;
    int nearBest = 0;
    for (int i = 0; i < count; ++i) {
        TMoveInfo info;
        const int replies = AnalyseWhiteMove(board, pMoves[i], info);
        if (replies < 0) {
            continue;
        }
        if (replies == 0 && info.bGivesCheck) {
            pMoves[0] = pMoves[i];
            *pbMate = true;
            return 1;
        }
        TMove move = pMoves[i];
        move.fourth = ScoreWhiteMove(board, info, bLight);
        if (move.fourth == ScoreFirst && replies <= 1) {
            move.promotion |= NearBestMark;
            ++nearBest;
        }
        pMoves[kept++] = move;
    }
    if (pNearBest != nullptr) {
        *pNearBest = nearBest;
    }
    SortStably(pMoves, kept, [](TMove move) { return move.WhiteSortScore(); });
    return kept;
}

}  // namespace tarnwick
