// White to move: one move that mates against everything is enough. The steps stand in a fixed order:
// registers, leaf, memory, moves in stages, the loop over them, and what to tell when it is over.

#include "chess/castling.h"
#include "chess/evasions.h"
#include "chess/generate_moves.h"
#include "chess/lines.h"
#include "chess/make_move.h"
#include "chess/mate_in_one.h"
#include "engine/ordering/white_order.h"
#include "engine/search/engine_state.h"
#include "engine/search/find_mate.h"
#include "engine/search/node_hooks.h"
#include "engine/search/repetition.h"

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

/// A white node at work.
struct TWhiteNode {
    TChessboard& board;
    TThreadContext& thread;
    int plies;
    bool bPreset;        ///< Sees only a slice of White's moves: nothing may be stored.
    bool bRememberable;  ///< Its men describe it, and nothing else shapes its answer.
    int doubtful = 0;
    int repetitions = 0;
    int index = 0;  ///< Moves tried, over all batches.
    TMove mate{};
    std::array<TMove, TOrderHints::HintsPerNode> tried{};
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

/// With the heuristic in force, a king move away from the black king is not worth a search in pass 1.
bool KingRecedes(const TChessboard& board, TMove move) {
    if (!board.m_heuristicFlags.HasAny(HeuristicKingMayNotRecede) ||
        board.m_fields[move.from] != WhiteKing || board.m_fields[move.to] != EmptyField) {
        return false;
    }
    const int king = BlackKingField(board);
    return KingDistance(move.to, king) > KingDistance(move.from, king);
}

/// Cut off by a heuristic of pass 1, before or after the move was made.
bool IsCutInFirstPass(const TChessboard& board, const TChessboard& child, TMove move) {
    return KingRecedes(board, move) ||
           (child.m_heuristicFlags.HasAny(HeuristicsWithScreens) && IsScreenedOut(child));
}

TNodeResult SearchReply(TChessboard& child) {
    if (const auto answer = SearchOnThreadLevel(child)) {
        return *answer;
    }
    return FindMateBlackToMove(child);
}

/// One move: made, asked for repetition, answered by the black node.
TNodeStep SearchMove(TWhiteNode& node, TMove move) {
    if (MustLeave(node.thread)) {
        return TNodeStep::Leave;
    }
    TChessboard* child = CopyToNextSlot(node.board);
    if (MakeWhiteMove(*child, move) == MoveRefused) {
        return TNodeStep::GoOn;
    }
    if (IsRepetitionToSkip(node.thread, *child, node.plies)) {
        ++node.repetitions;
        return TNodeStep::GoOn;
    }
    if (node.board.m_pass == 1 && IsCutInFirstPass(node.board, *child, move)) {
        ++node.doubtful;
        return TNodeStep::GoOn;
    }
    node.thread.m_plies[static_cast<std::size_t>(node.plies)].moveIndex =
        static_cast<std::uint16_t>(node.index++);
    const TNodeResult result = SearchReply(*child);
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

bool WasTried(const TWhiteNode& node, TMove move) {
    return move.SameAs(node.tried[0]) || move.SameAs(node.tried[1]);
}

TNodeStep SearchList(TWhiteNode& node, const TMove* pMoves, int count) {
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
TNodeStep SearchHints(TWhiteNode& node) {
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
TNodeStep SearchByFigures(TWhiteNode& node) {
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
bool MayUseThreads(const TWhiteNode& node) {
    const TChessboard& board = node.board;
    return board.m_shPlies != board.m_shRootPlies && node.thread.m_quickerMateNesting == 0 &&
           !node.thread.m_bQuickerMateOff && node.thread.m_shAlternateFrom == NoAlternate &&
           (node.plies >= 13 ||
            (node.plies >= 11 && board.m_searchFlags.Has(TSearchFlag::FewFigures)));
}

TNodeStep SearchSorted(TWhiteNode& node, TSort sort) {
    TMove moves[MaxMovesOfSide];
    int count = node.board.m_whiteChecker != NoChecker ? GenerateWhiteEvasions(node.board, moves)
                                                       : GenerateAllWhiteMoves(node.board, moves);
    bool bMate = false;
    count = SortWhiteMoves(node.board, count, moves, sort == TSort::Light, &bMate);
    if (bMate) {
        node.mate = moves[0];
        return TNodeStep::Mate;
    }
    if (count > 1 && MayUseThreads(node)) {
        if (const auto answer = NextMultithreadingLevel(node.board, moves, count)) {
            return *answer == ResultMate ? TNodeStep::Mate : TNodeStep::GoOn;
        }
    }
    return SearchList(node, moves, count);
}

TNodeStep SearchEvasions(TWhiteNode& node) {
    TMove moves[MaxMovesOfSide];
    const int count = GenerateWhiteEvasions(node.board, moves);
    return SearchList(node, moves, count);
}

TNodeStep SearchPreset(TWhiteNode& node) {
    const TMove* pMoves = node.thread.m_pPresetMoveList;
    const int count = node.thread.m_presetMoveCount;
    node.thread.m_presetMoveCount = 0;
    return SearchList(node, pMoves, count);
}

/// A heuristic's short list; nothing when it has none. Moves left out make the node doubtful.
std::optional<TNodeStep> SearchHeuristicMoves(TWhiteNode& node) {
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

TNodeStep SearchAllMoves(TWhiteNode& node) {
    if (node.bPreset) {
        return SearchPreset(node);
    }
    if (const auto step = SearchHeuristicMoves(node)) {
        return *step;
    }
    if (const TNodeStep step = SearchHints(node); step != TNodeStep::GoOn) {
        return step;
    }
    const TSort sort = WantedSort(node.board);
    if (sort != TSort::None) {
        return SearchSorted(node, sort);
    }
    return node.board.m_whiteChecker != NoChecker ? SearchEvasions(node) : SearchByFigures(node);
}

/// Only answers that depend on the men alone may be remembered.
bool IsRememberable(const TChessboard& board) {
    return board.m_heuristicFlags.Raw() == 0 && (board.m_captureState & OneColourMask) == 0 &&
           IsPositionFullyDescribed(board);
}

TNodeResult FinishWithMate(TWhiteNode& node) {
    const TMove last = node.board.m_lastMove;
    node.thread.m_bMateCapturedPromotion =
        last.PromotionType() != 0 && node.mate.to == last.to && !last.IsPass();
    node.thread.m_hints.Note(node.board, node.mate);
    if (node.bRememberable) {
        node.thread.m_memory.StoreMate(node.board, node.plies, node.mate);
    }
    if (!node.bPreset) {
        const int additional =
            node.thread.m_bUsedAdditionalMoves ? 2 * node.thread.m_additionalMoves : 0;
        TellTemporaryRegister(node.board, node.plies + additional, ResultMate);
    }
    return ResultMate;
}

TNodeResult FinishWithoutMate(TWhiteNode& node) {
    const auto limit = node.thread.m_repetitionLimit[static_cast<std::size_t>(node.plies)];
    if (!node.thread.m_task.m_bSafeMode) {
        if (node.repetitions > 0) {
            return ResultRepetition;
        }
        if (node.doubtful > 0) {
            return ResultDoubtful;
        }
    } else if (limit > node.plies) {
        return ResultRepetition;
    }
    if (node.doubtful == 0 && limit == 0) {
        if (node.bRememberable) {
            node.thread.m_memory.StoreNoMate(node.board, node.plies);
        }
        if (!node.bPreset) {
            TellTemporaryRegister(node.board, node.plies, ResultNoMate);
        }
        return ResultNoMate;
    }
    return node.doubtful > 0 || node.board.m_heuristicFlags.Raw() != 0 ? ResultDoubtful
                                                                       : ResultNoMate;
}

/// Far from the leaves: the search that keeps the black king on the edge, and the word to an observer.
std::optional<TNodeResult> AnswerBeforeMoves(TChessboard& board) {
    const int plies = board.m_shPlies;
    const int played = board.m_shRootPlies - plies;
    if (plies >= 17 && played <= 9 && BlackKingEdgeDistance(board) == 0 &&
        !board.m_heuristicFlags.HasAny(HeuristicKingOnEdge)) {
        if (const auto answer = SearchKingOnEdge(board)) {
            return answer;
        }
    }
    if (plies % 16 == 9 && (plies == 9 || played >= 9)) {
        const TSolveCallbacks& callbacks = board.m_pTask->m_callbacks;
        if (callbacks.onDeepNode) {
            callbacks.onDeepNode();
        }
    }
    const int mode = board.m_captureState & OneColourMask;
    if ((mode == WhiteFieldsOnly || mode == BlackFieldsOnly) && board.m_whiteKnights > 0 &&
        IsKnownOneColourMate(board)) {
        return ResultMate;
    }
    return std::nullopt;
}

}  // namespace

TNodeResult FindMateWhiteToMove(TChessboard& board, bool bConsultRegisters) noexcept {
    TThreadContext& thread = Thread(board);
    const int plies = board.m_shPlies;
    const bool bPreset = thread.m_presetMoveCount != 0;
    if (board.m_searchFlags.Has(TSearchFlag::GlobalRegisterMayHold)) {
        if (const auto answer = AskGlobalRegister(board)) {
            return *answer;
        }
    }
    if (bConsultRegisters && board.m_shRootPlies > 9 && plies >= 3) {
        if (const auto answer = AskTemporaryRegister(board)) {
            return *answer;
        }
    }
    if (plies < 4) {
        CountNode(thread);
    }
    if (plies == 1) {
        thread.m_bMateCapturedPromotion = false;
        return IsMateInOne(board) ? ResultMate : ResultNoMate;
    }
    if (const auto answer = AnswerBeforeMoves(board)) {
        return *answer;
    }
    TWhiteNode node{.board = board,
                    .thread = thread,
                    .plies = plies,
                    .bPreset = bPreset,
                    .bRememberable = !bPreset && IsRememberable(board)};
    if (node.bRememberable) {
        const TRegisterAnswer answer = thread.m_memory.Find(board, plies);
        if (answer == TRegisterAnswer::Mate) {
            thread.m_bMateCapturedPromotion = false;
            return ResultMate;
        }
        if (answer == TRegisterAnswer::NoMate) {
            return ResultNoMate;
        }
    }
    if (SearchAllMoves(node) == TNodeStep::Mate) {
        return FinishWithMate(node);
    }
    if (IsStopRequested(thread)) {
        return ResultNoMate;
    }
    return FinishWithoutMate(node);
}

}  // namespace tarnwick
