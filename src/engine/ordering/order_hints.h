#pragma once
// Hints for the order of moves, learned while the search runs: the defence that last refuted a white
// move, the white move that last mated. They are only tried first; a stale one costs a trial, never an
// answer.

#include <array>
#include <cstdint>

#include "chess/board_stack.h"
#include "chess/chessboard.h"

namespace tarnwick {

class TOrderHints {
  public:
    static constexpr int HintsPerNode = 2;

    /// Moves to try first in this position, best first; a pass where there is none.
    std::array<TMove, HintsPerNode> For(const TChessboard& board) const noexcept;
    /// The move decided this node: it refuted as a defence, or mated as an attack.
    void Note(const TChessboard& board, TMove move) noexcept;

  private:
    /// Plies with hints of their own; deeper ones share the last entry of their side.
    static constexpr int HintPlies = 32;
    static std::size_t PlyIndex(const TChessboard& board) noexcept;
    static std::size_t AnswerIndex(const TChessboard& board) noexcept;

    std::array<TMove, HintPlies> m_last{};
    /// By ply, and by figure and target of the move to answer.
    std::array<std::array<TMove, 8 * FieldCount>, HintPlies> m_answers{};
};

/// Whether a remembered move is pseudo-legal here. Castling and en passant are never hints.
bool IsPossibleWhiteHint(const TChessboard& board, TMove move) noexcept;
bool IsPossibleBlackHint(const TChessboard& board, TMove move) noexcept;

}  // namespace tarnwick
