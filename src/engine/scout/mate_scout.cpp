// Depth-first proof number search. A white node needs one proved child, a black node all of them; each
// node is searched until its numbers pass the limits at which its parent would rather look elsewhere.
// Plies left are part of a node, so no line of play meets itself again.

#include "engine/scout/mate_scout.h"

#include <algorithm>

#include "chess/castling.h"
#include "chess/escape_check.h"
#include "chess/evasions.h"
#include "chess/generate_moves.h"
#include "chess/make_move.h"
#include "chess/mate_in_one.h"
#include "engine/heuristics/pass_checks.h"
#include "engine/heuristics/tracked_men.h"
#include "engine/ordering/white_order.h"
#include "engine/search/engine_state.h"
#include "engine/search/known_positions.h"
#include "engine/search/node_hooks.h"

namespace tarnwick {
namespace {

std::uint32_t Capped(std::uint64_t number) {
    return static_cast<std::uint32_t>(std::min<std::uint64_t>(number, TProofNumbers::Infinite - 1));
}

/// A little patience saves going back and forth between two children that are equally good.
std::uint32_t WithPatience(std::uint32_t second) {
    return Capped(std::uint64_t{second} + second / 4 + 1);
}

/// A quiet move that threatens nothing leaves Black free to do what he likes, so it looks that much dearer
/// than its replies alone. The factors 3 and 4 solve no more, and the threats have to count.
constexpr int QuietMoveFactor = 2;
constexpr int MostForcedReplies = 3;

/// Check, or mate next move if Black does nothing.
bool ThreatensMate(TChessboard& afterWhite) {
    if (afterWhite.m_blackChecker != NoChecker) {
        return true;
    }
    TChessboard* passed = CopyToNextSlot(afterWhite);
    return PassBlack(*passed) && IsMateInOne(*passed);
}

/// Black's replies, with those of pinned men that are not legal: never fewer than there are.
int EstimateReplies(const TChessboard& board) {
    TMove moves[MaxMovesOfSide];
    const int count = board.m_blackChecker != NoChecker ? GenerateBlackEvasions(board, moves)
                                                        : GenerateAllBlackMoves(board, moves);
    const int king = BlackKingField(board);
    const auto ofOthers =
        std::count_if(moves, moves + count, [king](TMove move) { return move.from != king; });
    return static_cast<int>(ofOthers) + CountBlackKingMoves(board);
}

}  // namespace

/// Where the search of a node goes on, and its numbers. One number of a node is the least of its children,
/// the other one adds up.
struct TMateScout::TChoice {
    int best = -1;  ///< The child with the least; -1: none is open.
    std::uint32_t least = TProofNumbers::Infinite;
    std::uint32_t second = TProofNumbers::Infinite;
    std::uint64_t sum = 0;

    void Take(int child, std::uint32_t minimised) noexcept {
        if (minimised < least) {
            second = least;
            least = minimised;
            best = child;
        } else {
            second = std::min(second, minimised);
        }
    }
};

/// White needs one child: the least proof. To disprove all of them is thought as hard as the hardest and a
/// little for each other one, because most of White's moves fail for the same reason; Black's defences have
/// to be met one by one, so that their proofs add up in full.
template <bool bWhite>
TMateScout::TChoice TMateScout::Choose(const TChildren& children) noexcept {
    TChoice choice;
    for (int i = 0; i < children.count; ++i) {
        const TProofNumbers& n = children.list[static_cast<std::size_t>(i)].numbers;
        choice.Take(i, bWhite ? n.proof : n.disproof);
        choice.sum =
            bWhite ? std::max<std::uint64_t>(choice.sum, n.disproof) : choice.sum + n.proof;
    }
    if (bWhite && children.count > 0) {
        choice.sum += static_cast<std::uint64_t>(children.count) - 1;
    }
    return choice;
}

bool TMateScout::MustGiveUp() noexcept {
    return m_expanded >= m_budget || MustLeave(m_thread);
}

/// White's move is none that this scout looks at.
bool TMateScout::IsLeftOut(TChessboard& child) const noexcept {
    if (IsCutAfterWhite(child)) {
        return true;
    }
    if (!m_filter.IsOn() || EstimateReplies(child) <= m_filter.mostReplies) {
        return false;
    }
    return !m_filter.bThreats || !ThreatensMate(child);
}

TProofNumbers TMateScout::NumbersAfterWhite(TChessboard& child) noexcept {
    if (WhatMayBeKnown(child).bMemory) {
        if (const auto known = m_table.Find(child, m_filter.salt)) {
            return *known;
        }
    }
    const int replies = EstimateReplies(child);
    if (replies == 0) {
        return child.m_blackChecker != NoChecker ? Proved : Disproved;
    }
    const bool bForcing = replies <= MostForcedReplies || ThreatensMate(child);
    return {static_cast<std::uint32_t>(bForcing ? replies : replies * QuietMoveFactor), 1};
}

TProofNumbers TMateScout::NumbersAfterBlack(TChessboard& child) noexcept {
    if (IsCutAfterBlack(child)) {
        return Disproved;
    }
    if (MayTablesHold(child)) {
        if (const auto answer = AskGlobalRegister(child)) {
            return *answer == ResultMate ? Proved : Disproved;
        }
    }
    const TKnowable may = WhatMayBeKnown(child);
    if (child.m_shPlies > 1) {
        const TRegisterResult known = FindKnown(child, may);
        if (known == TRegisterResult::Mate || known == TRegisterResult::NoMate) {
            return known == TRegisterResult::Mate ? Proved : Disproved;
        }
        if (may.bMemory) {
            if (const auto numbers = m_table.Find(child, m_filter.salt)) {
                return *numbers;
            }
        }
    }
    CountNode(m_thread, child);
    if (IsMateInOne(child)) {
        return Proved;
    }
    return child.m_shPlies == 1 ? Disproved : TProofNumbers{1, 1};
}

/// True: a child is proved, and with it the node.
bool TMateScout::ExpandWhite(TChessboard& board, TChildren& children) noexcept {
    ++m_expanded;
    TMove moves[MaxMovesOfSide];
    const int count = board.m_whiteChecker != NoChecker ? GenerateWhiteEvasions(board, moves)
                                                        : GenerateAllWhiteMoves(board, moves);
    for (int i = 0; i < count; ++i) {
        TChessboard* child = CopyToNextSlot(board);
        if (MakeWhiteMove(*child, moves[i]) == MoveRefused || IsLeftOut(*child)) {
            continue;
        }
        const TProofNumbers numbers = NumbersAfterWhite(*child);
        if (numbers.IsProved()) {
            m_key = moves[i];
            return true;
        }
        if (!numbers.IsDisproved()) {
            children.list[static_cast<std::size_t>(children.count++)] = {moves[i], numbers};
        }
    }
    return false;
}

/// True: a child is disproved, or Black is stalemated, and with it the node.
bool TMateScout::ExpandBlack(TChessboard& board, TChildren& children) noexcept {
    ++m_expanded;
    TMove moves[MaxMovesOfSide];
    const int count = board.m_blackChecker != NoChecker ? GenerateBlackEvasions(board, moves)
                                                        : GenerateAllBlackMoves(board, moves);
    bool bLegalMove = false;
    for (int i = 0; i < count; ++i) {
        TChessboard* child = CopyToNextSlot(board);
        const int made = MakeBlackMove(*child, moves[i], false);
        if (made == MoveRefused) {
            continue;
        }
        bLegalMove = true;
        const TProofNumbers numbers =
            made == MoveMadeHopeless ? Disproved : NumbersAfterBlack(*child);
        if (numbers.IsDisproved()) {
            return true;
        }
        if (!numbers.IsProved()) {
            children.list[static_cast<std::size_t>(children.count++)] = {moves[i], numbers};
        }
    }
    return !bLegalMove && board.m_blackChecker == NoChecker;
}

/// Searches the children until the node is settled or its numbers reach a limit.
template <bool bWhite>
TProofNumbers TMateScout::SearchOpen(TChessboard& board, TChildren& children,
                                     TProofNumbers limit) noexcept {
    while (true) {
        const TChoice choice = Choose<bWhite>(children);
        if (choice.best < 0) {
            return bWhite ? Disproved : Proved;
        }
        const std::uint32_t sum = Capped(choice.sum);
        const TProofNumbers numbers =
            bWhite ? TProofNumbers{choice.least, sum} : TProofNumbers{sum, choice.least};
        if (numbers.proof >= limit.proof || numbers.disproof >= limit.disproof || MustGiveUp()) {
            return numbers;
        }
        TChild& best = children.list[static_cast<std::size_t>(choice.best)];
        TChessboard* child = CopyToNextSlot(board);
        const std::uint32_t patience = WithPatience(choice.second);
        if constexpr (bWhite) {
            MakeWhiteMove(*child, best.move);
            const std::uint32_t others = static_cast<std::uint32_t>(children.count) - 1;
            best.numbers =
                SearchBlack(*child, {std::min(limit.proof, patience), limit.disproof - others});
        } else {
            MakeBlackMove(*child, best.move, false);
            if (child->m_pass == 1 && child->m_heuristicFlags.Raw() != 0) {
                NoteBlackMove(*child);
            }
            const std::uint32_t others = sum - best.numbers.proof;
            best.numbers =
                SearchWhite(*child, {limit.proof - others, std::min(limit.disproof, patience)});
        }
        if (bWhite ? best.numbers.IsProved() : best.numbers.IsDisproved()) {
            m_key = best.move;
            return best.numbers;
        }
        if (best.numbers.IsSettled()) {
            best = children.list[static_cast<std::size_t>(--children.count)];
        }
    }
}

TProofNumbers TMateScout::SearchWhite(TChessboard& board, TProofNumbers limit) noexcept {
    const std::uint64_t before = m_expanded;
    const TKnowable may = WhatMayBeKnown(board);
    TChildren children;
    const TProofNumbers numbers =
        ExpandWhite(board, children) ? Proved : SearchOpen<true>(board, children, limit);
    if (numbers.IsProved()) {
        StoreKnownMate(board, may, board.m_shPlies, m_key);
    } else if (numbers.IsDisproved() && m_bAllMoves) {
        StoreKnownNoMate(board, may);
    } else if (may.bMemory) {
        m_table.Store(board, m_filter.salt, numbers,
                      static_cast<std::uint32_t>(m_expanded - before));
    }
    return numbers;
}

TProofNumbers TMateScout::SearchBlack(TChessboard& board, TProofNumbers limit) noexcept {
    const std::uint64_t before = m_expanded;
    TChildren children;
    const TProofNumbers numbers =
        ExpandBlack(board, children) ? Disproved : SearchOpen<false>(board, children, limit);
    if (WhatMayBeKnown(board).bMemory) {
        m_table.Store(board, m_filter.salt, numbers,
                      static_cast<std::uint32_t>(m_expanded - before));
    }
    return numbers;
}

std::optional<TMove> TMateScout::FindKey(TChessboard& root) noexcept {
    if (root.m_shPlies < LeastRootPlies) {
        return std::nullopt;
    }
    m_bAllMoves = !m_filter.IsOn() && (root.m_pass != 1 || root.m_heuristicFlags.Raw() == 0);
    const TProofNumbers never{TProofNumbers::Infinite, TProofNumbers::Infinite};
    const TProofNumbers numbers = SearchWhite(root, never);
    m_bFailed = numbers.IsDisproved();
    return numbers.IsProved() ? std::optional(m_key) : std::nullopt;
}

}  // namespace tarnwick
