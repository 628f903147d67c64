// Types of positions that have a heuristic of their own.

#include "chess/attacks.h"
#include "chess/escape_check.h"
#include "chess/pins.h"
#include "engine/heuristics/free_fields.h"
#include "engine/heuristics/line_moves.h"
#include "engine/heuristics/position_tests.h"
#include "engine/heuristics/scratch_moves.h"

namespace tarnwick {
namespace {

/// The white man that pins the black man on the field to its king, which it is known that one does.
int PinnerOf(const TChessboard& board, int pinned) {
    const int king = BlackKingField(board);
    const TFieldSet occupied = OccupiedFields(board) & ~FieldBit(pinned);
    TFieldSet sliders = (board.m_diagonalSliders & DiagonalRays[static_cast<std::size_t>(king)]) |
                        (board.m_straightSliders & StraightRays[static_cast<std::size_t>(king)]);
    for (sliders &= board.m_whiteMen; sliders != 0;) {
        const int slider = PopLowest(sliders);
        const TFieldSet line = Between(slider, king);
        if ((line & FieldBit(pinned)) != 0 && (line & occupied) == 0) {
            return slider;
        }
    }
    return NoField;
}

/// No black man attacks it, or it is covered and only a man of its own value or more does.
bool IsSafelyPlaced(const TChessboard& board, int field) {
    const int value = FigureValues[TypeOf(board.m_fields[field])];
    const bool bCovered = IsAttackedByWhiteOver(board, field, OccupiedFields(board));
    for (TFieldSet attackers = BlackAttackersOf(board, field); attackers != 0;) {
        const int attackerValue = FigureValues[TypeOf(board.m_fields[PopLowest(attackers)])];
        if (!bCovered || attackerValue < value) {
            return false;
        }
    }
    return true;
}

}  // namespace

bool IsSweepingRookPosition(const TChessboard& board) noexcept {
    if (board.m_whiteRooks != 1 || board.m_whiteQueens != 0 || BlackFigureCount(board) == 0 ||
        CountFreeFields(board) > 1) {
        return false;
    }
    const TFieldSet black = board.m_blackMen & ~FieldBit(BlackKingField(board));
    const TFieldSet movable = MovableBlackMen(board, black);
    return movable != 0 && (movable & ~board.m_pawns) == 0 && board.m_blackPawns >= 2;
}

TKeyPin FindKeyPin(const TChessboard& board) noexcept {
    TKeyPin best;
    if (HasKingField(board)) {
        return best;
    }
    int bestValue = 0;
    for (TFieldSet men = PinnedBlackMen(board) & ~board.m_pawns; men != 0;) {
        const int pinned = PopLowest(men);
        const int value = FigureValues[TypeOf(board.m_fields[pinned])];
        const int pinner = PinnerOf(board, pinned);
        if (value > bestValue && pinner != NoField && IsSafelyPlaced(board, pinner)) {
            bestValue = value;
            best = {static_cast<TField>(pinner), static_cast<TField>(pinned)};
        }
    }
    return best;
}

}  // namespace tarnwick
