#include "engine/heuristics/exchanges.h"

#include <algorithm>

#include "chess/attackers.h"
#include "chess/board_tables.h"

namespace tarnwick {
namespace {

/// Values of the men that take on a field, cheapest first.
struct TTakers {
    std::array<std::uint8_t, MaxAttackers> values;
    int count = 0;
};

int ValueOn(const TChessboard& board, int field) {
    return FigureValues[TypeOf(board.m_fields[field])];
}

TTakers SortedTakers(const TChessboard& board, const std::uint8_t* pEntries, int count) {
    TTakers takers;
    for (int i = 0; i < count; ++i) {
        if ((pEntries[i] & AttackerPinned) == 0) {
            takers.values[static_cast<std::size_t>(takers.count++)] =
                static_cast<std::uint8_t>(ValueOn(board, pEntries[i] & AttackerFieldMask));
        }
    }
    std::sort(takers.values.begin(), takers.values.begin() + takers.count);
    return takers;
}

TTakers WhiteTakers(const TChessboard& board, int field) {
    std::uint8_t entries[MaxAttackers];
    return SortedTakers(board, entries,
                        ListWhiteAttackers(board, FileOf(field), RankOf(field), entries));
}

TTakers BlackTakers(const TChessboard& board, int field) {
    std::uint8_t entries[MaxAttackers];
    return SortedTakers(board, entries,
                        ListBlackAttackers(board, FileOf(field), RankOf(field), entries));
}

/// `first` takes the man worth `value` with its taker number `next`; `second` has already used `used`.
int GainOf(int value, const TTakers& first, int next, const TTakers& second, int used) {
    if (next == first.count) {
        return 0;
    }
    const int taker = first.values[static_cast<std::size_t>(next)];
    if (taker == FigureValues[TypeKing] && used < second.count) {
        return 0;
    }
    return std::max(0, value - GainOf(taker, second, used, first, next + 1));
}

}  // namespace

int GainByWhiteCapture(const TChessboard& board, int field) noexcept {
    const TTakers white = WhiteTakers(board, field);
    return white.count == 0 ? 0
                            : GainOf(ValueOn(board, field), white, 0, BlackTakers(board, field), 0);
}

int GainByBlackCapture(const TChessboard& board, int field) noexcept {
    const TTakers black = BlackTakers(board, field);
    return black.count == 0 ? 0
                            : GainOf(ValueOn(board, field), black, 0, WhiteTakers(board, field), 0);
}

bool IsLastMovedManEnPrise(const TChessboard& board) noexcept {
    return GainByBlackCapture(board, board.m_lastMove.to) > 0;
}

bool CanWhiteTakeOn(const TChessboard& board, int field) noexcept {
    return WhiteTakers(board, field).count > 0;
}

}  // namespace tarnwick
