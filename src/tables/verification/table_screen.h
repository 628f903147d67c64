#pragma once
// CTableScreen: finds the values of a table at which a check by the rules of the board is due.
//
// That check takes microseconds a position. The screen takes some tens of nanoseconds, by rules of its own
// (row_rules.h): what it marks is then judged by the board, and nothing else is ever reported. A fault
// that the screen's rules overlook could be found by the share of all positions that goes to the board
// in any case; see CTableVerifier.

#include <cstdint>
#include <memory>
#include <span>

#include "tables/verification/row_rules.h"

namespace tarnwick {

/// In place of the moves that a partial table has got to.
inline constexpr unsigned NotPartial = ~0U;

enum class TScreenMark : std::uint8_t {
    Agrees,   ///< Also where the index names no position.
    Unknown,  ///< These rules cannot tell.
    Differs,
};

class CTableScreen {
  public:
    CTableScreen() = default;
    CTableScreen(const CTableScreen&) = delete;
    CTableScreen& operator=(const CTableScreen&) = delete;
    virtual ~CTableScreen() = default;

    /// The first half of the work: what every position with Black to move is worth. False after a stop. report gets
    /// the share of this half that is done, 0 to 1, on the calling thread.
    virtual bool Prepare(int threads, const CRunControl& control,
                         const std::function<void(double)>& report) = 0;
    /// False where the orders of like men hold different values, as the board would look at one order only;
    /// after Prepare.
    virtual bool IsOfOneMind() const = 0;
    virtual std::uint64_t RowCells() const = 0;
    /// Marks the RowCells() positions from an index on, a multiple of that number. A stored 0 or unknown value
    /// agrees with a mate of at least `partialMoves`; NotPartial for a complete table. Any thread, as long as nobody
    /// writes the values of this row.
    virtual void Mark(std::uint64_t begin, unsigned partialMoves,
                      std::span<TScreenMark> marks) const = 0;
};

/// Null where a table does not lie in memory, or memory is short: the screen keeps one more element for each of
/// the table, and a little for other types. Throws what the lookup throws.
std::unique_ptr<CTableScreen> MakeTableScreen(const CTypeNode& root, const TTypeLookup& lookup);

}  // namespace tarnwick
