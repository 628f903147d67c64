// Who has how much, and what of it counts.

#include "chess/attacks.h"
#include "engine/heuristics/exchanges.h"
#include "engine/heuristics/line_moves.h"
#include "engine/heuristics/position_tests.h"
#include "engine/heuristics/scratch_moves.h"

namespace tarnwick {
namespace {

/// A lead of less may be taken by a few moves.
constexpr int ClearLead = 3;
/// With figures of this many points White can give some away.
constexpr int PointsToSpare = 17;
constexpr TFieldSet LightFields = 0x55AA55AA55AA55AAULL;

TFieldSet Bishops(const TChessboard& board, TFieldSet men) {
    return board.m_diagonalSliders & ~board.m_straightSliders & men;
}

TFieldSet FieldsOfColourOf(int field) {
    return ColourParity(field) == 1 ? LightFields : ~LightFields;
}

bool IsWhiteAt(const TChessboard& board, int field) {
    return (board.m_whiteMen & FieldBit(field)) != 0;
}

/// A man on the field would be taken for nothing.
bool IsLostOn(const TChessboard& board, int field) {
    const TFieldSet occupied = OccupiedFields(board);
    return IsAttackedByBlackOver(board, field, occupied) &&
           !IsAttackedByWhiteOver(board, field, occupied);
}

/// The one movable man but the king is a bishop or knight.
bool MovesOneMinorOnly(const TChessboard& board, TFieldSet movable) {
    const TFieldSet minors = board.m_knights | (board.m_diagonalSliders & ~board.m_straightSliders);
    return movable != 0 && !HasMoreThanOne(movable) && (movable & minors) != 0;
}

}  // namespace

int WhitePoints(const TChessboard& board) noexcept {
    return 9 * board.m_whiteQueens + 5 * board.m_whiteRooks +
           3 * (board.m_whiteBishops + board.m_whiteKnights) + board.m_whitePawns;
}

int BlackPoints(const TChessboard& board) noexcept {
    return 9 * board.m_blackQueens + 5 * board.m_blackRooks +
           3 * (board.m_blackBishops + board.m_blackKnights) + board.m_blackPawns;
}

int CountLosableQueens(const TChessboard& board) noexcept {
    int count = 0;
    TFieldSet queens = board.m_diagonalSliders & board.m_straightSliders & board.m_whiteMen;
    while (queens != 0) {
        count += GainByBlackCapture(board, PopLowest(queens)) > 0 ? 1 : 0;
    }
    return count;
}

bool IsBlackAhead(const TChessboard& board) noexcept {
    return BlackPoints(board) >= WhitePoints(board) + ClearLead;
}

bool HasFiguresToSpare(const TChessboard& board) noexcept {
    return WhiteFigureCount(board) >= 4 || WhitePoints(board) - board.m_whitePawns >= PointsToSpare;
}

int ImmovableBlackPoints(const TChessboard& board) noexcept {
    int points = 0;
    for (TFieldSet men = board.m_blackMen & ~FieldBit(BlackKingField(board)); men != 0;) {
        const int field = PopLowest(men);
        points += CanBlackManMove(board, field) ? 0 : FigureValues[TypeOf(board.m_fields[field])];
    }
    return points;
}

bool AreBishopsOpposite(const TChessboard& board) noexcept {
    return board.m_whiteBishops == 1 && board.m_blackBishops == 1 &&
           ColourParity(LowestField(Bishops(board, board.m_whiteMen))) !=
               ColourParity(LowestField(Bishops(board, board.m_blackMen)));
}

bool IsBlackBishopSeparated(const TChessboard& board) noexcept {
    if (!AreBishopsOpposite(board) || BlackFigureCount(board) != 1 ||
        MovableBlackMen(board, board.m_pawns & board.m_blackMen) != 0) {
        return false;
    }
    const TFieldSet itsFields = FieldsOfColourOf(LowestField(Bishops(board, board.m_blackMen)));
    return (board.m_whiteMen & ~FieldBit(WhiteKingField(board)) & itsFields) == 0;
}

bool HasBishopPair(const TChessboard& board) noexcept {
    const TFieldSet bishops = Bishops(board, board.m_whiteMen);
    return (bishops & LightFields) != 0 && (bishops & ~LightFields) != 0;
}

bool IsQueenAtStake(const TChessboard& board) noexcept {
    return board.m_whiteQueens > 0 && (board.m_blackQueens > 0 || CountLosableQueens(board) > 0);
}

bool IsAdvancedWhitePawn(const TChessboard& board, int field) noexcept {
    if (board.m_fields[field] != WhitePawn || RankOf(field) < 5) {
        return false;
    }
    const TFieldSet occupied = OccupiedFields(board);
    if (RankOf(field) == 6) {
        const TFieldSet takes =
            WhitePawnTargets[static_cast<std::size_t>(field)] & board.m_blackMen;
        return takes != 0 || ((FieldBit(field + 8) & occupied) == 0 && !IsLostOn(board, field + 8));
    }
    return ((FieldBit(field + 8) | FieldBit(field + 16)) & occupied) == 0 &&
           !IsLostOn(board, field + 8) && !IsLostOn(board, field + 16);
}

bool HasAdvancedWhitePawn(const TChessboard& board) noexcept {
    for (TFieldSet pawns = board.m_pawns & board.m_whiteMen; pawns != 0;) {
        if (IsAdvancedWhitePawn(board, PopLowest(pawns))) {
            return true;
        }
    }
    return false;
}

TField FindAdvancedBlackPawn(const TChessboard& board) noexcept {
    const TFieldSet occupied = OccupiedFields(board);
    for (TFieldSet pawns = board.m_pawns & board.m_blackMen; pawns != 0;) {
        const int field = PopLowest(pawns);
        const int rank = RankOf(field);
        const TFieldSet path = FieldBit(field - 8) | (rank == 2 ? FieldBit(field - 16) : 0);
        if (rank <= 2 && (path & occupied) == 0 &&
            !IsAttackedByWhiteOver(board, FieldAt(FileOf(field), 0), occupied)) {
            return static_cast<TField>(field);
        }
    }
    return NoField;
}

bool ArePromotionFieldsGuarded(const TChessboard& board) noexcept {
    if (board.m_blackPawns == 0) {
        return false;
    }
    for (TFieldSet pawns = board.m_pawns & board.m_blackMen; pawns != 0;) {
        const int promotion = FileOf(PopLowest(pawns));
        const bool bBlocked = IsWhiteAt(board, promotion);
        if (!bBlocked && !IsAttackedByWhiteOver(board, promotion, OccupiedFields(board))) {
            return false;
        }
    }
    return true;
}

bool IsMinorDuel(const TChessboard& board) noexcept {
    const TFieldSet kings = FieldBit(WhiteKingField(board)) | FieldBit(BlackKingField(board));
    return MovesOneMinorOnly(board, MovableWhiteMen(board, board.m_whiteMen & ~kings)) &&
           MovesOneMinorOnly(board, MovableBlackMen(board, board.m_blackMen & ~kings));
}

}  // namespace tarnwick
