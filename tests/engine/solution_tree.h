#pragma once

// Is a key really one? The tree of the solution is walked by the plain rules of tests/support: every
// defence is played, and White answers with a move after which the job's register knows a mate in time
// for each reply. Only the register's word is taken, and only as a hint where to look next: a line ends
// in a mate that the plain rules see, or the tree has a flaw.

#include <map>
#include <string>
#include <utility>

#include "registers/aggregated_register.h"
#include "solve_support.h"
#include "support/slow_solver.h"

namespace tarnwick {

class CSolutionTree {
  public:
    explicit CSolutionTree(const TAggregatedTemporaryChessboardRegister& store) : m_store(store) {}

    /// True if every defence against the key (full notation) is mated within `moves` moves of White, the
    /// key included.
    bool Confirms(const slow::TSlowPosition& root, const std::string& key, int moves) {
        const auto move = slow::FindMove(root, key);
        return move && AnswersAll(slow::Play(root, *move), moves - 1);
    }

    std::size_t Positions() const { return m_known.size(); }

  private:
    /// Black to move: mated now, or each reply is answered.
    bool AnswersAll(const slow::TSlowPosition& black, int moves) {
        const auto replies = slow::LegalMoves(black);
        if (replies.empty()) {
            return slow::IsMate(black);
        }
        return moves > 0 && std::all_of(replies.begin(), replies.end(), [&](const auto& reply) {
                   return Mates(slow::Play(black, reply), moves);
               });
    }

    bool Mates(const slow::TSlowPosition& white, int moves) {
        const auto entry = std::make_pair(slow::PlacementText(white), moves);
        if (const auto found = m_known.find(entry); found != m_known.end()) {
            return found->second;
        }
        const bool bMates = (moves >= 1 && slow::MateIn(white, 1)) || AnyMoveMates(white, moves);
        return m_known[entry] = bMates;
    }

    bool AnyMoveMates(const slow::TSlowPosition& white, int moves) {
        const auto list = slow::LegalMoves(white);
        return moves > 1 && std::any_of(list.begin(), list.end(), [&](const auto& move) {
                   const auto black = slow::Play(white, move);
                   return AreRepliesKnown(black, moves - 1) && AnswersAll(black, moves - 1);
               });
    }

    /// Cheap: what the register says, without walking.
    bool AreRepliesKnown(const slow::TSlowPosition& black, int moves) const {
        const auto replies = slow::LegalMoves(black);
        return !replies.empty() &&
               std::all_of(replies.begin(), replies.end(), [&](const auto& reply) {
                   const auto white = slow::Play(black, reply);
                   return IsDoubleStep(black, reply) || IsKnown(white, moves) ||
                          slow::MateIn(white, 1);
               });
    }

    /// The register does not hold positions in which a capture en passant may be possible, so these are
    /// always walked.
    static bool IsDoubleStep(const slow::TSlowPosition& before, const slow::TSlowMove& move) {
        return before.board[static_cast<std::size_t>(move.from)] == 'p' &&
               move.from - move.to == 16;
    }

    bool IsKnown(const slow::TSlowPosition& white, int moves) const {
        const TChessboard board = BoardOf(slow::PlacementText(white));
        return m_store.FindResult(static_cast<std::uint16_t>(2 * moves - 1), ItemOf(board), 0, 0) ==
               TRegisterResult::Mate;
    }

    const TAggregatedTemporaryChessboardRegister& m_store;
    std::map<std::pair<std::string, int>, bool> m_known;
};

}  // namespace tarnwick
