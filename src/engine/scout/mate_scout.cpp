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
#include "engine/ordering/white_order.h"
#include "engine/search/engine_state.h"
#include "engine/search/known_positions.h"

namespace tarnwick {
namespace {

std::uint32_t Capped(std::uint64_t number) {
    return static_cast<std::uint32_t>(std::min<std::uint64_t>(number, TProofNumbers::Infinite - 1));
}

/// Where a search goes on: the best child, and what is left to its parent.
struct TChoice {
    int best = -1;
    std::uint32_t least = TProofNumbers::Infinite;  ///< Of the number that is minimised.
    std::uint32_t second = TProofNumbers::Infinite;
    std::uint64_t sum = 0;  ///< Of the other number, over all children.
    std::uint32_t largest = 0;
    int open = 0;
};

/// A little patience saves going back and forth between two children that are equally good.
std::uint32_t WithPatience(std::uint32_t second) {
    return Capped(std::uint64_t{second} + second / 4 + 1);
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

bool TMateScout::MustGiveUp() noexcept {
    return m_expanded >= m_budget || MustLeave(m_thread);
}

TProofNumbers TMateScout::NumbersAfterWhite(TChessboard& child) noexcept {
    if (WhatMayBeKnown(child).bMemory) {
        if (const auto known = m_table.Find(child)) {
            return *known;
        }
    }
    const int replies = EstimateReplies(child);
    if (replies == 0) {
        return child.m_blackChecker != NoChecker ? Proved : Disproved;
    }
    return {static_cast<std::uint32_t>(replies), 1};
}

TProofNumbers TMateScout::NumbersAfterBlack(TChessboard& child) noexcept {
    const TKnowable may = WhatMayBeKnown(child);
    if (child.m_shPlies > 1) {
        const TRegisterResult known = FindKnown(child, may);
        if (known == TRegisterResult::Mate || known == TRegisterResult::NoMate) {
            return known == TRegisterResult::Mate ? Proved : Disproved;
        }
        if (may.bMemory) {
            if (const auto numbers = m_table.Find(child)) {
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

TProofNumbers TMateScout::SearchWhite(TChessboard& board, TProofNumbers limit) noexcept {
    ++m_expanded;
    const std::uint64_t before = m_expanded;
    TMove moves[MaxMovesOfSide];
    const int generated = board.m_whiteChecker != NoChecker ? GenerateWhiteEvasions(board, moves)
                                                            : GenerateAllWhiteMoves(board, moves);
    TChild children[MaxMovesOfSide];
    int count = 0;
    const TKnowable may = WhatMayBeKnown(board);
    TProofNumbers numbers = Disproved;
    for (int i = 0; i < generated; ++i) {
        TChessboard* child = CopyToNextSlot(board);
        if (MakeWhiteMove(*child, moves[i]) == MoveRefused) {
            continue;
        }
        children[count] = {moves[i], NumbersAfterWhite(*child)};
        if (children[count].numbers.IsProved()) {
            m_key = moves[i];
            StoreKnownMate(board, may, board.m_shPlies, moves[i]);
            return Proved;
        }
        count += children[count].numbers.IsDisproved() ? 0 : 1;
    }
    while (true) {
        TChoice choice;
        for (int i = 0; i < count; ++i) {
            const TProofNumbers& n = children[i].numbers;
            choice.sum += n.disproof;
            choice.largest = std::max(choice.largest, n.disproof);
            ++choice.open;
            if (n.proof < choice.least) {
                choice.second = choice.least;
                choice.least = n.proof;
                choice.best = i;
            } else if (n.proof < choice.second) {
                choice.second = n.proof;
            }
        }
        if (choice.best < 0) {
            numbers = Disproved;
            break;
        }
        const std::uint64_t disproof = std::uint64_t{choice.largest} + choice.open - 1;
        numbers = {choice.least, Capped(disproof)};
        if (numbers.proof >= limit.proof || numbers.disproof >= limit.disproof || MustGiveUp()) {
            break;
        }
        TChild& best = children[choice.best];
        TChessboard* child = CopyToNextSlot(board);
        MakeWhiteMove(*child, best.move);
        const TProofNumbers childLimit{std::min(limit.proof, WithPatience(choice.second)),
                                       Capped(std::uint64_t{limit.disproof} - (choice.open - 1))};
        best.numbers = SearchBlack(*child, childLimit);
        if (best.numbers.IsProved()) {
            m_key = best.move;
            StoreKnownMate(board, may, board.m_shPlies, best.move);
            return Proved;
        }
        if (best.numbers.IsDisproved()) {
            best = children[--count];
        }
    }
    if (numbers.IsDisproved()) {
        StoreKnownNoMate(board, may);
    } else if (may.bMemory) {
        m_table.Store(board, numbers, static_cast<std::uint32_t>(m_expanded - before + 1));
    }
    return numbers;
}

TProofNumbers TMateScout::SearchBlack(TChessboard& board, TProofNumbers limit) noexcept {
    ++m_expanded;
    const std::uint64_t before = m_expanded;
    TMove moves[MaxMovesOfSide];
    const int generated = board.m_blackChecker != NoChecker ? GenerateBlackEvasions(board, moves)
                                                            : GenerateAllBlackMoves(board, moves);
    TChild children[MaxMovesOfSide];
    int count = 0;
    bool bLegalMove = false;
    const bool bDescribed = WhatMayBeKnown(board).bMemory;
    for (int i = 0; i < generated; ++i) {
        TChessboard* child = CopyToNextSlot(board);
        const int made = MakeBlackMove(*child, moves[i], false);
        if (made == MoveRefused) {
            continue;
        }
        bLegalMove = true;
        children[count] = {moves[i],
                           made == MoveMadeHopeless ? Disproved : NumbersAfterBlack(*child)};
        if (children[count].numbers.IsDisproved()) {
            if (bDescribed) {
                m_table.Store(board, Disproved, 1);
            }
            return Disproved;
        }
        count += children[count].numbers.IsProved() ? 0 : 1;
    }
    if (!bLegalMove && board.m_blackChecker == NoChecker) {
        return Disproved;  // Stalemate.
    }
    TProofNumbers numbers = Proved;
    while (true) {
        TChoice choice;
        for (int i = 0; i < count; ++i) {
            const TProofNumbers& n = children[i].numbers;
            choice.sum += n.proof;
            choice.largest = std::max(choice.largest, n.proof);
            ++choice.open;
            if (n.disproof < choice.least) {
                choice.second = choice.least;
                choice.least = n.disproof;
                choice.best = i;
            } else if (n.disproof < choice.second) {
                choice.second = n.disproof;
            }
        }
        if (choice.best < 0) {
            numbers = Proved;
            break;
        }
        numbers = {Capped(choice.sum), choice.least};
        if (numbers.proof >= limit.proof || numbers.disproof >= limit.disproof || MustGiveUp()) {
            break;
        }
        TChild& best = children[choice.best];
        TChessboard* child = CopyToNextSlot(board);
        MakeBlackMove(*child, best.move, false);
        const TProofNumbers childLimit{
            Capped(std::uint64_t{limit.proof} - (numbers.proof - best.numbers.proof)),
            std::min(limit.disproof, WithPatience(choice.second))};
        best.numbers = SearchWhite(*child, childLimit);
        if (best.numbers.IsDisproved()) {
            numbers = Disproved;
            break;
        }
        if (best.numbers.IsProved()) {
            best = children[--count];
        }
    }
    if (bDescribed) {
        m_table.Store(board, numbers, static_cast<std::uint32_t>(m_expanded - before + 1));
    }
    return numbers;
}

std::optional<TMove> TMateScout::FindKey(TChessboard& root) noexcept {
    if (root.m_shPlies < LeastRootPlies) {
        return std::nullopt;
    }
    const TProofNumbers never{TProofNumbers::Infinite, TProofNumbers::Infinite};
    const TProofNumbers numbers = SearchWhite(root, never);
    return numbers.IsProved() ? std::optional(m_key) : std::nullopt;
}

}  // namespace tarnwick
