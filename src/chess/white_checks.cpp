#include "chess/white_checks.h"

#include "chess/attack_map.h"
#include "chess/attacks.h"
#include "chess/castling.h"
#include "chess/generate_moves.h"
#include "chess/interposers.h"

namespace tarnwick {
namespace {

/// What all moves of one call share.
struct TTarget {
    const TChessboard& board;
    int field;             ///< The field to attack.
    TFieldSet occupied;    ///< As the board stands.
    TFieldSet shields;     ///< White men that alone keep a white slider from seeing the field.
    TFieldSet pawnFields;  ///< Fields from which a white pawn attacks the field.
    int enPassant;         ///< Field of an en-passant capture, or -1.
};

TTarget AimAt(const TChessboard& board, int field) {
    return {.board = board,
            .field = field,
            .occupied = OccupiedFields(board),
            .shields = SoleBlockers(board, field, board.m_whiteMen, OccupiedFields(board)) &
                       board.m_whiteMen,
            .pawnFields = BlackPawnTargets[static_cast<std::size_t>(field)],
            .enPassant = WhiteEnPassantTarget(board)};
}

/// White sliders on a ray of their kind from the field.
TFieldSet SlidersAimed(const TTarget& target) {
    const auto f = static_cast<std::size_t>(target.field);
    return ((DiagonalRays[f] & target.board.m_diagonalSliders) |
            (StraightRays[f] & target.board.m_straightSliders)) &
           target.board.m_whiteMen;
}

/// Fields to which the man may go so that a line behind it opens.
TFieldSet UncoveringTargets(const TTarget& target, int from) {
    if ((target.shields & FieldBit(from)) == 0) {
        return 0;
    }
    for (TFieldSet sliders = SlidersAimed(target); sliders != 0;) {
        const TFieldSet line = Between(PopLowest(sliders), target.field);
        if ((line & target.occupied) == FieldBit(from)) {
            return ~(line | FieldBit(target.field));
        }
    }
    return 0;
}

/// Fields from which a figure of the type attacks the field once it has left `from`.
TFieldSet AttackingFields(const TTarget& target, TFigureCode type, int from) {
    const TFieldSet occupied = target.occupied & ~FieldBit(from);
    TFieldSet fields = 0;
    if (type == TypeKnight) {
        fields = KnightFields[static_cast<std::size_t>(target.field)];
    }
    if ((type & TypeBishop) != 0) {
        fields |= BishopReach(target.field, occupied);
    }
    if ((type & TypeRook) != 0) {
        fields |= RookReach(target.field, occupied);
    }
    return fields;
}

/// Fields that the figure reaches by its own rules.
TFieldSet ReachOf(const TTarget& target, TFigureCode type, int from) {
    TFieldSet reach = 0;
    if (type == TypeKnight) {
        reach = KnightFields[static_cast<std::size_t>(from)];
    }
    if ((type & TypeBishop) != 0) {
        reach |= BishopReach(from, target.occupied);
    }
    if ((type & TypeRook) != 0) {
        reach |= RookReach(from, target.occupied);
    }
    return reach & ~target.board.m_whiteMen;
}

TMove* AppendTargets(int from, TFieldSet targets, TMove* pOut) {
    while (targets != 0) {
        const int to = PopLowest(targets);
        *pOut++ = TMove{static_cast<TField>(from), static_cast<TField>(to), 0, 0};
    }
    return pOut;
}

TMove* AppendFigureChecks(const TTarget& target, int from, TMove* pOut) {
    const TFigureCode type = TypeOf(target.board.m_fields[from]);
    const TFieldSet wanted = AttackingFields(target, type, from) | UncoveringTargets(target, from);
    return AppendTargets(from, ReachOf(target, type, from) & wanted, pOut);
}

/// Fields to which the pawn may step or capture, en passant aside.
TFieldSet PawnReach(const TTarget& target, int from) {
    TFieldSet steps = (FieldBit(from) << 8) & ~target.occupied;
    if (RankOf(from) == 1) {
        steps |= (steps << 8) & ~target.occupied;
    }
    return steps | (WhitePawnTargets[static_cast<std::size_t>(from)] & target.board.m_blackMen);
}

TMove* AppendPromotionChecks(const TTarget& target, int from, TMove* pOut) {
    const TFieldSet uncovering = UncoveringTargets(target, from);
    for (TFieldSet reach = PawnReach(target, from) & ~FieldBit(target.field); reach != 0;) {
        const int to = PopLowest(reach);
        for (const TFigureCode type : PromotionTypes) {
            if (((AttackingFields(target, type, from) | uncovering) & FieldBit(to)) != 0) {
                *pOut++ = TMove{static_cast<TField>(from), static_cast<TField>(to), type, 0};
            }
        }
    }
    return pOut;
}

/// Two pawns leave their fields at once and one arrives: lines are looked at as they stand afterwards.
bool ChecksByEnPassant(const TTarget& target, int from) {
    const int taken = target.enPassant - 8;
    const TFieldSet occupied =
        (target.occupied & ~(FieldBit(from) | FieldBit(taken))) | FieldBit(target.enPassant);
    // Sliders that see the field already are not uncovered.
    const TFieldSet sliders = SlidersAimed(target) & ~WhiteAttackersOf(target.board, target.field);
    return (target.pawnFields & FieldBit(target.enPassant)) != 0 ||
           AnySliderSees(target.field, sliders, occupied);
}

TMove* AppendPawnChecks(const TTarget& target, int from, TMove* pOut) {
    if (RankOf(from) == 6) {
        return AppendPromotionChecks(target, from, pOut);
    }
    const TFieldSet wanted = target.pawnFields | UncoveringTargets(target, from);
    TFieldSet targets = PawnReach(target, from) & wanted;
    if (target.enPassant >= 0 && target.enPassant != target.field &&
        (WhitePawnTargets[static_cast<std::size_t>(from)] & FieldBit(target.enPassant)) != 0 &&
        ChecksByEnPassant(target, from)) {
        targets |= FieldBit(target.enPassant);
    }
    return AppendTargets(from, targets, pOut);
}

bool ChecksByCastling(const TTarget& target, TCastling castling) {
    const TCastlingFields& fields = FieldsOf(castling);
    if (target.field == fields.kingTo || target.field == fields.rookFrom) {
        return false;
    }
    const TFieldSet left = FieldBit(fields.kingFrom) | FieldBit(fields.rookFrom);
    const TFieldSet occupied =
        (target.occupied & ~left) | FieldBit(fields.kingTo) | FieldBit(fields.rookTo);
    const TFieldSet rook = FieldBit(fields.rookTo);
    return (RookReach(target.field, occupied) & rook) != 0 && CanCastle(target.board, castling);
}

TMove* AppendKingChecks(const TTarget& target, int from, TMove* pOut) {
    const TFieldSet steps = KingFields[static_cast<std::size_t>(from)] & ~target.board.m_whiteMen;
    TFieldSet targets = steps & UncoveringTargets(target, from);
    if (from == E1 && ChecksByCastling(target, TCastling::WhiteShort)) {
        targets |= FieldBit(G1);
    }
    if (from == E1 && ChecksByCastling(target, TCastling::WhiteLong)) {
        targets |= FieldBit(C1);
    }
    return AppendTargets(from, targets, pOut);
}

TMove* AppendChecksOfMan(const TTarget& target, int from, TMove* pOut) {
    switch (TypeOf(target.board.m_fields[from])) {
        case TypePawn:
            return AppendPawnChecks(target, from, pOut);
        case TypeKing:
            return AppendKingChecks(target, from, pOut);
        default:
            return AppendFigureChecks(target, from, pOut);
    }
}

int GenerateChecksOn(const TChessboard& board, int field, TMove* pList) {
    const TTarget target = AimAt(board, field);
    TMove* pEnd = pList;
    for (TFieldSet men = board.m_whiteMen & ~FieldBit(field); men != 0;) {
        pEnd = AppendChecksOfMan(target, PopLowest(men), pEnd);
    }
    return static_cast<int>(pEnd - pList);
}

/// White men that reach the field by their own rules, castling and en passant aside.
TFieldSet MenReaching(const TChessboard& board, int field) {
    if (board.m_fields[field] != EmptyField) {
        return WhiteAttackersOf(board, field);
    }
    return (WhiteAttackersOf(board, field) & ~board.m_pawns) | WhiteInterposersOf(board, field);
}

/// The king's castling that ends on the field is possible.
bool CastlesTo(const TChessboard& board, int field) {
    return (field == G1 && CanCastle(board, TCastling::WhiteShort)) ||
           (field == C1 && CanCastle(board, TCastling::WhiteLong));
}

}  // namespace

int GenerateWhiteChecks(const TChessboard& board, TMove* pList) noexcept {
    return GenerateChecksOn(board, BlackKingField(board), pList);
}

int GenerateWhiteChecksOnField(const TChessboard& board, int file, int rank,
                               TMove* pList) noexcept {
    return GenerateChecksOn(board, FieldAt(file, rank), pList);
}

int GenerateWhiteMovesToField(const TChessboard& board, TMove* pList, int field) noexcept {
    if (IsWhite(board.m_fields[field])) {
        return 0;
    }
    TFieldSet men = MenReaching(board, field);
    if (field == WhiteEnPassantTarget(board)) {
        men |= BlackPawnTargets[static_cast<std::size_t>(field)] & board.m_pawns & board.m_whiteMen;
    }
    if (CastlesTo(board, field)) {
        men |= FieldBit(E1);
    }
    TMove* pEnd = pList;
    while (men != 0) {
        const int from = PopLowest(men);
        const bool bPawn = TypeOf(board.m_fields[from]) == TypePawn;
        pEnd =
            bPawn ? AppendPawnMove(from, field, pEnd) : AppendTargets(from, FieldBit(field), pEnd);
    }
    return static_cast<int>(pEnd - pList);
}

}  // namespace tarnwick
