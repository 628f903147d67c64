#pragma once
// The line of play that a search thread has in hand, as text for whoever watches the job.
//
// The line changes a million times a second and belongs to its thread, so nobody else reads it: the
// watcher asks, and the thread answers when it next looks at the clock.

#include <atomic>
#include <cstdint>
#include <mutex>
#include <string>

#include "chess/chessboard.h"

namespace tarnwick {

/// "1. Qd1-d8, Ka8-b7, 2. Qd8-c7 SH:0h": the moves from the root to the board, as many as the depth of
/// the problem allows, and the heuristics in force.
std::string ProgressText(const TChessboard& board);

/// Half-moves that are shown in a problem of so many plies: short lines are worth reading whole.
int ShownHalfMoves(int rootPlies);

/// Where a line stands. Problems have White to move, so it has such a position too: the last one.
struct TPositionInHand {
    std::string fen;         ///< In full, of the position itself; empty: none yet.
    std::string problemFen;  ///< Placement alone.
    int problemMoves = 0;    ///< That White has left there.
};

class TLineInHand {
  public:
    /// Asks a thread for its line. Replaces an earlier question.
    void Ask(std::uint16_t thread) noexcept { m_asked.store(thread, std::memory_order_relaxed); }
    /// The last answer; empty before the first one.
    std::string Text() const {
        const std::lock_guard guard(m_lock);
        return m_text;
    }
    /// Of the same answer as Text.
    TPositionInHand Position() const {
        const std::lock_guard guard(m_lock);
        return m_position;
    }
    /// For the search threads: one load while nobody asks.
    void AnswerIfAsked(std::uint16_t thread, const TChessboard& board) noexcept {
        if (m_asked.load(std::memory_order_relaxed) == thread) {
            Answer(board);
        }
    }

  private:
    static constexpr std::int32_t Nobody = -1;

    void Answer(const TChessboard& board) noexcept;

    std::atomic<std::int32_t> m_asked{Nobody};
    mutable std::mutex m_lock;
    std::string m_text;
    TPositionInHand m_position;
};

}  // namespace tarnwick
