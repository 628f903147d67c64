// White to move: one move that mates against everything is enough. The steps stand in a fixed order:
// registers, leaf, memory, moves in stages, the loop over them, and what to tell when it is over.

#include <utility>

#include "chess/evasions.h"
#include "chess/generate_moves.h"
#include "chess/lines.h"
#include "chess/make_move.h"
#include "chess/mate_in_one.h"
#include "engine/heuristics/dynamic_heuristics.h"
#include "engine/heuristics/heuristic_generators.h"
#include "engine/heuristics/one_colour_play.h"
#include "engine/heuristics/pass_checks.h"
#include "engine/heuristics/search_hooks.h"
#include "engine/jobs/moves_logger.h"
#include "engine/ordering/white_order.h"
#include "engine/search/engine_state.h"
#include "engine/search/find_mate.h"
#include "engine/search/known_positions.h"
#include "engine/search/node_hooks.h"
#include "engine/search/repetition.h"
#include "engine/search/search_scopes.h"
#include "engine/threads/multithreading_level.h"
#include "engine/threads/thread_level.h"

namespace tarnwick {
namespace {

enum class TSort : std::uint8_t {
    None,
    Light,
    Full
};
enum class TNodeStep : std::uint8_t {
    GoOn,
    Mate,
    Leave
};

/// The part of White's moves that a thread of a level was handed in place of all; empty otherwise.
struct TSlice {
    const TMove* pMoves;
    int count;
};

/// Nodes below must not find the slice again, so it leaves the thread.
TSlice TakeSlice(TThreadContext& thread) {
    return {thread.m_pPresetMoveList, std::exchange(thread.m_presetMoveCount, 0)};
}

/// A white node at work. The twin that logs is another type, so that the log costs nothing when off.
template <bool bLogger>
struct TWhiteNode {
    static constexpr bool Logs = bLogger;

    TChessboard& board;
    TThreadContext& thread;
    int plies;
    TSlice slice;
    TKnowable may;  ///< Where its answer may be stored.
    int doubtful = 0;
    int repetitions = 0;
    int index = 0;  ///< Moves tried, over all batches.
    TMove mate{};
    std::array<TMove, TOrderHints::HintsPerNode> tried{};

    /// Sees only a part of White's moves: nothing may be stored.
    bool HasSlice() const { return slice.count > 0; }
};

/// Near the leaves ordering costs more than it saves; far from them it is the best spent time.
TSort WantedSort(const TChessboard& board) {
    const int plies = board.m_shPlies;
    if (board.m_heuristicFlags.HasAny(HeuristicUnsorted)) {
        return TSort::None;
    }
    if (plies == 7 && board.m_whiteQueens >= 3) {
        return TSort::Light;
    }
    if (plies < 9) {
        return TSort::None;
    }
    const bool bFewStrongMen = board.m_whiteQueens + board.m_whiteRooks + board.m_blackBishops < 4;
    const bool bLight =
        plies <= 10 ||
        (plies <= 12 && !board.m_searchFlags.Has(TSearchFlag::FewFigures) && bFewStrongMen) ||
        (plies == 13 && board.m_searchFlags.Has(TSearchFlag::LongLightSort));
    if (!bLight) {
        return TSort::Full;
    }
    return board.m_heuristicFlags.HasAny(HeuristicsThatForbidSorting) ? TSort::None : TSort::Light;
}

/// The board after the move; null when there is nothing to search behind it.
template <class TNode>
TChessboard* MakeMove(TNode& node, TMove move) {
    TChessboard* child = CopyToNextSlot(node.board);
    if (MakeWhiteMove(*child, move) == MoveRefused) {
        node.doubtful += IsRefusedByHeuristic(node.board, move) ? 1 : 0;
        return nullptr;
    }
    if (IsRepetitionToSkip(node.thread, *child, node.plies)) {
        ++node.repetitions;
        return nullptr;
    }
    if (IsCutAfterWhite(*child)) {
        ++node.doubtful;
        return nullptr;
    }
    node.thread.m_plies[static_cast<std::size_t>(node.plies)].moveIndex =
        static_cast<std::uint16_t>(node.index++);
    return child;
}

template <bool bLogger>
TNodeResult SearchReply(TThreadContext& thread, TChessboard& child) {
    if constexpr (bLogger) {
        thread.m_pLogger->LogMove(child);
        const TNodeResult result =
            MatesByFallback(child) ? ResultMate : FindMateBlackToMoveLogged(child);
        thread.m_pLogger->LogResult(child, result);
        return result;
    }
    return MatesByFallback(child) ? ResultMate : FindMateBlackToMove(child);
}

/// What the search behind a move means for the node.
template <class TNode>
TNodeStep TakeAnswer(TNode& node, TMove move, TNodeResult result) {
    if (result == ResultMate) {
        node.mate = move;
        return TNodeStep::Mate;
    }
    if (result == ResultDoubtful) {
        ++node.doubtful;
    } else if (IsRepetitionOrLower(result)) {
        auto& limits = node.thread.m_repetitionLimit;
        const auto ply = static_cast<std::size_t>(node.plies);
        limits[ply] = std::max(limits[ply], limits[ply - 1]);
        ++node.repetitions;
    }
    return TNodeStep::GoOn;
}

/// One move: made, asked for repetition, answered by the black node.
template <class TNode>
TNodeStep SearchMove(TNode& node, TMove move) {
    if (MustLeave(node.thread)) {
        return TNodeStep::Leave;
    }
    TChessboard* child = MakeMove(node, move);
    return child == nullptr ? TNodeStep::GoOn
                            : TakeAnswer(node, move, SearchReply<TNode::Logs>(node.thread, *child));
}

template <class TNode>
bool WasTried(const TNode& node, TMove move) {
    return move.SameAs(node.tried[0]) || move.SameAs(node.tried[1]);
}

template <class TNode>
TNodeStep SearchList(TNode& node, const TMove* pMoves, int count) {
    TPlyState& state = node.thread.m_plies[static_cast<std::size_t>(node.plies)];
    state.pMoves = pMoves;
    state.moveCount = static_cast<std::uint16_t>(count);
    for (int i = 0; i < count; ++i) {
        if (WasTried(node, pMoves[i])) {
            continue;
        }
        const TNodeStep step = SearchMove(node, pMoves[i]);
        if (step != TNodeStep::GoOn) {
            return step;
        }
    }
    return TNodeStep::GoOn;
}

/// What mated here or in a like position, before any list is made.
template <class TNode>
TNodeStep SearchHints(TNode& node) {
    const auto hints = node.thread.m_hints.For(node.board);
    for (std::size_t i = 0; i < hints.size(); ++i) {
        if (!IsPossibleWhiteHint(node.board, hints[i]) || WasTried(node, hints[i])) {
            continue;
        }
        node.tried[i] = hints[i];
        const TNodeStep step = SearchMove(node, hints[i]);
        if (step != TNodeStep::GoOn) {
            return step;
        }
    }
    return TNodeStep::GoOn;
}

/// One figure's moves at a time: a mate found by the first figures saves making the rest.
template <class TNode>
TNodeStep SearchByFigures(TNode& node) {
    for (TFieldSet men = node.board.m_whiteMen; men != 0;) {
        TMove moves[MaxMovesOfMan];
        const int count = GenerateWhiteMoves(node.board, PopLowest(men), moves);
        const TNodeStep step = SearchList(node, moves, count);
        if (step != TNodeStep::GoOn) {
            return step;
        }
    }
    return TNodeStep::GoOn;
}

/// The first levels of a search may be spread over threads, away from the leaves and from lists that are
/// not the whole truth.
template <class TNode>
bool MayUseThreads(const TNode& node) {
    const TChessboard& board = node.board;
    const int movesPlayed = (board.m_shRootPlies - board.m_shPlies) / 2;
    return movesPlayed > 0 && movesPlayed < node.thread.m_task.m_multithreadingLevels &&
           node.thread.m_quickerMateNesting == 0 && node.thread.m_shAlternateFrom == NoAlternate &&
           (node.plies >= 13 ||
            (node.plies >= 11 && board.m_searchFlags.Has(TSearchFlag::FewFigures)));
}

/// Hints have been searched before the list was made: threads need not do so again.
template <class TNode>
int WithoutTried(const TNode& node, TMove* pMoves, int count) {
    return static_cast<int>(
        std::remove_if(pMoves, pMoves + count, [&](TMove move) { return WasTried(node, move); }) -
        pMoves);
}

/// Turns for the moves offered so far, until it is time for a new one or, with bMayStartNew false, until
/// all have their answers.
template <class TNode>
TNodeStep GiveTurns(TNode& node, TThreadLevel& level, const TMove* pMoves, bool bMayStartNew) {
    node.thread.GiveTablesBack();  // This thread waits now.
    while (const auto answer = level.NextAnswer(bMayStartNew)) {
        node.thread.m_repetitionLimit[static_cast<std::size_t>(node.plies - 1)] =
            answer->repetitionLimit;
        const TNodeStep step = TakeAnswer(node, pMoves[answer->slot], answer->result);
        if (step != TNodeStep::GoOn) {
            return step;
        }
    }
    return level.MustStop() ? TNodeStep::Leave : TNodeStep::GoOn;
}

/// The next move joins those that take turns. When no thread can be had they are searched to their end
/// first, and then this move on the node's own thread.
template <class TNode>
TNodeStep SearchInTurn(TNode& node, TThreadLevel& level, const TMove* pMoves, int i) {
    TChessboard* child = MakeMove(node, pMoves[i]);
    if (child == nullptr) {
        return TNodeStep::GoOn;
    }
    while (!level.Offer(i, *child)) {
        if (level.MustStop()) {
            return TNodeStep::Leave;
        }
        if (!level.AnyLeft()) {
            return TakeAnswer(node, pMoves[i], SearchReply<false>(node.thread, *child));
        }
        const TNodeStep step = GiveTurns(node, level, pMoves, false);
        if (step != TNodeStep::GoOn) {
            return step;
        }
    }
    return GiveTurns(node, level, pMoves, true);
}

template <class TNode>
TNodeStep SearchByTurns(TNode& node, TThreadLevel& level, const TMove* pMoves, int count) {
    for (int i = 0; i < count; ++i) {
        const TNodeStep step = SearchInTurn(node, level, pMoves, i);
        if (step != TNodeStep::GoOn) {
            return step;
        }
    }
    return GiveTurns(node, level, pMoves, false);
}

template <class TNode>
TNodeStep SearchSorted(TNode& node, TSort sort) {
    TMove moves[MaxMovesOfSide];
    int count = node.board.m_whiteChecker != NoChecker ? GenerateWhiteEvasions(node.board, moves)
                                                       : GenerateAllWhiteMoves(node.board, moves);
    // The order leaves out what the make operations refuse, for whatever reason.
    node.doubtful += MayHooksRefuse(node.board) ? 1 : 0;
    bool bMate = false;
    int nearBest = 0;
    count = SortWhiteMoves(node.board, count, moves, sort == TSort::Light, &bMate, &nearBest);
    if (bMate) {
        node.mate = moves[0];
        return TNodeStep::Mate;
    }
    if (MayUseThreads(node)) {
        count = WithoutTried(node, moves, count);
        if (count > 1) {
            if (const auto answer =
                    NextMultithreadingLevel(node.board, count, moves, TNode::Logs)) {
                return TakeAnswer(node, node.thread.m_mateOfSlice, *answer);
            }
        }
    }
    if (!TNode::Logs && MayTakeTurns(node.board, nearBest)) {
        count = WithoutTried(node, moves, count);
        if (const auto level = TThreadLevel::Create(node.board, count, nearBest)) {
            return SearchByTurns(node, *level, moves, count);
        }
    }
    return SearchList(node, moves, count);
}

template <class TNode>
TNodeStep SearchEvasions(TNode& node) {
    TMove moves[MaxMovesOfSide];
    const int count = GenerateWhiteEvasions(node.board, moves);
    return SearchList(node, moves, count);
}

/// A heuristic's short list; nothing when it has none. Moves left out make the node doubtful.
template <class TNode>
std::optional<TNodeStep> SearchHeuristicMoves(TNode& node) {
    if (!node.board.m_heuristicFlags.HasAny(HeuristicsWithGenerators)) {
        return std::nullopt;
    }
    TMove moves[MaxMovesOfSide];
    int leftOut = 0;
    const int count = GenerateHeuristicMoves(node.board, moves, &leftOut);
    if (count < 0) {
        return std::nullopt;
    }
    node.doubtful += leftOut > 0 ? 1 : 0;
    return SearchList(node, moves, count);
}

template <class TNode>
TNodeStep SearchAllMoves(TNode& node) {
    if (node.HasSlice()) {
        return SearchList(node, node.slice.pMoves, node.slice.count);
    }
    if (const auto step = SearchHeuristicMoves(node)) {
        return *step;
    }
    const TSort sort = WantedSort(node.board);
    const bool bByTurns = !TNode::Logs && sort == TSort::Full && MayTakeTurns(node.board, 0);
    if (!bByTurns) {  // Where moves take turns, none is searched to its end before the others.
        if (const TNodeStep step = SearchHints(node); step != TNodeStep::GoOn) {
            return step;
        }
    }
    if (sort != TSort::None) {
        return SearchSorted(node, sort);
    }
    return node.board.m_whiteChecker != NoChecker ? SearchEvasions(node) : SearchByFigures(node);
}

template <class TNode>
TNodeResult FinishWithMate(TNode& node) {
    const TMove last = node.board.m_lastMove;
    TThreadContext& thread = node.thread;
    thread.m_bMateCapturedPromotion =
        last.PromotionType() != 0 && node.mate.to == last.to && !node.mate.IsPass();
    if (!node.mate.IsPass()) {  // A thread's slice may have been answered by the register.
        thread.m_hints.Note(node.board, node.mate);
    }
    thread.m_mateOfSlice = node.mate;
    if (!node.HasSlice()) {
        const int additional = thread.m_bUsedAdditionalMoves ? 2 * thread.m_additionalMoves : 0;
        StoreKnownMate(node.board, node.may, node.plies + additional, node.mate);
    }
    return ResultMate;
}

template <class TNode>
TNodeResult FinishWithoutMate(TNode& node) {
    if (IsOneColourPlay(node.board)) {
        return ResultDoubtful;  // White was not allowed all that he may do.
    }
    const auto limit = node.thread.m_repetitionLimit[static_cast<std::size_t>(node.plies)];
    if (!node.thread.m_task.m_bSafeMode) {
        if (node.repetitions > 0) {
            return ResultRepetition;
        }
    } else if (limit > node.plies) {
        return ResultRepetition;
    }
    if (node.doubtful == 0 && limit == 0) {
        if (!node.HasSlice()) {
            StoreKnownNoMate(node.board, node.may);
        }
        return ResultNoMate;
    }
    if (node.doubtful > 0 && !node.HasSlice()) {
        StoreKnownDoubtful(node.board, node.may);
    }
    return node.doubtful > 0 || node.board.m_heuristicFlags.Raw() != 0 ? ResultDoubtful
                                                                       : ResultNoMate;
}

/// The word to an observer, far from the leaves, and what is known of the simplified game.
std::optional<TNodeResult> AnswerBeforeMoves(TChessboard& board) {
    const int plies = board.m_shPlies;
    const int played = board.m_shRootPlies - plies;
    if (plies % 16 == 9 && (plies == 9 || played >= 9)) {
        board.m_pTask->CallObserver();
    }
    if (IsOneColourPlay(board) && board.m_whiteKnights > 0 && IsKnownOneColourMate(board)) {
        return ResultMate;
    }
    return std::nullopt;
}

/// What the stores answer for the node; nothing if the search has to.
std::optional<TNodeResult> AskKnown(TChessboard& board, TKnowable may) {
    TThreadContext& thread = Thread(board);
    switch (FindKnown(board, may)) {
        case TRegisterResult::Mate:
            thread.m_bMateCapturedPromotion = false;
            return ResultMate;
        case TRegisterResult::QuickerMate:
            thread.m_bMateCapturedPromotion = false;
            thread.m_bUsedAdditionalMoves = true;
            return ResultMate;
        case TRegisterResult::NoMate:
            return ResultNoMate;
        case TRegisterResult::NoMateUnderHeuristics:
            return board.m_pass == 1 ? std::optional(ResultDoubtful) : std::nullopt;
        default:
            return std::nullopt;
    }
}

/// White's only figure drives a king that stands on the edge: first as if the king had to stay there.
bool WantsKingHunt(const TChessboard& board) {
    return board.m_pass == 1 && board.m_heuristicFlags.Raw() != 0 &&
           !board.m_heuristicFlags.HasAny(SH_KEEPKINGONTHEEDGE) && board.m_shPlies >= 17 &&
           board.m_shRootPlies - board.m_shPlies <= 9 && BlackKingEdgeDistance(board) == 0 &&
           WhiteFigureCount(board) == 1;
}

template <bool bLogger>
bool MatesByKingHunt(TChessboard& board, bool bConsultRegisters);

bool IsMateAtLeaf(TChessboard& board) {
    return IsOneColourPlay(board) ? IsKnownOneColourMate(board) : IsMateInOne(board);
}

template <bool bLogger>
TNodeResult RunWhiteNode(TChessboard& board, bool bConsultRegisters) {
    TThreadContext& thread = Thread(board);
    const int plies = board.m_shPlies;
    const TSlice slice = TakeSlice(thread);
    if (MayTablesHold(board)) {
        if (const auto answer = AskGlobalRegister(board)) {
            return *answer;
        }
    }
    TKnowable may;
    if (plies >= LeastRegisterPlies || thread.m_additionalMoves > 0) {
        may = WhatMayBeKnown(board);
        if (bConsultRegisters) {
            if (const auto answer = AskKnown(board, may)) {
                return *answer;
            }
        }
    }
    if (plies < 4) {
        CountNode(thread, board);
    }
    if (plies == 1) {
        thread.m_bMateCapturedPromotion = false;
        return IsMateAtLeaf(board) ? ResultMate : ResultNoMate;
    }
    if (const auto answer = AnswerBeforeMoves(board)) {
        return *answer;
    }
    if (slice.count == 0 && WantsKingHunt(board) &&
        MatesByKingHunt<bLogger>(board, bConsultRegisters)) {
        return ResultMate;
    }
    TWhiteNode<bLogger> node{
        .board = board, .thread = thread, .plies = plies, .slice = slice, .may = may};
    if (SearchAllMoves(node) == TNodeStep::Mate) {
        return FinishWithMate(node);
    }
    if (IsStopRequested(thread)) {
        return ResultNoMate;
    }
    return FinishWithoutMate(node);
}

template <bool bLogger>
bool MatesByKingHunt(TChessboard& board, bool bConsultRegisters) {
    const CHeuristicsScope held(board, board.m_heuristicFlags.Raw() | SH_KEEPKINGONTHEEDGE);
    return RunWhiteNode<bLogger>(board, bConsultRegisters) == ResultMate;
}

}  // namespace

TNodeResult FindMateWhiteToMove(TChessboard& board, bool bConsultRegisters) noexcept {
    return RunWhiteNode<false>(board, bConsultRegisters);
}

TNodeResult FindMateWhiteToMoveLogged(TChessboard& board, bool bConsultRegisters) noexcept {
    return RunWhiteNode<true>(board, bConsultRegisters);
}

}  // namespace tarnwick
