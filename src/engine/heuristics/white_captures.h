#pragma once
// Whether White can take a man that has just come, for checks that forgive what is taken at once.

#include "chess/attackers.h"
#include "chess/attacks.h"
#include "chess/board_tables.h"

namespace tarnwick {

/// An unpinned white man attacks the black man on the field, or the white king may take it because
/// nobody covers it. White to move; a check by another man is not looked at.
inline bool CanWhiteCapture(const TChessboard& board, int field) noexcept {
    const int file = FileOf(field);
    const int rank = RankOf(field);
    const int king = WhiteKingField(board);
    return FindWhiteFreeAttacker(board, file, rank, nullptr) ||
           (KingDistance(king, field) == 1 &&
            !IsFieldAttackedByBlackWithout(board, file, rank, king));
}

}  // namespace tarnwick
