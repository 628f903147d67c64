#include "chess/pins.h"

#include "chess/attack_map.h"
#include "chess/board_tables.h"

namespace tarnwick {
namespace {

bool IsPinned(const TChessboard& board, int king, int field, TFieldSet enemies) {
    const auto k = static_cast<std::size_t>(king);
    // Most men share no line with their king.
    if (((DiagonalRays[k] | StraightRays[k]) & FieldBit(field)) == 0) {
        return false;
    }
    return (SoleBlockers(board, king, enemies, OccupiedFields(board)) & FieldBit(field)) != 0;
}

}  // namespace

bool IsWhiteFigurePinned(const TChessboard& board, int file, int rank) noexcept {
    return IsPinned(board, WhiteKingField(board), FieldAt(file, rank), board.m_blackMen);
}

bool IsBlackFigurePinned(const TChessboard& board, int file, int rank) noexcept {
    return IsPinned(board, BlackKingField(board), FieldAt(file, rank), board.m_whiteMen);
}

TFieldSet PinnedWhiteMen(const TChessboard& board) noexcept {
    return SoleBlockers(board, WhiteKingField(board), board.m_blackMen, OccupiedFields(board)) &
           board.m_whiteMen;
}

TFieldSet PinnedBlackMen(const TChessboard& board) noexcept {
    return SoleBlockers(board, BlackKingField(board), board.m_whiteMen, OccupiedFields(board)) &
           board.m_blackMen;
}

}  // namespace tarnwick
