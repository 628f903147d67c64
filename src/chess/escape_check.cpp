// A pinned man never answers a check from elsewhere: staying on its own line, it can neither take the
// checker nor reach the checker's line. So pinned men are left out as a set, and no reply is ever made.

#include "chess/escape_check.h"

#include "chess/attack_map.h"
#include "chess/attacks.h"
#include "chess/generate_moves.h"

namespace tarnwick {
namespace {

bool HasFlight(const TChessboard& board) {
    const int king = BlackKingField(board);
    const TFieldSet occupied = OccupiedFields(board) & ~FieldBit(king);
    TFieldSet steps = KingFields[static_cast<std::size_t>(king)] & ~board.m_blackMen;
    while (steps != 0) {
        if (!IsAttackedByWhiteOver(board, PopLowest(steps), occupied)) {
            return true;
        }
    }
    return false;
}

/// Free black men, without king and pawns, that see the field.
bool AnyFigureReaches(const TChessboard& board, int field, TFieldSet men, TFieldSet occupied) {
    const auto f = static_cast<std::size_t>(field);
    if ((KnightFields[f] & board.m_knights & men) != 0) {
        return true;
    }
    const TFieldSet sliders = ((DiagonalRays[f] & board.m_diagonalSliders) |
                               (StraightRays[f] & board.m_straightSliders)) &
                              men;
    return AnySliderSees(field, sliders, occupied);
}

bool CanCaptureEnPassant(const TChessboard& board, int checker, TFieldSet men, TFieldSet occupied) {
    const int target = BlackEnPassantTarget(board);
    if (target < 0 || target + 8 != checker) {
        return false;
    }
    TFieldSet takers = WhitePawnTargets[static_cast<std::size_t>(target)] & board.m_pawns & men;
    while (takers != 0) {
        const TFieldSet after =
            (occupied & ~FieldBit(PopLowest(takers)) & ~FieldBit(checker)) | FieldBit(target);
        const int king = BlackKingField(board);
        const auto k = static_cast<std::size_t>(king);
        const TFieldSet sliders = ((DiagonalRays[k] & board.m_diagonalSliders) |
                                   (StraightRays[k] & board.m_straightSliders)) &
                                  board.m_whiteMen;
        if (!AnySliderSees(king, sliders, after)) {
            return true;
        }
    }
    return false;
}

/// A black pawn steps onto one of the empty fields of `line`.
bool CanPawnBlock(const TChessboard& board, TFieldSet line, TFieldSet men, TFieldSet occupied) {
    const TFieldSet single = ((board.m_pawns & men) >> 8) & ~occupied;
    const TFieldSet fromHome = single & (TFieldSet{0xFF} << 40);
    return ((single | ((fromHome >> 8) & ~occupied)) & line) != 0;
}

}  // namespace

bool CanMenCapture(const TChessboard& board, int field, TFieldSet men,
                   TFieldSet occupied) noexcept {
    if ((WhitePawnTargets[static_cast<std::size_t>(field)] & board.m_pawns & men) != 0) {
        return true;
    }
    return AnyFigureReaches(board, field, men, occupied);
}

bool CanMenBlock(const TChessboard& board, TFieldSet line, TFieldSet men,
                 TFieldSet occupied) noexcept {
    if (line == 0) {
        return false;
    }
    if (CanPawnBlock(board, line, men, occupied)) {
        return true;
    }
    while (line != 0) {
        if (AnyFigureReaches(board, PopLowest(line), men, occupied)) {
            return true;
        }
    }
    return false;
}

bool CanBlackEscapeCheck(const TChessboard& board) noexcept {
    if (HasFlight(board)) {
        return true;
    }
    const int checker = board.m_blackChecker;
    if (checker == DoubleCheck) {
        return false;
    }
    const TFieldSet occupied = OccupiedFields(board);
    const int king = BlackKingField(board);
    const TFieldSet pinned = SoleBlockers(board, king, board.m_whiteMen, occupied);
    const TFieldSet men = board.m_blackMen & ~pinned & ~FieldBit(king);
    if (CanMenCapture(board, checker, men, occupied)) {
        return true;
    }
    const TFigureCode type = TypeOf(board.m_fields[checker]);
    if (type == TypePawn) {
        return CanCaptureEnPassant(board, checker, board.m_blackMen, occupied);
    }
    return (type & TypeQueen) != 0 && CanMenBlock(board, Between(checker, king), men, occupied);
}

bool IsWhiteKingMovable(const TChessboard& board) noexcept {
    const int king = WhiteKingField(board);
    TFieldSet steps = KingFields[static_cast<std::size_t>(king)] & ~board.m_whiteMen;
    while (steps != 0) {
        if (!IsAttackedByBlackOver(board, PopLowest(steps), OccupiedFields(board))) {
            return true;
        }
    }
    return false;
}

TFieldSet BlackKingFlights(const TChessboard& board) noexcept {
    const int king = BlackKingField(board);
    return KingFields[static_cast<std::size_t>(king)] & ~board.m_blackMen &
           ~WhiteAttackMap(board, board.m_whiteMen, OccupiedFields(board) & ~FieldBit(king));
}

int CountBlackKingMoves(const TChessboard& board) noexcept {
    return std::popcount(BlackKingFlights(board));
}

}  // namespace tarnwick
