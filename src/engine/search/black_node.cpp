// Black to move: one defence after which White has no mate is enough to refute.

#include "chess/board_stack.h"
#include "chess/escape_check.h"
#include "chess/evasions.h"
#include "chess/generate_moves.h"
#include "chess/lines.h"
#include "chess/make_move.h"
#include "engine/heuristics/dynamic_heuristics.h"
#include "engine/heuristics/one_colour_play.h"
#include "engine/heuristics/pass_checks.h"
#include "engine/jobs/moves_logger.h"
#include "engine/ordering/black_order.h"
#include "engine/search/engine_state.h"
#include "engine/search/find_mate.h"
#include "engine/search/known_positions.h"
#include "engine/search/node_hooks.h"

namespace tarnwick {
namespace {

/// A black node at work; the twin that logs is another type.
template <bool bLogger>
struct TBlackNode {
    static constexpr bool Logs = bLogger;

    TChessboard& board;
    TThreadContext& thread;
    int plies;
    bool bLegalMove = false;          ///< Some legal move exists.
    TNodeResult answer = ResultMate;  ///< The node's answer once a defence held.
    std::array<TMove, TOrderHints::HintsPerNode> tried{};
};

/// In the pass with heuristics: what Black's move does to them, and whether White's mate would be doubtful
/// behind it.
bool IsDoubtfulDefence(TChessboard& child) {
    if (child.m_pass != 1) {
        return false;
    }
    SeparateOppositeBishops(child);
    return IsCutAfterBlack(child);
}

/// White's answer as the stores know it.
template <class TNode>
std::optional<TNodeResult> AnswerFromStores(const TNode& node, TChessboard& child) {
    switch (FindKnown(child, WhatMayBeKnown(child))) {
        case TRegisterResult::Mate:
            if constexpr (TNode::Logs) {
                node.thread.m_pLogger->LogText(child, "Mate found (pos.in temp.reg.)");
            }
            node.thread.m_bMateCapturedPromotion = false;
            return ResultMate;
        case TRegisterResult::NoMate:
            return ResultNoMate;
        case TRegisterResult::NoMateUnderHeuristics:
            return child.m_pass == 1 ? std::optional(ResultDoubtful) : std::nullopt;
        default:
            return std::nullopt;
    }
}

/// White's answer to the position after a defence.
template <class TNode>
TNodeResult AnswerDefence(const TNode& node, TChessboard& child) {
    if (child.m_heuristicFlags.Raw() != 0 && IsDoubtfulDefence(child)) {
        return ResultDoubtful;
    }
    if (child.m_shPlies >= LeastRegisterPlies) {
        if (MayTablesHold(child)) {
            if (const auto answer = AskGlobalRegister(child)) {
                return *answer;
            }
        }
        if (const auto answer = AnswerFromStores(node, child)) {
            return *answer;
        }
    }
    const int played = child.m_shRootPlies - child.m_shPlies;
    if (child.m_pass == 1 && child.m_shPlies >= 16 && played < 8 &&
        node.thread.m_heuristics.bUnblockDynamic && MatesWithTrackedFields(child)) {
        return ResultMate;
    }
    if (child.m_shPlies >= 3 && !IsOneColourPlay(child) && LookForQuickerMate(child)) {
        if constexpr (TNode::Logs) {
            if (node.thread.m_bUsedAdditionalMoves) {
                node.thread.m_pLogger->LogText(child,
                                               "QuickerMate with AdditionalMoves found (with "
                                               "glob.reg./Nalimov lookup)");
            }
        }
        return ResultMate;
    }
    return TNode::Logs ? FindMateWhiteToMoveLogged(child, true) : FindMateWhiteToMove(child, true);
}

/// A repetition that belongs to an earlier ply is carried there; one of this very position means that
/// Black can go round in circles, which refutes.
template <class TNode>
TNodeResult RepetitionAnswer(TNode& node) {
    auto& limits = node.thread.m_repetitionLimit;
    const auto ply = static_cast<std::size_t>(node.plies);
    if (limits[ply - 1] > node.plies) {
        limits[ply] = std::max(limits[ply], limits[ply - 1]);
        return ResultRepetition;
    }
    return node.board.m_pass == 1 ? ResultDoubtful : ResultNoMate;
}

/// True when the node is decided: the defence held, or the search has to leave.
template <class TNode>
bool DefenceHolds(TNode& node, TMove move, bool bKnownLegal) {
    if (MustLeave(node.thread)) {
        node.answer = ResultNoMate;
        return true;
    }
    TChessboard* child = CopyToNextSlot(node.board);
    const int made = MakeBlackMove(*child, move, bKnownLegal);
    if (made == MoveRefused) {
        return false;
    }
    node.bLegalMove = true;
    if (made == MoveMadeHopeless) {
        node.answer = ResultNoMate;
        return true;
    }
    if constexpr (TNode::Logs) {
        node.thread.m_pLogger->LogMove(*child);
    }
    const TNodeResult result = AnswerDefence(node, *child);
    if constexpr (TNode::Logs) {
        node.thread.m_pLogger->LogResult(*child, result);
    }
    if (result == ResultMate) {
        return false;
    }
    node.answer = IsRepetitionOrLower(result) ? RepetitionAnswer(node) : result;
    if (!IsStopRequested(node.thread)) {
        node.thread.m_hints.Note(node.board, move);
    }
    return true;
}

template <class TNode>
bool WasTried(const TNode& node, TMove move) {
    // No hint is a pass, and that of a king on a1 looks like the empty move.
    return !move.IsPass() && (move.SameAs(node.tried[0]) || move.SameAs(node.tried[1]));
}

template <class TNode>
bool HintHolds(TNode& node) {
    const auto hints = node.thread.m_hints.For(node.board);
    for (std::size_t i = 0; i < hints.size(); ++i) {
        if (!IsPossibleBlackHint(node.board, hints[i]) || WasTried(node, hints[i])) {
            continue;
        }
        node.tried[i] = hints[i];
        if (DefenceHolds(node, hints[i], false)) {
            return true;
        }
    }
    return false;
}

/// White's mate took the promoted figure: it would take any other just so. Skips the promotions of the
/// same pawn to the same field that follow.
template <class TNode>
int SkipOtherPromotions(const TNode& node, const TMove* pMoves, int i, int count) {
    if (pMoves[i].PromotionType() == 0 || !node.thread.m_bMateCapturedPromotion) {
        return i;
    }
    while (i + 1 < count && pMoves[i + 1].from == pMoves[i].from &&
           pMoves[i + 1].to == pMoves[i].to) {
        ++i;
    }
    return i;
}

template <class TNode>
bool AnyHolds(TNode& node, const TMove* pMoves, int count, bool bKnownLegal) {
    TPlyState& state = node.thread.m_plies[static_cast<std::size_t>(node.plies)];
    state.pMoves = pMoves;
    state.moveCount = static_cast<std::uint16_t>(count);
    for (int i = 0; i < count; ++i) {
        if (WasTried(node, pMoves[i])) {
            continue;
        }
        state.moveIndex = static_cast<std::uint16_t>(i);
        node.thread.m_bMateCapturedPromotion = false;
        if (DefenceHolds(node, pMoves[i], bKnownLegal)) {
            return true;
        }
        i = SkipOtherPromotions(node, pMoves, i, count);
    }
    return false;
}

template <class TNode>
bool AnyHoldsByFigures(TNode& node) {
    for (TFieldSet men = node.board.m_blackMen; men != 0;) {
        TMove moves[MaxMovesOfMan];
        const int count = GenerateBlackMoves(node.board, PopLowest(men), moves);
        if (AnyHolds(node, moves, count, false)) {
            return true;
        }
    }
    return false;
}

/// A tempo move of the bishop that was taken off.
template <class TNode>
bool PassHolds(TNode& node) {
    const TMove pass = MakePass(static_cast<TField>(BlackKingField(node.board)));
    return AnyHolds(node, &pass, 1, true);
}

/// True when the node is decided.
template <class TNode>
bool AnyMoveHolds(TNode& node) {
    if (HintHolds(node)) {
        return true;
    }
    const bool bInCheck = node.board.m_blackChecker != NoChecker;
    if (!bInCheck && IsBishopTakenOff(node.board) && PassHolds(node)) {
        return true;
    }
    if (node.plies < 4 && !bInCheck) {
        return AnyHoldsByFigures(node);
    }
    TMove moves[MaxMovesOfSide];
    int count = bInCheck ? GenerateBlackEvasions(node.board, moves)
                         : GenerateAllBlackMoves(node.board, moves);
    if (node.plies < 4) {
        return AnyHolds(node, moves, count, false);
    }
    TBlackOrder order = SortBlackMoves(node.board, count, moves);
    if (order.bRefuted) {
        node.answer = ResultNoMate;
        return true;
    }
    node.bLegalMove = node.bLegalMove || order.count > 0;
    return AnyHolds(node, moves, order.count, true);
}

template <bool bLogger>
TNodeResult RunBlackNode(TChessboard& board) {
    TThreadContext& thread = Thread(board);
    if (MustLeave(thread)) {
        return ResultNoMate;
    }
    if (board.m_shPlies == 0) {
        return board.m_blackChecker != NoChecker && !CanBlackEscapeCheck(board) ? ResultMate
                                                                                : ResultNoMate;
    }
    TBlackNode<bLogger> node{.board = board, .thread = thread, .plies = board.m_shPlies};
    if (AnyMoveHolds(node)) {
        return node.answer;
    }
    if (board.m_blackChecker != NoChecker) {
        return ResultMate;
    }
    if (IsBishopTakenOff(board)) {
        return MayBlackBeStalemated(board) ? ResultDoubtful : ResultMate;
    }
    return node.bLegalMove ? ResultMate : ResultNoMate;  // The latter is stalemate.
}

}  // namespace

TNodeResult FindMateBlackToMove(TChessboard& board) noexcept {
    return RunBlackNode<false>(board);
}

TNodeResult FindMateBlackToMoveLogged(TChessboard& board) noexcept {
    return RunBlackNode<true>(board);
}

}  // namespace tarnwick
