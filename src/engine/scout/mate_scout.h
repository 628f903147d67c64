#pragma once
// The scout: looks for one mate by proof numbers before the full search begins. It goes where the least
// is left to prove, so it finds mates that hang on forcing play far beyond the reach of a search of all
// moves; it hardly ever shows that there is none.
//
// What it proves is true: every reply of Black has been answered. Proofs go into the stores of known
// positions, where the full search finds them again.

#include <array>
#include <optional>

#include "chess/move_list.h"
#include "engine/scout/proof_table.h"
#include "engine/search/thread_context.h"

namespace tarnwick {

/// Which of White's moves a scout looks at. With fewer moves it goes deeper, and what it does not find
/// proves nothing.
struct TScoutFilter {
    static constexpr int AllReplies = 1000;

    /// Only moves that leave Black at most so many replies ...
    int mostReplies = AllReplies;
    /// ... or that give check or threaten mate at once.
    bool bThreats = false;
    /// Tells the numbers of one filter from those of another in the table they share.
    std::uint16_t salt = 0;

    bool IsOn() const noexcept { return mostReplies < AllReplies; }
};

class TMateScout {
  public:
    static constexpr int LeastRootPlies = 3;

    /// nodes: expanded nodes after which it gives up. A root in pass 1 is searched under its heuristics.
    /// Another scout with the same table and filter goes on where this one gave up.
    TMateScout(TThreadContext& thread, TProofTable& table, std::uint64_t nodes,
               TScoutFilter filter = {})
        : m_thread(thread), m_table(table), m_budget(nodes), m_filter(filter) {}

    /// A first move that mates within the plies of the root; nothing if none was proved, or if the root
    /// has fewer plies than need a scout.
    std::optional<TMove> FindKey(TChessboard& root) noexcept;

    std::uint64_t Expanded() const noexcept { return m_expanded; }
    /// The last search has shown that the moves it was allowed do not mate.
    bool HasFailed() const noexcept { return m_bFailed; }

  private:
    struct TChild {
        TMove move;
        TProofNumbers numbers;
    };
    /// The children of a node that are not settled.
    struct TChildren {
        TChildren() noexcept {}

        union {  // Not cleared: that would be 4 KiB for each visit of a node.
            std::array<TChild, MaxMovesOfSide> list;
        };
        int count = 0;
    };
    struct TChoice;

    template <bool bWhite>
    static TChoice Choose(const TChildren& children) noexcept;
    template <bool bWhite>
    TProofNumbers SearchOpen(TChessboard& board, TChildren& children, TProofNumbers limit) noexcept;
    bool MustGiveUp() noexcept;
    bool IsLeftOut(TChessboard& child) const noexcept;
    bool ExpandWhite(TChessboard& board, TChildren& children) noexcept;
    bool ExpandBlack(TChessboard& board, TChildren& children) noexcept;
    TProofNumbers NumbersAfterWhite(TChessboard& child) noexcept;
    TProofNumbers NumbersAfterBlack(TChessboard& child) noexcept;
    TProofNumbers SearchWhite(TChessboard& board, TProofNumbers limit) noexcept;
    TProofNumbers SearchBlack(TChessboard& board, TProofNumbers limit) noexcept;

    TThreadContext& m_thread;
    TProofTable& m_table;
    std::uint64_t m_budget;
    TScoutFilter m_filter;
    bool m_bAllMoves = true;  ///< Nothing is left out, so that failing is a proof.
    bool m_bFailed = false;
    std::uint64_t m_expanded = 0;
    TMove m_key{};  ///< The mating move of the white node that was proved last.
};

}  // namespace tarnwick
