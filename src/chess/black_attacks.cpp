// Who attacks a field, for Black: the mirror of white_attacks.cpp.

#include "chess/attacker_pairs.h"
#include "chess/attacks.h"
#include "chess/board_tables.h"

namespace tarnwick {

TFieldSet BlackAttackersOf(const TChessboard& board, int field) {
    const auto f = static_cast<std::size_t>(field);
    const TFieldSet occupied = OccupiedFields(board);
    TFieldSet attackers = (WhitePawnTargets[f] & board.m_pawns) |
                          (KnightFields[f] & board.m_knights) |
                          (KingFields[f] & FieldBit(BlackKingField(board)));
    if ((DiagonalRays[f] & board.m_diagonalSliders & board.m_blackMen) != 0) {
        attackers |= BishopReach(field, occupied) & board.m_diagonalSliders;
    }
    if ((StraightRays[f] & board.m_straightSliders & board.m_blackMen) != 0) {
        attackers |= RookReach(field, occupied) & board.m_straightSliders;
    }
    return attackers & board.m_blackMen;
}

std::int8_t FindBlackAttackers(const TChessboard& board, int file, int rank, TFilePlace* pList,
                               int* pCount) {
    const TFieldSet attackers = BlackAttackersOf(board, FieldAt(file, rank));
    if (pList != nullptr) {
        *pCount = WriteAttackerPairs(board, attackers & ~FieldBit(BlackKingField(board)), pList);
    }
    return OneOrMany(attackers);
}

}  // namespace tarnwick
