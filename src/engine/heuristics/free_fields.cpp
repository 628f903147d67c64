#include "engine/heuristics/free_fields.h"

#include <bit>

#include "chess/attacks.h"
#include "engine/heuristics/board_questions.h"

namespace tarnwick {
TFieldSet FreeFields(const TChessboard& board) noexcept {
    const int king = BlackKingField(board);
    const TFieldSet occupied = OccupiedFields(board) & ~FieldBit(king);
    TFieldSet free = 0;
    for (TFieldSet near = KingFields[static_cast<std::size_t>(king)] & ~board.m_blackMen;
         near != 0;) {
        const int field = PopLowest(near);
        if (!IsAttackedByWhiteOver(board, field, occupied)) {
            free |= FieldBit(field);
        }
    }
    return free;
}

int CountFreeFields(const TChessboard& board) noexcept {
    return std::popcount(FreeFields(board));
}

int CountFreeFieldsEdgeWeighted(const TChessboard& board) noexcept {
    const TFieldSet free = FreeFields(board);
    return std::popcount(free & ~EdgeFields) + ((free & EdgeFields) != 0 ? 1 : 0);
}

}  // namespace tarnwick
