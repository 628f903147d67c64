// One function for both sides of a node: a white move is only worth anything with all of Black's replies.
// Per reply: what is known, then short mates by growing depth, then the full depth. The list of forced
// moves is the expensive part of a node, so a node is entered only after all that.
//
// A line often runs out of forcing moves just before the end, where one slower threat would win. So a node
// of a weak level that has none left tries threats of mate in two for a few moves, once in a line.

#include "engine/forced/find_forced_mate.h"

#include <algorithm>

#include "chess/evasions.h"
#include "chess/generate_moves.h"
#include "chess/make_move.h"
#include "engine/forced/forced_known.h"
#include "engine/forced/forced_moves.h"
#include "engine/forced/forced_scopes.h"
#include "engine/forced/forced_sequel.h"
#include "engine/heuristics/pass_checks.h"
#include "engine/jobs/moves_logger.h"
#include "engine/ordering/black_order.h"
#include "engine/search/engine_state.h"
#include "engine/search/repetition.h"
#include "engine/threads/multithreading_level.h"

namespace tarnwick {
namespace {

/// All moves are looked at from here down.
constexpr int LeafPlies = 3;
/// The deepening on short mates before a reply is searched to its full depth.
constexpr int LongestQuickerMate = 9;
/// A node of so many plies may be spread over threads.
constexpr int LeastPliesForThreads = 13;
/// A limit that was none counts down from NoForcedDepth by the moves played.
constexpr int LeastWithoutLimit = NoForcedDepth / 2;
/// Moves for which a line that has run out of forcing moves goes on with slower threats.
constexpr int MovesOfSlowerThreats = 3;

enum class TNodeStep : std::uint8_t {
    GoOn,
    Mate,
    Leave
};

struct TForcedNode {
    TChessboard& board;
    TThreadContext& thread;
    int moves;      ///< The limit in White's moves beside the plies left.
    bool bPreset;   ///< Sees only a slice of the moves: nothing may be stored.
    TKnowable may;  ///< Where its answer may be stored.
    bool bEndOfDepth = false;
    bool bNoForcedMove = false;
    TMove mate{};
};

int EffectivePlies(const TChessboard& board, int moves) {
    return std::min<int>(2 * moves - 1, board.m_shPlies);
}

bool IsTrueToDepth(const TForcedNode& node) {
    return 2 * node.moves - 1 >= node.board.m_shPlies;
}

/// Whether the other heuristics judge the moves of the forced search too; the initial pass is there for
/// them.
bool AreOthersInForce(const TThreadContext& thread) {
    return thread.m_heuristics.ForcedWithOthers == TForcedWithOthers::Yes ||
           thread.m_heuristics.bForcedInitialPass;
}

/// A word now and then to who has to be kept alive.
void CallObserver(const TChessboard& board) {
    const int played = board.m_shRootPlies - board.m_shPlies;
    if (board.m_shPlies % 32 == 11 && (board.m_shPlies == 11 || played >= 11)) {
        board.m_pTask->CallObserver();
    }
}

TNodeResult AnswerLeaf(TChessboard& board, int plies) {
    CountNode(Thread(board), board);
    if (IsMateInOne(board) || (plies >= 3 && IsExactMateInTwo(board))) {
        return ResultMate;
    }
    return plies < board.m_shPlies ? ResultEndOfFFMDepth : ResultNoMate;
}

// ---- Black's replies

TNodeResult RunForcedNode(TChessboard& board, int moves);

/// White's answer to a reply.
TNodeResult AnswerReply(TChessboard& child, int moves) {
    const int plies = EffectivePlies(child, moves);
    if (plies > LeafPlies) {
        if (const auto answer = AskForcedKnown(child, WhatForcedMayKnow(child))) {
            return *answer;
        }
        if (LookForQuickerMateFFM(child, plies - 2)) {
            return ResultMate;
        }
    }
    return RunForcedNode(child, moves);
}

/// A repetition of an earlier ply is carried there; of this one it means that Black goes round in circles.
TNodeResult CarryRepetition(TThreadContext& thread, std::size_t ply) {
    auto& limits = thread.m_repetitionLimit;
    if (limits[ply - 1] <= ply) {
        return ResultDoubtful;
    }
    limits[ply] = std::max(limits[ply], limits[ply - 1]);
    return ResultRepetition;
}

TNodeResult SearchReply(TChessboard& board, TMove move, int moves) {
    TThreadContext& thread = Thread(board);
    TChessboard* child = CopyToNextSlot(board);
    if (MakeBlackMove(*child, move, true) == MoveMadeHopeless) {
        return ResultNoMate;
    }
    if (AreOthersInForce(thread) && IsCutAfterBlack(*child)) {
        return ResultDoubtful;
    }
    if (thread.m_pLogger != nullptr) {
        thread.m_pLogger->LogMove(*child);
    }
    const TNodeResult result = AnswerReply(*child, moves);
    if (thread.m_pLogger != nullptr) {
        thread.m_pLogger->LogResult(*child, result);
    }
    return result == ResultRepetition ? CarryRepetition(thread, board.m_shPlies) : result;
}

/// What decided a like node comes first.
void BringHintsForward(const TChessboard& board, TMove* pMoves, int count) {
    const auto hints = Thread(board).m_hints.For(board);
    for (std::size_t i = hints.size(); i-- > 0;) {
        TMove* const found =
            std::find_if(pMoves, pMoves + count, [&](TMove move) { return move.SameAs(hints[i]); });
        if (found != pMoves + count) {
            std::rotate(pMoves, found, found + 1);
        }
    }
}

void ShowMoves(TThreadContext& thread, int plies, const TMove* pMoves, int count) {
    TPlyState& state = thread.m_plies[static_cast<std::size_t>(plies)];
    state.pMoves = pMoves;
    state.moveCount = static_cast<std::uint16_t>(count);
}

void ShowMoveInHand(TThreadContext& thread, int plies, int i) {
    thread.m_plies[static_cast<std::size_t>(plies)].moveIndex = static_cast<std::uint16_t>(i);
}

/// Mate if White mates after every reply, in at most so many moves.
TNodeResult AnswerReplies(TChessboard& board, int moves) {
    TThreadContext& thread = Thread(board);
    const bool bInCheck = board.m_blackChecker != NoChecker;
    TMove replies[MaxMovesOfSide];
    const int count =
        bInCheck ? GenerateBlackEvasions(board, replies) : GenerateAllBlackMoves(board, replies);
    const TBlackOrder order = SortBlackMoves(board, count, replies);
    if (order.bRefuted) {
        return ResultNoMate;
    }
    if (order.count == 0) {
        return bInCheck ? ResultMate : ResultNoMate;
    }
    BringHintsForward(board, replies, order.count);
    ShowMoves(thread, board.m_shPlies, replies, order.count);
    for (int i = 0; i < order.count; ++i) {
        if (MustLeave(thread)) {
            return ResultNoMate;
        }
        ShowMoveInHand(thread, board.m_shPlies, i);
        const TNodeResult result = SearchReply(board, replies[i], moves);
        if (result != ResultMate) {
            if (!IsStopRequested(thread)) {
                thread.m_hints.Note(board, replies[i]);
            }
            return result;
        }
    }
    return ResultMate;
}

// ---- White's moves

TNodeStep TakeAnswer(TForcedNode& node, TMove move, TNodeResult result) {
    if (result == ResultMate) {
        node.mate = move;
        return TNodeStep::Mate;
    }
    if (result == ResultEndOfFFMDepth) {
        node.bEndOfDepth = true;
    } else if (result == ResultRepetition) {
        auto& limits = node.thread.m_repetitionLimit;
        const std::size_t ply = node.board.m_shPlies;
        limits[ply] = std::max(limits[ply], limits[ply - 1]);
    }
    return TNodeStep::GoOn;
}

TNodeStep SearchMove(TForcedNode& node, TMove move, int moves) {
    if (MustLeave(node.thread)) {
        return TNodeStep::Leave;
    }
    TChessboard* child = CopyToNextSlot(node.board);
    if (MakeWhiteMove(*child, move) == MoveRefused ||
        IsRepetitionToSkip(node.thread, *child, node.board.m_shPlies) ||
        (AreOthersInForce(node.thread) && IsCutAfterWhite(*child))) {
        return TNodeStep::GoOn;
    }
    if (node.thread.m_pLogger != nullptr) {
        node.thread.m_pLogger->LogMove(*child);
    }
    const TNodeResult result = AnswerReplies(*child, moves - 1);
    if (node.thread.m_pLogger != nullptr) {
        node.thread.m_pLogger->LogResult(*child, result);
    }
    return TakeAnswer(node, move, result);
}

TNodeStep SearchList(TForcedNode& node, const TMove* pMoves, int count, int moves) {
    ShowMoves(node.thread, node.board.m_shPlies, pMoves, count);
    for (int i = 0; i < count; ++i) {
        ShowMoveInHand(node.thread, node.board.m_shPlies, i);
        const TNodeStep step = SearchMove(node, pMoves[i], moves);
        if (step != TNodeStep::GoOn) {
            return step;
        }
    }
    return TNodeStep::GoOn;
}

/// The twin of a node for a thread of a level: all that it needs to know stands in its context.
TNodeResult FindForcedMateInLevel(TChessboard& board) noexcept {
    const CInForcedLevel inLevel(Thread(board));
    return FindForcedMateWhite(board, NoForcedDepth);
}

bool MayUseThreads(const TForcedNode& node, int count) {
    const int movesPlayed = (node.board.m_shRootPlies - node.board.m_shPlies) / 2;
    return count > 1 && movesPlayed > 0 &&
           movesPlayed < node.thread.m_task.m_multithreadingLevels &&
           node.board.m_shPlies >= LeastPliesForThreads && node.moves > LeastWithoutLimit &&
           node.thread.m_quickerMateNesting == 0 && node.thread.m_shAlternateFrom == NoAlternate;
}

/// Slower threats, once the line has run out of forcing moves. A level that knows them has none to add.
TNodeStep SearchSlowerThreats(TForcedNode& node) {
    if (node.thread.m_heuristics.ForcedLevel >= TForcedLevel::Threat2 ||
        node.thread.m_quickerMateNesting > 0) {
        return TNodeStep::GoOn;
    }
    const CForcedLevelScope slower(node.board, TForcedLevel::Threat2);
    TMove moves[MaxMovesOfSide];
    const int count = ListForcedMoves(node.board, moves);
    const TNodeStep step =
        SearchList(node, moves, count, std::min(node.moves, MovesOfSlowerThreats));
    // Its own limit is nobody else's.
    node.bEndOfDepth = node.bEndOfDepth && node.moves <= MovesOfSlowerThreats;
    return step;
}

TNodeStep SearchForcedMoves(TForcedNode& node) {
    TMove moves[MaxMovesOfSide];
    const int count = ListForcedMoves(node.board, moves);
    if (count == 0) {
        node.bNoForcedMove = true;
        return SearchSlowerThreats(node);
    }
    BringHintsForward(node.board, moves, count);
    if (MayUseThreads(node, count)) {
        const bool bLogger = node.thread.m_pLogger != nullptr;
        if (const auto answer =
                SearchInThreads(node.board, count, moves, {FindForcedMateInLevel, bLogger})) {
            return TakeAnswer(node, node.thread.m_mateOfSlice, *answer);
        }
    }
    return SearchList(node, moves, count, node.moves);
}

TNodeStep SearchPreset(TForcedNode& node) {
    const int count = node.thread.m_presetMoveCount;
    node.thread.m_presetMoveCount = 0;
    return SearchList(node, node.thread.m_pPresetMoveList, count, node.moves);
}

// ---- The end of a node

TNodeResult FinishWithMate(TForcedNode& node) {
    if (!node.mate.IsPass()) {
        node.thread.m_hints.Note(node.board, node.mate);
    }
    node.thread.m_mateOfSlice = node.mate;
    if (!node.bPreset) {
        StoreKnownMate(node.board, node.may, node.board.m_shPlies, node.mate);
    }
    return ResultMate;
}

TNodeResult FinishWithoutMate(TForcedNode& node) {
    const std::size_t ply = node.board.m_shPlies;
    if (node.thread.m_repetitionLimit[ply] > ply) {
        return ResultRepetition;
    }
    if (node.bEndOfDepth) {
        return ResultEndOfFFMDepth;
    }
    // Without forced moves the answer depends on where in the line the node stands.
    if (!node.bPreset && !node.bNoForcedMove && IsTrueToDepth(node)) {
        StoreKnownDoubtful(node.board, node.may);
    }
    return ResultDoubtful;
}

/// What is known has been asked.
TNodeResult RunForcedNode(TChessboard& board, int moves) {
    TThreadContext& thread = Thread(board);
    if (MustLeave(thread)) {
        return ResultNoMate;
    }
    const int plies = EffectivePlies(board, moves);
    if (plies <= LeafPlies) {
        return AnswerLeaf(board, plies);
    }
    CountNode(thread, board);
    CallObserver(board);
    TForcedNode node{.board = board,
                     .thread = thread,
                     .moves = moves,
                     .bPreset = thread.m_presetMoveCount != 0,
                     .may = WhatForcedMayKnow(board)};
    if ((node.bPreset ? SearchPreset(node) : SearchForcedMoves(node)) == TNodeStep::Mate) {
        return FinishWithMate(node);
    }
    if (IsStopRequested(thread)) {
        return ResultNoMate;
    }
    const bool bMayGoOn = !node.bPreset && IsTrueToDepth(node);
    return bMayGoOn && MatesBySequel(board) ? ResultMate : FinishWithoutMate(node);
}

}  // namespace

TNodeResult FindForcedMateWhite(TChessboard& board, int moves) noexcept {
    if (Thread(board).m_presetMoveCount == 0 && EffectivePlies(board, moves) > LeafPlies) {
        if (const auto answer = AskForcedKnown(board, WhatForcedMayKnow(board))) {
            return *answer;
        }
    }
    return RunForcedNode(board, moves);
}

bool LookForQuickerMateFFM(TChessboard& board, int maxPlies) noexcept {
    const CNestedWork nested(board);
    if (IsMateInOne(board) || (maxPlies >= 3 && IsExactMateInTwo(board))) {
        return true;
    }
    CPliesScope plies(board);
    const int longest = std::min(maxPlies, LongestQuickerMate);
    for (int k = LeafPlies + 2; k <= longest && !IsStopRequested(Thread(board)); k += 2) {
        plies.Set(k);
        if (FindForcedMateWhite(board, NoForcedDepth) == ResultMate) {
            return true;
        }
    }
    return false;
}

TNodeResult FindForcedMateAtRoot(TChessboard& afterFirstMove) noexcept {
    const CInForcedLevel inLevel(Thread(afterFirstMove));
    return AnswerReplies(afterFirstMove, NoForcedDepth - 1);
}

}  // namespace tarnwick
