// A depth-first search of White's holds and Black's ways out, with the same checks after each move as the
// pass itself. White's moves are tried in the search's own order, checks and moves that leave few replies
// first; Black's king moves come first, because nearly all heuristics are about the king. What makes it
// cheap is that most white moves fall at their own check; what bounds it is the budget.

#include "engine/heuristics/bounded_mate.h"

#include <algorithm>

#include "chess/escape_check.h"
#include "chess/evasions.h"
#include "chess/generate_moves.h"
#include "chess/make_move.h"
#include "chess/mate_in_one.h"
#include "engine/heuristics/heuristic_bits.h"
#include "engine/heuristics/heuristic_checks.h"
#include "engine/heuristics/white_screens.h"
#include "engine/ordering/white_order.h"
#include "engine/search/engine_state.h"
#include "engine/search/find_mate.h"
#include "engine/search/known_positions.h"
#include "engine/search/node_hooks.h"
#include "engine/search/search_scopes.h"

namespace tarnwick {
namespace {

using enum TTrialResult;

/// Positions that ordering one white move costs, its replies counted.
constexpr int CostOfOrdering = 8;
/// A limit of three moves of each side: from there on a mate in two is asked first.
constexpr int LimitWithMateInTwo = 6;

class CTrial {
  public:
    explicit CTrial(TThreadContext& thread) : m_thread(thread) {}

    TTrialResult Run(TChessboard& board, int limit) {
        return IsWhiteToMove(board) ? WhiteHolds(board, limit) : BlackGetsOut(board, limit);
    }

  private:
    bool IsOver() const { return m_budget <= 0 || IsStopRequested(m_thread); }
    TTrialResult WhiteHolds(TChessboard& board, int limit);
    TTrialResult TryWhiteMoves(TChessboard& board, int limit);
    TTrialResult BlackGetsOut(TChessboard& board, int limit);

    TThreadContext& m_thread;
    int m_budget = TrialBudget;
};

bool MayUseRegister(const TChessboard& board) {
    return board.m_shRootPlies > MostPliesWithoutRegister &&
           board.m_shPlies >= LeastRegisterPlies && WhatMayBeKnown(board).bRegister;
}

/// An earlier trial let the king step off the edge where that set forbids it: not to be taken over.
bool IsKingAwayFromEdge(const TChessboard& board) {
    return board.m_heuristicFlags.HasAny(SH_KEEPKINGONTHEEDGE) &&
           !Thread(board).m_heuristics.bKingStrict && BlackKingEdgeDistance(board) > 0;
}

/// What tables and register know; OutOfBudget if nothing.
TTrialResult AskWhatIsKnown(TChessboard& board, int limit) {
    if (MayTablesHold(board)) {
        if (const auto answer = AskGlobalRegister(board)) {
            return *answer == ResultMate ? Kept : EscapedForSure;
        }
    }
    if (!MayUseRegister(board)) {
        return OutOfBudget;
    }
    const auto& known = *Thread(board).m_pRegister;
    const TChessboardRegisterItem item = ItemOf(board);
    const TPositionHash hash = HashOf(item);
    const std::uint32_t heuristics = board.m_heuristicFlags.Raw();
    switch (known.FindResult(board.m_shPlies, item, hash, heuristics, board.m_heuristicKey)) {
        case TRegisterResult::Mate:
            return Kept;
        case TRegisterResult::NoMate:
        case TRegisterResult::NoMateUnderHeuristics:
            return Escaped;
        default:
            break;
    }
    const bool bSettled = known.IsTrialSettled(static_cast<std::uint16_t>(limit), board.m_shPlies,
                                               item, hash, heuristics, board.m_heuristicKey) &&
                          !IsKingAwayFromEdge(board);
    return bSettled ? Kept : OutOfBudget;
}

/// A register's answer is there already, and what did not end is no answer.
void Remember(TChessboard& board, int limit, TTrialResult result) {
    if ((result != Kept && result != Escaped) || !MayUseRegister(board) ||
        Thread(board).m_outsideStops != 0 || IsStopRequested(Thread(board))) {
        return;
    }
    const bool bEscaped = result == Escaped;
    const auto plies = bEscaped ? board.m_shPlies : static_cast<std::uint16_t>(limit + 1);
    const TChessboardRegisterItem item = ItemOf(board);
    Thread(board).m_pRegister->InsertDoubtfulResult(
        plies, item, HashOf(item), board.m_heuristicFlags.Raw(), board.m_heuristicKey, bEscaped);
}

TTrialResult CTrial::WhiteHolds(TChessboard& board, int limit) {
    if (limit <= 0) {
        return Kept;
    }
    const TTrialResult known = AskWhatIsKnown(board, limit);
    if (known != OutOfBudget) {
        return known;
    }
    --m_budget;
    if (IsOver()) {
        return OutOfBudget;
    }
    if (IsMateInOne(board)) {
        return Kept;
    }
    const TTrialResult result = board.m_shPlies == 1 ? Escaped : TryWhiteMoves(board, limit);
    Remember(board, limit, result);
    return result;
}

/// One move that holds is enough. Moves that ran out of budget leave it open whether there is one.
TTrialResult CTrial::TryWhiteMoves(TChessboard& board, int limit) {
    TMove moves[MaxMovesOfSide];
    int count = board.m_whiteChecker != NoChecker ? GenerateWhiteEvasions(board, moves)
                                                  : GenerateAllWhiteMoves(board, moves);
    if (limit > 2) {
        m_budget -= CostOfOrdering * count;
        bool bMate = false;
        count = SortWhiteMoves(board, count, moves, true, &bMate);
    }
    for (int i = 0; i < count && !IsOver(); ++i) {
        TChessboard* child = CopyToNextSlot(board);
        --m_budget;
        if (MakeWhiteMove(*child, moves[i]) == MoveRefused ||
            (child->m_heuristicFlags.HasAny(HeuristicsWithScreens) && IsScreenedOut(*child)) ||
            BreaksHeuristicsAfterWhite(*child)) {
            continue;
        }
        if (BlackGetsOut(*child, limit - 1) == Kept) {
            return Kept;
        }
    }
    return IsOver() ? OutOfBudget : Escaped;
}

TTrialResult CTrial::BlackGetsOut(TChessboard& board, int limit) {
    const bool bInCheck = board.m_blackChecker != NoChecker;
    if (board.m_shPlies == 0) {
        return bInCheck && !CanBlackEscapeCheck(board) ? Kept : Escaped;
    }
    TMove moves[MaxMovesOfSide];
    const int count =
        bInCheck ? GenerateBlackEvasions(board, moves) : GenerateAllBlackMoves(board, moves);
    const int king = BlackKingField(board);
    std::partition(moves, moves + count, [&](TMove move) { return move.from == king; });
    bool bLegalMove = false;
    for (int i = 0; i < count; ++i) {
        if (IsOver()) {
            return OutOfBudget;
        }
        TChessboard* child = CopyToNextSlot(board);
        const int made = MakeBlackMove(*child, moves[i], false);
        if (made == MoveRefused) {
            continue;
        }
        --m_budget;
        bLegalMove = true;
        if (made == MoveMadeHopeless || BreaksHeuristicsAfterBlack(*child)) {
            return Escaped;
        }
        const TTrialResult result = WhiteHolds(*child, limit - 1);
        if (result != Kept) {
            return result;
        }
    }
    return bLegalMove || bInCheck ? Kept : Escaped;  // A stalemate is a way out, too.
}

/// The trial's own small mates, asked before the last limits.
bool MatesInFewMoves(TChessboard& board, int limit) {
    if (!IsWhiteToMove(board)) {
        return false;
    }
    if (board.m_shPlies == 1) {
        return IsMateInOne(board);
    }
    return limit == LimitWithMateInTwo && board.m_shPlies >= 4 && IsWhiteMateInTwo(board);
}

}  // namespace

TTrialResult IsBoundedMate(TChessboard& board, int from, int to,
                           bool bTestMateInOneFirst) noexcept {
    TThreadContext& thread = Thread(board);
    if (thread.m_quickerMateNesting > 0 ||
        (bTestMateInOneFirst && IsWhiteToMove(board) && IsMateInOne(board))) {
        return Kept;
    }
    const CNestedWork nested(board);
    CTrial trial(thread);
    for (int limit = from; limit <= to; limit += 2) {
        if (MatesInFewMoves(board, limit)) {
            return Kept;
        }
        const TTrialResult result = trial.Run(board, limit);
        if (result != Kept) {
            return result;
        }
    }
    return Kept;
}

TTrialResult TryHeuristics(TChessboard& board, std::uint32_t heuristics,
                           const TTrialOptions& options) noexcept {
    TSpecialHeuristics& parameters = Thread(board).m_heuristics;
    const bool bStrictBefore = parameters.bKingStrict;
    const bool bAlmostBefore = parameters.bKingAlmostStrict;
    parameters.bKingStrict = options.bKingStrict;
    parameters.bKingAlmostStrict = options.bKingAlmostStrict;
    const CHeuristicsScope set(board, heuristics);
    const TTrialLimits& limits = options.limits;
    const TTrialResult result =
        IsBoundedMate(board, limits.from, limits.to, limits.bTestMateInOneFirst);
    parameters.bKingStrict = bStrictBefore;
    parameters.bKingAlmostStrict = bAlmostBefore;
    return result;
}

TTrialResult TryEdgeStrict(TChessboard& board, const TTrialLimits& limits) noexcept {
    return TryHeuristics(board, SH_KEEPKINGONTHEEDGE, {true, true, limits});
}

}  // namespace tarnwick
