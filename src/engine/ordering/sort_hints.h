#pragma once
// The user's hints about the order of White's moves: the sort indications of a problem and, when asked
// for, its main variant. They only order: no hint ever removes a move.

#include <atomic>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "chess/chessboard.h"
#include "engine/ordering/white_order.h"
#include "problems/sort_indication.h"
#include "problems/variant.h"

namespace tarnwick {

/// White's moves of a main variant as a picture: which man goes from a field, and where to, with the
/// black king where it stood then. The first move from a field counts.
struct TVariantImage {
    TFigureCode figure[FieldCount] = {};
    TField to[FieldCount] = {};
    TField blackKing[FieldCount] = {};
    bool bInUse = false;
};

struct TChessProblem;

class TSortHints {
  public:
    TSortHints() = default;
    explicit TSortHints(const TSortIndications& indications);

    /// Adds the moves of a line from the position on; a move that does not fit ends the line.
    void UseVariant(const TChessboard& start, const TVariant& variant);

    /// The score that the hints give to White's move number moveNumber (from 1; 0 when only hints for
    /// any move may count): ScoreFirst, ScoreNegativeHint, or nothing. The first matching item decides,
    /// those of the move's own number before those for any move. An item with a single "+" counts once
    /// in a job. Any thread; allocates nothing.
    std::optional<std::uint8_t> ScoreFor(const TChessboard& board, const TMoveInfo& info,
                                         int moveNumber) const noexcept;
    bool IsEmpty() const { return m_items.empty() && !m_image.bInUse; }

  private:
    std::vector<TSortIndication> m_items;
    /// One for each item: it has had its one effect.
    std::unique_ptr<std::atomic<bool>[]> m_spent;
    TVariantImage m_image;

    bool Takes(std::size_t item, const TChessboard& board, const TMoveInfo& info) const noexcept;
};

/// The hints of a problem: its sort indications, and its main variant where the problem asks for it or
/// bMainVariant says so.
TSortHints HintsOfProblem(const TChessProblem& problem, bool bMainVariant);

}  // namespace tarnwick
