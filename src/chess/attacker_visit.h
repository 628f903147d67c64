#pragma once
// The walk behind the attacker lists, for the men of one colour. The two colours differ in the arguments
// that white_attackers.cpp and black_attackers.cpp pass, and in what they do with each attacker found.

#include "chess/attackers.h"
#include "chess/pins.h"
#include "chess/ray_walk.h"

namespace tarnwick {

struct TAttackerQuestion {
    const TChessboard& board;
    int field;
    TFieldSet own;         ///< The men asked for.
    TFieldSet pawnFields;  ///< Fields from which a pawn of that colour attacks the field.
    int king;              ///< Their king's field.
    TFieldSet pinned;      ///< Those of them that are pinned on the board as it stands.
    bool bWithKing;
    bool bWithBehind;  ///< Sliders behind other attackers too.
    bool bWithPinned;  ///< Mark pinned men instead of leaving them out.
};

inline bool IsPinnedFor(const TAttackerQuestion& q, int attacker) {
    return (q.pinned & FieldBit(attacker)) != 0 && !AreCollinear(q.king, attacker, q.field);
}

/// Hands the entry to `take` unless it is pinned and unasked for; false ends the visit.
template <typename TTake>
bool VisitAttacker(const TAttackerQuestion& q, int attacker, std::uint8_t marks, TTake& take) {
    const bool bPinned = IsPinnedFor(q, attacker);
    if (bPinned && !q.bWithPinned) {
        return true;
    }
    return take(static_cast<std::uint8_t>(attacker | marks | (bPinned ? AttackerPinned : 0)));
}

template <typename TTake>
bool VisitSet(const TAttackerQuestion& q, TFieldSet attackers, TTake& take) {
    while (attackers != 0) {
        if (!VisitAttacker(q, PopLowest(attackers), 0, take)) {
            return false;
        }
    }
    return true;
}

/// Sliders along one ray. `front` are the pawns and the king that attack the field: lines run on behind
/// them, but they are listed elsewhere.
template <typename TTake>
bool VisitRay(const TAttackerQuestion& q, const TRay& ray, TFieldSet sliders, TFieldSet front,
              TTake& take) {
    TFieldSet men = ray.fields & OccupiedFields(q.board);
    if ((men & sliders) == 0) {
        return true;
    }
    for (std::uint8_t marks = 0; men != 0; marks = AttackerBehind) {
        const int man = NearestOnRay(ray, men);
        men &= ~FieldBit(man);
        const bool bSlider = (sliders & FieldBit(man)) != 0;
        if (!bSlider && (front & FieldBit(man)) == 0) {
            return true;
        }
        if (bSlider && !VisitAttacker(q, man, marks, take)) {
            return false;
        }
        // A pinned man that is left out keeps the ray closed as well.
        if (!q.bWithBehind || (!q.bWithPinned && IsPinnedFor(q, man))) {
            return true;
        }
    }
    return true;
}

/// Calls take(entry) for each attacker in the order of attackers.h until it returns false.
template <typename TTake>
void VisitAttackers(const TAttackerQuestion& q, TTake take) {
    const TChessboard& board = q.board;
    const auto f = static_cast<std::size_t>(q.field);
    const TFieldSet pawns = q.pawnFields & board.m_pawns & q.own;
    const TFieldSet king = KingFields[f] & FieldBit(q.king);
    if (!VisitSet(q, pawns, take) ||
        !VisitSet(q, KnightFields[f] & board.m_knights & q.own, take)) {
        return;
    }
    const TFieldSet diagonal = DiagonalRays[f] & board.m_diagonalSliders & q.own;
    if (diagonal != 0) {
        for (const TRay& ray : DiagonalRaysFrom(q.field)) {
            if (!VisitRay(q, ray, diagonal, pawns | king, take)) {
                return;
            }
        }
    }
    const TFieldSet straight = StraightRays[f] & board.m_straightSliders & q.own;
    if (straight != 0) {
        for (const TRay& ray : StraightRaysFrom(q.field)) {
            if (!VisitRay(q, ray, straight, king, take)) {
                return;
            }
        }
    }
    if (q.bWithKing) {
        VisitSet(q, king, take);
    }
}

/// All entries into the list; returns the count.
inline int ListAttackers(const TAttackerQuestion& q, std::uint8_t* pList) {
    int count = 0;
    VisitAttackers(q, [&](std::uint8_t entry) {
        pList[count++] = entry;
        return true;
    });
    return count;
}

/// The first entry alone; pFound may be null.
inline bool FindAttacker(const TAttackerQuestion& q, std::uint8_t* pFound) {
    bool bFound = false;
    VisitAttackers(q, [&](std::uint8_t entry) {
        bFound = true;
        if (pFound != nullptr) {
            *pFound = entry;
        }
        return false;
    });
    return bFound;
}

}  // namespace tarnwick
