#pragma once
// Moves of the few men of a table.
//
// Generation visits each position of a table several times and knows it as a handful of fields. On
// these a move is one field changed, and a check a few masks, where a whole board would have to be filled. Verification goes through the board and its own rules, and so checks this.
//
// A man is named by its letter's place in the type; the kings come through their own number. Castling
// is unknown to tables, and a capture en passant belongs to the line of play: see conversions.h.

#include <cstdint>

#include "chess/lines.h"
#include "tables/table_index.h"

namespace tarnwick {

/// In place of a letter: the moving king, or no man at all.
inline constexpr int KingMan = -1;
inline constexpr int NoMan = -1;

/// A place with the sets that its moves need. A man with NoField has been captured.
struct TMen {
    TTablePlace place;
    TFieldSet white = 0;
    TFieldSet black = 0;

    TFieldSet Occupied() const { return white | black; }
};

struct TMenMove {
    int man = KingMan;  ///< Letter, or KingMan.
    int from = 0;
    int to = 0;
    int captured = NoMan;  ///< Letter of the man that is taken.
    bool bPromotes = false;

    bool IsQuiet() const { return captured == NoMan && !bPromotes; }
};

inline TMen MenAt(const CTableIndex& type, const TTablePlace& place) {
    TMen men{place, FieldBit(place.whiteKing), FieldBit(place.blackKing)};
    for (std::size_t i = 0; i < type.Letters(); ++i) {
        if (place.men[i] != NoField) {
            (IsWhite(type.ManOf(i)) ? men.white : men.black) |= FieldBit(place.men[i]);
        }
    }
    return men;
}

/// Whether the man of this code on `from` attacks `target`.
inline bool AttacksField(TFigureCode code, int from, int target, TFieldSet occupied) {
    const auto f = static_cast<std::size_t>(from);
    const TFieldSet bit = FieldBit(target);
    switch (TypeOf(code)) {
        case TypePawn:
            return ((IsWhite(code) ? WhitePawnTargets[f] : BlackPawnTargets[f]) & bit) != 0;
        case TypeKnight:
            return (KnightFields[f] & bit) != 0;
        case TypeKing:
            return (KingFields[f] & bit) != 0;
        default: {
            const TFieldSet rays = ((code & TypeBishop) != 0 ? DiagonalRays[f] : 0) |
                                   ((code & TypeRook) != 0 ? StraightRays[f] : 0);
            return (rays & bit) != 0 && (Between(from, target) & occupied) == 0;
        }
    }
}

/// Fields that a figure (no pawn) reaches.
inline TFieldSet FigureReach(TFigureCode code, int from, TFieldSet occupied) {
    switch (TypeOf(code)) {
        case TypeKnight:
            return KnightFields[static_cast<std::size_t>(from)];
        case TypeKing:
            return KingFields[static_cast<std::size_t>(from)];
        default:
            return ((code & TypeBishop) != 0 ? BishopReach(from, occupied) : 0) |
                   ((code & TypeRook) != 0 ? RookReach(from, occupied) : 0);
    }
}

/// Whether the king of one side is attacked by the other side's men, its king included.
template <bool OfWhite>
bool IsKingAttacked(const CTableIndex& type, const TMen& men) {
    const int king = OfWhite ? men.place.whiteKing : men.place.blackKing;
    const int other = OfWhite ? men.place.blackKing : men.place.whiteKing;
    if ((KingFields[static_cast<std::size_t>(king)] & FieldBit(other)) != 0) {
        return true;
    }
    const TFieldSet occupied = men.Occupied();
    for (std::size_t i = 0; i < type.Letters(); ++i) {
        const TFigureCode code = type.ManOf(i);
        if (IsWhite(code) != OfWhite && men.place.men[i] != NoField &&
            AttacksField(code, men.place.men[i], king, occupied)) {
            return true;
        }
    }
    return false;
}

inline int LetterOnField(const CTableIndex& type, const TMen& men, int field) {
    for (std::size_t i = 0; i < type.Letters(); ++i) {
        if (men.place.men[i] == field) {
            return static_cast<int>(i);
        }
    }
    return NoMan;
}

inline std::uint8_t& FieldOfMan(TTablePlace& place, int man, bool bWhite) {
    if (man == KingMan) {
        return bWhite ? place.whiteKing : place.blackKing;
    }
    return place.men[static_cast<std::size_t>(man)];
}

/// A promoted pawn stands on its new field still as a pawn: the caller knows the figure.
template <bool ByWhite>
TMen AfterMove(const TMen& men, const TMenMove& move) {
    TMen after = men;
    FieldOfMan(after.place, move.man, ByWhite) = static_cast<std::uint8_t>(move.to);
    TFieldSet& own = ByWhite ? after.white : after.black;
    TFieldSet& enemy = ByWhite ? after.black : after.white;
    own ^= FieldBit(move.from) | FieldBit(move.to);
    if (move.captured != NoMan) {
        std::uint8_t& captured = after.place.men[static_cast<std::size_t>(move.captured)];
        enemy &= ~FieldBit(captured);
        captured = NoField;
    }
    return after;
}

/// Where a pawn may go straight on: one or two fields, each empty.
template <bool OfWhite>
TFieldSet PawnSteps(int from, TFieldSet occupied) {
    const int step = OfWhite ? 8 : -8;
    const int startRank = OfWhite ? 1 : 6;
    TFieldSet steps = FieldBit(from + step) & ~occupied;
    if (steps != 0 && RankOf(from) == startRank) {
        steps |= FieldBit(from + 2 * step) & ~occupied;
    }
    return steps;
}

enum class TMovesWanted : std::uint8_t {
    All,
    CapturesAndPawns  ///< Captures, and every move of a pawn: all that may leave the type among them.
};

/// Calls visit(move, men after it) for each move of the side that leaves its own king unattacked;
/// the kings are never taken. visit returns whether to go on; so does this.
template <bool ByWhite, TMovesWanted Wanted = TMovesWanted::All, typename TVisit>
bool ForEachMove(const CTableIndex& type, const TMen& men, const TVisit& visit) {
    const TFieldSet occupied = men.Occupied();
    const TFieldSet own = ByWhite ? men.white : men.black;
    const TFieldSet enemy = ByWhite ? men.black : men.white;
    const TFieldSet figureTargets = Wanted == TMovesWanted::All ? ~own : enemy;
    const auto visitTargets = [&](int man, int from, TFieldSet targets, bool bPawn) {
        while (targets != 0) {
            TMenMove move{man, from, PopLowest(targets), NoMan, false};
            if ((enemy & FieldBit(move.to)) != 0) {
                move.captured = LetterOnField(type, men, move.to);
                if (move.captured == NoMan) {
                    continue;  // The other king, attacked in a position that cannot arise.
                }
            }
            move.bPromotes = bPawn && RankOf(move.to) == (ByWhite ? 7 : 0);
            const TMen after = AfterMove<ByWhite>(men, move);
            if (!IsKingAttacked<ByWhite>(type, after) && !visit(move, after)) {
                return false;
            }
        }
        return true;
    };
    const int king = ByWhite ? men.place.whiteKing : men.place.blackKing;
    if (!visitTargets(KingMan, king, KingFields[static_cast<std::size_t>(king)] & figureTargets,
                      false)) {
        return false;
    }
    for (std::size_t i = 0; i < type.Letters(); ++i) {
        const TFigureCode code = type.ManOf(i);
        const int from = men.place.men[i];
        if (IsWhite(code) != ByWhite || from == NoField) {
            continue;
        }
        const bool bPawn = TypeOf(code) == TypePawn;
        const auto f = static_cast<std::size_t>(from);
        const TFieldSet targets =
            bPawn ? PawnSteps<ByWhite>(from, occupied) |
                        ((ByWhite ? WhitePawnTargets[f] : BlackPawnTargets[f]) & enemy)
                  : FigureReach(code, from, occupied) & figureTargets;
        if (!visitTargets(static_cast<int>(i), from, targets, bPawn)) {
            return false;
        }
    }
    return true;
}

/// Fields from which a quiet move of the man may have come to where it stands.
template <bool OfWhite>
TFieldSet OriginsOf(TFigureCode code, int field, TFieldSet occupied) {
    if (TypeOf(code) != TypePawn) {
        return FigureReach(code, field, occupied) & ~occupied;
    }
    const int back = OfWhite ? -8 : 8;
    const int rank = OfWhite ? RankOf(field) : 7 - RankOf(field);
    if (rank < 2) {
        return 0;
    }
    TFieldSet origins = FieldBit(field + back) & ~occupied;
    if (origins != 0 && rank == 3) {
        origins |= FieldBit(field + 2 * back) & ~occupied;
    }
    return origins;
}

/// Whether the move is a pawn's double step.
inline bool IsDoubleStep(bool bPawn, int from, int to) {
    return bPawn && (from - to == 16 || to - from == 16);
}

/// Letters of pawns of the other side that stand beside `field`, where a pawn has just come to by a
/// double step: they may take it en passant. As a set of letters.
inline unsigned PawnsBeside(const CTableIndex& type, const TMen& men, int field, bool bWhitePawns) {
    unsigned letters = 0;
    for (std::size_t i = 0; i < type.Letters(); ++i) {
        const int at = men.place.men[i];
        if (type.ManOf(i) == (bWhitePawns ? WhitePawn : BlackPawn) && at != NoField &&
            RankOf(at) == RankOf(field) && KingDistance(at, field) == 1) {
            letters |= 1U << i;
        }
    }
    return letters;
}

}  // namespace tarnwick
