#pragma once

// Which men attack a field, asked of the slow rules one man at a time.

#include <set>

#include "support/slow_rules.h"

namespace tarnwick::slow {

inline bool IsManOfColour(char man, bool isWhite) {
    return isWhite ? (man >= 'A' && man <= 'Z') : (man >= 'a' && man <= 'z');
}

/// Whether the man on `from` attacks the field: all others of its colour become men of the other
/// colour, which block as well but do not attack for it.
inline bool DoesManAttack(const TSlowPosition& position, int from, int field) {
    const bool isWhite = IsManOfColour(position.board[static_cast<std::size_t>(from)], true);
    TSlowPosition alone = position;
    for (int other = 0; other < 64; ++other) {
        char& man = alone.board[static_cast<std::size_t>(other)];
        if (other != from && IsManOfColour(man, isWhite)) {
            man = isWhite ? 'p' : 'P';
        }
    }
    return IsAttacked(alone, field, isWhite);
}

inline std::set<int> AttackersOf(const TSlowPosition& position, int field, bool byWhite) {
    std::set<int> attackers;
    for (int from = 0; from < 64; ++from) {
        if (IsManOfColour(position.board[static_cast<std::size_t>(from)], byWhite) &&
            DoesManAttack(position, from, field)) {
            attackers.insert(from);
        }
    }
    return attackers;
}

inline int FieldOfMan(const TSlowPosition& position, char man) {
    int field = 0;
    while (position.board[static_cast<std::size_t>(field)] != man) {
        ++field;
    }
    return field;
}

/// The enemy man that attacks the king as soon as the man on the field is taken away; -1 if none, or if
/// it attacks the king anyway.
inline int PinnerOf(const TSlowPosition& position, int field) {
    const char man = position.board[static_cast<std::size_t>(field)];
    const bool isWhite = IsManOfColour(man, true);
    const int king = FieldOfMan(position, isWhite ? 'K' : 'k');
    if (king == field) {
        return -1;
    }
    const std::set<int> before = AttackersOf(position, king, !isWhite);
    TSlowPosition without = position;
    without.board[static_cast<std::size_t>(field)] = '.';
    for (const int attacker : AttackersOf(without, king, !isWhite)) {
        if (!before.contains(attacker)) {
            return attacker;
        }
    }
    return -1;
}

/// Whether the pin of the man on the field keeps it from the target. It does not when the target is on
/// the line of the pin: the king stays shielded, or the pinner is captured, or the target lies behind the
/// king, who must have gone there himself before.
inline bool IsPinnedFor(const TSlowPosition& position, int field, int target) {
    const int pinner = PinnerOf(position, field);
    if (pinner < 0 || pinner == target) {
        return false;
    }
    const char man = position.board[static_cast<std::size_t>(field)];
    const int king = FieldOfMan(position, IsManOfColour(man, true) ? 'K' : 'k');
    TSlowPosition moved = position;
    moved.board[static_cast<std::size_t>(field)] = '.';
    const bool isTargetSeen = DoesManAttack(moved, pinner, target);
    TSlowPosition kingless = moved;
    kingless.board[static_cast<std::size_t>(king)] = '.';
    if (!isTargetSeen && DoesManAttack(kingless, pinner, target)) {
        return false;
    }
    moved.board[static_cast<std::size_t>(target)] = man;
    return king != target && DoesManAttack(moved, pinner, king);
}

}  // namespace tarnwick::slow
