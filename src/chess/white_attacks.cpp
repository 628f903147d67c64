// Who attacks a field, for White. The sets are computed from the field outward: a line's reach is asked
// only when a slider of that kind stands on one of the field's empty-board rays, which is seldom.

#include "chess/attacker_pairs.h"
#include "chess/attacks.h"
#include "chess/board_tables.h"

namespace tarnwick {

TFieldSet WhiteAttackersOf(const TChessboard& board, int field) {
    const auto f = static_cast<std::size_t>(field);
    const TFieldSet occupied = OccupiedFields(board);
    TFieldSet attackers = (BlackPawnTargets[f] & board.m_pawns) |
                          (KnightFields[f] & board.m_knights) |
                          (KingFields[f] & FieldBit(WhiteKingField(board)));
    if ((DiagonalRays[f] & board.m_diagonalSliders & board.m_whiteMen) != 0) {
        attackers |= BishopReach(field, occupied) & board.m_diagonalSliders;
    }
    if ((StraightRays[f] & board.m_straightSliders & board.m_whiteMen) != 0) {
        attackers |= RookReach(field, occupied) & board.m_straightSliders;
    }
    return attackers & board.m_whiteMen;
}

bool IsFieldAttackedByWhiteNoKing(const TChessboard& board, int file, int rank) {
    const auto f = static_cast<std::size_t>(FieldAt(file, rank));
    const TFieldSet near =
        (BlackPawnTargets[f] & board.m_pawns) | (KnightFields[f] & board.m_knights);
    if ((near & board.m_whiteMen) != 0) {
        return true;
    }
    const TFieldSet sliders = ((DiagonalRays[f] & board.m_diagonalSliders) |
                               (StraightRays[f] & board.m_straightSliders)) &
                              board.m_whiteMen;
    return AnySliderSees(FieldAt(file, rank), sliders, OccupiedFields(board));
}

std::int8_t FindWhiteAttackers(const TChessboard& board, int file, int rank, TFilePlace* pList,
                               int* pCount) {
    const TFieldSet attackers = WhiteAttackersOf(board, FieldAt(file, rank));
    if (pList != nullptr) {
        *pCount = WriteAttackerPairs(board, attackers & ~FieldBit(WhiteKingField(board)), pList);
    }
    return OneOrMany(attackers);
}

}  // namespace tarnwick
