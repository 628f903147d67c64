// Mate in one, the leaf of the search. Most calls end with "no", so the work goes into rejecting.
//
// Idea: collect once the flights of the black king (fields that no white man covers), the fields from
// which each kind of figure would give check, and the men that discover a check by leaving their line.
// A mating move has to give check and to cover every flight, from its new field or by a line that it
// opens. From how the kinds of figures attack follow small sets of fields that can cover all flights; a
// man outside those sets is rejected without looking at its moves, unless it opens a line to a flight.
// The few moves that pass are made on a copy, where CanBlackEscapeCheck finds the rest: captures of the
// checker, interpositions, cover given up by leaving.
//
// Promotions: a queen mates wherever a rook or a bishop would, so only queen and knight are tried.

#include "chess/mate_in_one.h"

#include "chess/attack_map.h"
#include "chess/attacks.h"
#include "chess/escape_check.h"
#include "chess/generate_moves.h"
#include "chess/make_move.h"

namespace tarnwick {
namespace {

struct TMateProbe {
    TChessboard& board;
    int king;  ///< The black king's field.
    int whiteKing;
    TFieldSet occupied;
    TFieldSet white;
    TFieldSet flights;
    TFieldSet openers;  ///< White men that alone stand between a white slider and a flight.
    /// Fields from which a figure may cover all flights, on the empty board.
    TFieldSet coverDiagonal, coverStraight, coverQueen, coverKnight, coverPawn;
    TFieldSet diagonalChecks, straightChecks;
    TFieldSet discoverers;
    TFieldSet kingRays;   ///< Lines through the black king.
    TFieldSet freeBlack;  ///< Black men that are neither king nor pinned.
    TFieldSet allowed;    ///< Targets that answer a check on White; everything when there is none.
};

bool MatesByMaking(const TMateProbe& probe, TMove move) {
    TChessboard scratch = probe.board;
    scratch.m_pPrevious = &probe.board;
    return MakeWhiteMoveToTry(scratch, move) == MoveMade && scratch.m_blackChecker != NoChecker &&
           !CanBlackEscapeCheck(scratch);
}

/// Whether the field is covered once a white slider sees it through the vacated field.
bool IsOpenedTo(const TMateProbe& probe, int field, TFieldSet vacated, TFieldSet occupiedAfter) {
    const auto f = static_cast<std::size_t>(field);
    if (((DiagonalRays[f] | StraightRays[f]) & vacated) == 0) {
        return false;
    }
    TFieldSet sliders = ((DiagonalRays[f] & probe.board.m_diagonalSliders) |
                         (StraightRays[f] & probe.board.m_straightSliders)) &
                        probe.white & ~vacated;
    while (sliders != 0) {
        const TFieldSet path = Between(PopLowest(sliders), field);
        if ((path & vacated) != 0 && (path & occupiedAfter) == 0) {
            return true;
        }
    }
    return false;
}

TFieldSet FiguresReach(TFigureCode type, int field, TFieldSet occupied) {
    switch (type) {
        case TypeKnight:
            return KnightFields[static_cast<std::size_t>(field)];
        case TypeBishop:
            return BishopReach(field, occupied);
        case TypeRook:
            return RookReach(field, occupied);
        case TypeQueen:
            return BishopReach(field, occupied) | RookReach(field, occupied);
        default:
            return WhitePawnTargets[static_cast<std::size_t>(field)];
    }
}

/// The necessary condition: every flight is covered by the man on its new field or by a line that it
/// opened, and a checker beside the king is protected. `type` is what stands on `to` after the move.
bool CoversFlights(const TMateProbe& probe, int from, int to, TFigureCode type) {
    const TFieldSet fromBit = FieldBit(from);
    const TFieldSet kingless = (probe.occupied & ~FieldBit(probe.king) & ~fromBit) | FieldBit(to);
    TFieldSet open = probe.flights & ~FieldBit(to) & ~FiguresReach(type, to, kingless);
    while (open != 0) {
        if (!IsOpenedTo(probe, PopLowest(open), fromBit, kingless)) {
            return false;
        }
    }
    if ((KingFields[static_cast<std::size_t>(probe.king)] & FieldBit(to)) == 0) {
        return true;
    }
    const auto t = static_cast<std::size_t>(to);
    const TFieldSet helpers = probe.white & ~fromBit;
    const TFieldSet near = (BlackPawnTargets[t] & probe.board.m_pawns) |
                           (KnightFields[t] & probe.board.m_knights) |
                           (KingFields[t] & FieldBit(probe.whiteKing));
    if ((near & helpers) != 0) {
        return true;
    }
    const TFieldSet sliders = ((DiagonalRays[t] & probe.board.m_diagonalSliders) |
                               (StraightRays[t] & probe.board.m_straightSliders)) &
                              helpers;
    return AnySliderSees(to, sliders, kingless);
}

/// A plain check that a free black man takes or blocks is no mate. A man that leaves one of the king's
/// lines may check twice or pin somebody, so its moves are left to the make.
bool IsAnswered(const TMateProbe& probe, int from, int to, TFigureCode type) {
    if ((probe.kingRays & FieldBit(from)) != 0) {
        return false;
    }
    const TFieldSet occupied = (probe.occupied & ~FieldBit(from)) | FieldBit(to);
    const TFieldSet men = probe.freeBlack & ~FieldBit(to);
    if (CanMenCapture(probe.board, to, men, occupied)) {
        return true;
    }
    return (type & TypeQueen) != 0 &&
           CanMenBlock(probe.board, Between(to, probe.king), men, occupied);
}

bool TryMove(const TMateProbe& probe, int from, int to, TFigureCode promotion, TFigureCode type) {
    return CoversFlights(probe, from, to, type) && !IsAnswered(probe, from, to, type) &&
           MatesByMaking(probe,
                         TMove{static_cast<TField>(from), static_cast<TField>(to), promotion, 0});
}

bool TryTargets(const TMateProbe& probe, int from, TFigureCode type, TFieldSet targets) {
    while (targets != 0) {
        if (TryMove(probe, from, PopLowest(targets), 0, type)) {
            return true;
        }
    }
    return false;
}

TFieldSet CheckFields(const TMateProbe& probe, TFigureCode type) {
    if (type == TypeKnight) {
        return KnightFields[static_cast<std::size_t>(probe.king)];
    }
    return ((type & TypeBishop) != 0 ? probe.diagonalChecks : 0) |
           ((type & TypeRook) != 0 ? probe.straightChecks : 0);
}

TFieldSet CoverFields(const TMateProbe& probe, TFigureCode type) {
    switch (type) {
        case TypeKnight:
            return probe.coverKnight;
        case TypeBishop:
            return probe.coverDiagonal;
        case TypeRook:
            return probe.coverStraight;
        default:
            return probe.coverQueen;
    }
}

/// A figure that discovers a check gives check with every move off its line; the make finds out which.
bool TryFigure(const TMateProbe& probe, int from, TFigureCode type) {
    TFieldSet targets = probe.allowed & ~probe.white;
    if ((probe.openers & FieldBit(from)) == 0) {
        targets &= CoverFields(probe, type);
    }
    if ((probe.discoverers & FieldBit(from)) == 0) {
        targets &= CheckFields(probe, type);
    }
    if (targets == 0) {
        return false;
    }
    targets &= FiguresReach(type, from, probe.occupied);
    return TryTargets(probe, from, type, targets);
}

bool TryPromotions(const TMateProbe& probe, int from, int to) {
    const bool bDiscovers = (probe.discoverers & FieldBit(from)) != 0;
    const TFieldSet occupiedAfter = (probe.occupied & ~FieldBit(from)) | FieldBit(to);
    for (const TFigureCode type : {TypeQueen, TypeKnight}) {
        const bool bChecks =
            bDiscovers || (FiguresReach(type, to, occupiedAfter) & FieldBit(probe.king)) != 0;
        if (bChecks && TryMove(probe, from, to, type, type)) {
            return true;
        }
    }
    return false;
}

/// Rare cases go through the make operation untested: discovering pawns, and en passant, which opens
/// two lines at once.
bool TryPawnByMaking(const TMateProbe& probe, int from) {
    TMove moves[MaxMovesOfMan];
    const int count = GenerateWhiteMoves(probe.board, from, moves);
    for (int i = 0; i < count; ++i) {
        if (MatesByMaking(probe, moves[i])) {
            return true;
        }
    }
    return false;
}

bool TryPawn(const TMateProbe& probe, int from) {
    if ((probe.discoverers & FieldBit(from)) != 0) {
        return TryPawnByMaking(probe, from);
    }
    const TFieldSet ahead = FieldBit(from + 8) & ~probe.occupied;
    TFieldSet targets =
        ahead | (WhitePawnTargets[static_cast<std::size_t>(from)] & probe.board.m_blackMen);
    if (RankOf(from) == 6) {
        for (targets &= probe.allowed; targets != 0;) {
            if (TryPromotions(probe, from, PopLowest(targets))) {
                return true;
            }
        }
        return false;
    }
    if (RankOf(from) == 1 && ahead != 0) {
        targets |= FieldBit(from + 16) & ~probe.occupied;
    }
    targets &= BlackPawnTargets[static_cast<std::size_t>(probe.king)] & probe.allowed;
    if ((probe.openers & FieldBit(from)) == 0) {
        targets &= probe.coverPawn;
    }
    return TryTargets(probe, from, TypePawn, targets);
}

bool TryEnPassant(const TMateProbe& probe) {
    const int target = WhiteEnPassantTarget(probe.board);
    if (target < 0) {
        return false;
    }
    TFieldSet takers =
        BlackPawnTargets[static_cast<std::size_t>(target)] & probe.board.m_pawns & probe.white;
    while (takers != 0) {
        const auto from = static_cast<TField>(PopLowest(takers));
        if (MatesByMaking(probe, TMove{from, static_cast<TField>(target), 0, 0})) {
            return true;
        }
    }
    return false;
}

/// The king mates only by discovery or by castling.
bool TryKing(const TMateProbe& probe) {
    const bool bDiscovers = (probe.discoverers & FieldBit(probe.whiteKing)) != 0;
    const bool bMayCastle = probe.whiteKing == E1 && (probe.board.m_fields[A1] == WhiteRook ||
                                                      probe.board.m_fields[H1] == WhiteRook);
    if (!bDiscovers && !bMayCastle) {
        return false;
    }
    TMove moves[MaxMovesOfMan];
    const int count = GenerateWhiteMoves(probe.board, probe.whiteKing, moves);
    for (int i = 0; i < count; ++i) {
        const bool bCastling = moves[i].to == moves[i].from + 2 || moves[i].from == moves[i].to + 2;
        if ((bDiscovers || bCastling) && MatesByMaking(probe, moves[i])) {
            return true;
        }
    }
    return false;
}

TFieldSet AnswersToCheck(const TChessboard& board, int whiteKing) {
    if (board.m_whiteChecker == NoChecker) {
        return ~TFieldSet{0};
    }
    if (board.m_whiteChecker == DoubleCheck) {
        return 0;
    }
    return FieldBit(board.m_whiteChecker) | Between(board.m_whiteChecker, whiteKing);
}

bool TryMen(const TMateProbe& probe) {
    const TChessboard& board = probe.board;
    for (TFieldSet sliders = (board.m_diagonalSliders | board.m_straightSliders) & probe.white;
         sliders != 0;) {
        const int from = PopLowest(sliders);
        if (TryFigure(probe, from, TypeOf(board.m_fields[from]))) {
            return true;
        }
    }
    for (TFieldSet knights = board.m_knights & probe.white; knights != 0;) {
        if (TryFigure(probe, PopLowest(knights), TypeKnight)) {
            return true;
        }
    }
    for (TFieldSet pawns = board.m_pawns & probe.white; pawns != 0;) {
        if (TryPawn(probe, PopLowest(pawns))) {
            return true;
        }
    }
    return false;
}

/// Which fields and men come into question for covering the flights.
void CollectCover(TMateProbe& probe) {
    const TFieldSet kingless = probe.occupied & ~FieldBit(probe.king);
    for (TFieldSet open = probe.flights; open != 0;) {
        const int flight = PopLowest(open);
        const auto f = static_cast<std::size_t>(flight);
        const TFieldSet itself = FieldBit(flight);  // Standing on a flight takes it away.
        probe.coverDiagonal &= DiagonalRays[f] | itself;
        probe.coverStraight &= StraightRays[f] | itself;
        probe.coverQueen &= DiagonalRays[f] | StraightRays[f] | itself;
        probe.coverKnight &= KnightFields[f] | itself;
        probe.coverPawn &= BlackPawnTargets[f] | itself;
        probe.openers |= SoleBlockers(probe.board, flight, probe.white, kingless);
    }
}

}  // namespace

bool IsMateInOne(TChessboard& board) noexcept {
    const int king = BlackKingField(board);
    const int whiteKing = WhiteKingField(board);
    const TFieldSet occupied = OccupiedFields(board);
    const TFieldSet blockers = SoleBlockers(board, king, board.m_whiteMen, occupied);
    const auto k = static_cast<std::size_t>(king);
    TMateProbe probe{
        .board = board,
        .king = king,
        .whiteKing = whiteKing,
        .occupied = occupied,
        .white = board.m_whiteMen,
        .flights = BlackKingFlights(board),
        .openers = 0,
        .coverDiagonal = ~TFieldSet{0},
        .coverStraight = ~TFieldSet{0},
        .coverQueen = ~TFieldSet{0},
        .coverKnight = ~TFieldSet{0},
        .coverPawn = ~TFieldSet{0},
        .diagonalChecks = BishopReach(king, occupied),
        .straightChecks = RookReach(king, occupied),
        .discoverers = blockers & board.m_whiteMen,
        .kingRays = DiagonalRays[k] | StraightRays[k],
        .freeBlack = board.m_blackMen & ~blockers & ~FieldBit(king),
        .allowed = AnswersToCheck(board, whiteKing),
    };
    CollectCover(probe);
    if (probe.allowed != 0 && (TryMen(probe) || TryEnPassant(probe))) {
        return true;
    }
    return TryKing(probe);
}

int GenerateMatingMoves(TChessboard& board, TMove* pList) noexcept {
    TMove moves[MaxMovesOfSide];
    const int count = GenerateAllWhiteMoves(board, moves);
    int mating = 0;
    for (int i = 0; i < count; ++i) {
        TChessboard scratch = board;
        scratch.m_pPrevious = &board;
        if (MakeWhiteMoveToTry(scratch, moves[i]) == MoveMade &&
            scratch.m_blackChecker != NoChecker && !CanBlackEscapeCheck(scratch)) {
            pList[mating++] = moves[i];
        }
    }
    return mating;
}

}  // namespace tarnwick
