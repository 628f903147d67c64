#pragma once
// Attack tests: who attacks a field as the board stands. All are pure, allocation-free and hot.
// A man on the field itself never counts as attacking it, and a field may hold anything.

#include "chess/chessboard.h"
#include "chess/lines.h"

namespace tarnwick {

/// The sliders of `sliders` that see the field over `occupied`; `rays` are the field's empty-board rays.
inline bool AnySliderSees(int field, TFieldSet sliders, TFieldSet occupied) {
    while (sliders != 0) {
        if ((Between(PopLowest(sliders), field) & occupied) == 0) {
            return true;
        }
    }
    return false;
}

/// `ignored` men (captured ones, say) attack nothing.
inline bool IsAttackedByWhiteOver(const TChessboard& board, int field, TFieldSet occupied,
                                  TFieldSet ignored = 0) {
    const auto f = static_cast<std::size_t>(field);
    const TFieldSet white = board.m_whiteMen & ~ignored;
    const TFieldSet near = (BlackPawnTargets[f] & board.m_pawns) |
                           (KnightFields[f] & board.m_knights) |
                           (KingFields[f] & FieldBit(WhiteKingField(board)));
    if ((near & white) != 0) {
        return true;
    }
    const TFieldSet sliders = ((DiagonalRays[f] & board.m_diagonalSliders) |
                               (StraightRays[f] & board.m_straightSliders)) &
                              white;
    return AnySliderSees(field, sliders, occupied);
}

inline bool IsAttackedByBlackOver(const TChessboard& board, int field, TFieldSet occupied,
                                  TFieldSet ignored = 0) {
    const auto f = static_cast<std::size_t>(field);
    const TFieldSet black = board.m_blackMen & ~ignored;
    const TFieldSet near = (WhitePawnTargets[f] & board.m_pawns) |
                           (KnightFields[f] & board.m_knights) |
                           (KingFields[f] & FieldBit(BlackKingField(board)));
    if ((near & black) != 0) {
        return true;
    }
    const TFieldSet sliders = ((DiagonalRays[f] & board.m_diagonalSliders) |
                               (StraightRays[f] & board.m_straightSliders)) &
                              black;
    return AnySliderSees(field, sliders, occupied);
}

/// Whether a white man, the king included, attacks the field. Files and ranks count from 0.
inline bool IsFieldAttackedByWhite(const TChessboard& board, int file, int rank) {
    return IsAttackedByWhiteOver(board, FieldAt(file, rank), OccupiedFields(board));
}
inline bool IsFieldAttackedByBlack(const TChessboard& board, int file, int rank) {
    return IsAttackedByBlackOver(board, FieldAt(file, rank), OccupiedFields(board));
}
/// As if the man on `field` were not there: lines run through it, and it attacks nothing.
inline bool IsFieldAttackedByBlackWithout(const TChessboard& board, int file, int rank, int field) {
    return IsAttackedByBlackOver(board, FieldAt(file, rank),
                                 OccupiedFields(board) & ~FieldBit(field), FieldBit(field));
}
/// White's men without the king.
bool IsFieldAttackedByWhiteNoKing(const TChessboard& board, int file, int rank);

/// A (file, rank) pair of the attacker lists; unused entries hold 0xFF in both.
struct TFilePlace {
    std::uint8_t file = 0xFF;
    std::uint8_t rank = 0xFF;
};

/// Field of the black man that attacks the field; NoChecker if none, DoubleCheck if more than one.
/// With a non-null list every attacker but the king is written to it (room for 16) and counted in
/// *pCount. Order: king, pawns, knights, then the sliders by field.
std::int8_t FindBlackAttackers(const TChessboard& board, int file, int rank, TFilePlace* pList,
                               int* pCount);
/// The same for White.
std::int8_t FindWhiteAttackers(const TChessboard& board, int file, int rank, TFilePlace* pList,
                               int* pCount);

/// All white, or all black, men that attack the field, as a set; the king included.
TFieldSet WhiteAttackersOf(const TChessboard& board, int field);
TFieldSet BlackAttackersOf(const TChessboard& board, int field);

}  // namespace tarnwick
