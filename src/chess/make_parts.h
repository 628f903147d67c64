#pragma once
// Pieces that the make operations of both colours share: moving bits between the sets of fields, lines
// opened by a vacated field, and what is kept about captures. Private to the make_*.cpp files.

#include "chess/board_stack.h"
#include "chess/board_tables.h"
#include "chess/lines.h"

namespace tarnwick {

/// Puts a man of the type on, or takes it off, the fields of `bits` in the sets by type. The sets by
/// colour are the caller's. Kings stand in no set by type.
inline void ToggleInTypeSets(TChessboard& board, TFigureCode type, TFieldSet bits) {
    board.m_pawns ^= (type & TypePawn) != 0 ? bits : 0;
    board.m_diagonalSliders ^= (type & TypeBishop) != 0 ? bits : 0;
    board.m_straightSliders ^= (type & TypeRook) != 0 ? bits : 0;
    board.m_knights ^= (type & TypeKnight) != 0 ? bits : 0;
}

/// The slider of `men` that sees the king through one of the `opened` fields, or NoChecker; DoubleCheck
/// when an en-passant capture opened two lines at once.
inline int SliderThroughOpened(const TChessboard& board, int king, TFieldSet men, TFieldSet opened,
                               TFieldSet occupied) {
    const auto k = static_cast<std::size_t>(king);
    if (((DiagonalRays[k] | StraightRays[k]) & opened) == 0) {
        return NoChecker;
    }
    TFieldSet sliders = ((DiagonalRays[k] & board.m_diagonalSliders) |
                         (StraightRays[k] & board.m_straightSliders)) &
                        men;
    int found = NoChecker;
    while (sliders != 0) {
        const int slider = PopLowest(sliders);
        const TFieldSet path = Between(slider, king);
        if ((path & opened) != 0 && (path & occupied) == 0) {
            found = found == NoChecker ? slider : DoubleCheck;
        }
    }
    return found;
}

/// Whether the figure on the field gives check to the king; pawns are the caller's.
inline bool FigureAttacks(TFigureCode type, int field, int king, TFieldSet occupied) {
    const auto f = static_cast<std::size_t>(field);
    if (type == TypeKnight) {
        return (KnightFields[f] & FieldBit(king)) != 0;
    }
    const TFieldSet rays = ((type & TypeBishop) != 0 ? DiagonalRays[f] : 0) |
                           ((type & TypeRook) != 0 ? StraightRays[f] : 0);
    return (rays & FieldBit(king)) != 0 && (Between(field, king) & occupied) == 0;
}

/// Both kinds of check as one checker field.
inline std::int8_t CombineCheckers(int direct, int discovered) {
    if (direct == NoChecker) {
        return static_cast<std::int8_t>(discovered);
    }
    return static_cast<std::int8_t>(discovered == NoChecker ? direct : DoubleCheck);
}

/// A followed figure left the field: it now stands on `to`, or was captured (NoField).
inline void UpdateTrackedFields(TChessboard& board, int field, TField to) {
    for (TField& tracked : board.m_trackedFields) {
        if (tracked == field) {
            tracked = to;
        }
    }
}

/// Last acts of every make and pass: the record, one ply fewer, and a clean repetition limit there.
inline void FinishPly(TChessboard& board, TMove move, bool bEnPassant) {
    board.m_lastMove =
        TMove{move.from, move.to, move.promotion, bEnPassant ? std::uint8_t{1} : std::uint8_t{0}};
    --board.m_shPlies;
    if (board.m_pThread != nullptr && board.m_shPlies < MaxPlies) {
        board.m_pThread->m_repetitionLimit[board.m_shPlies] = 0;
    }
}

inline const TMakeHooks& HooksOf(const TChessboard& board) {
    return board.m_pThread != nullptr ? *board.m_pThread->m_pHooks : NoMakeHooks;
}

}  // namespace tarnwick
