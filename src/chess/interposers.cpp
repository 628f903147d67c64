#include "chess/interposers.h"

#include "chess/attacker_pairs.h"
#include "chess/board_tables.h"
#include "chess/pins.h"

namespace tarnwick {
namespace {

/// Knights and sliders of one colour that reach the field.
TFieldSet FiguresReaching(const TChessboard& board, int field, TFieldSet own) {
    const auto f = static_cast<std::size_t>(field);
    const TFieldSet occupied = OccupiedFields(board);
    TFieldSet men = KnightFields[f] & board.m_knights;
    if ((DiagonalRays[f] & board.m_diagonalSliders & own) != 0) {
        men |= BishopReach(field, occupied) & board.m_diagonalSliders;
    }
    if ((StraightRays[f] & board.m_straightSliders & own) != 0) {
        men |= RookReach(field, occupied) & board.m_straightSliders;
    }
    return men & own;
}

/// The white pawn that can step straight to the field, as a set of at most one.
TFieldSet WhitePawnStepper(const TChessboard& board, int field) {
    const TFieldSet pawns = board.m_pawns & board.m_whiteMen;
    const TFieldSet single = FieldBit(field) >> 8;
    if ((pawns & single) != 0 || RankOf(field) != 3 || (OccupiedFields(board) & single) != 0) {
        return pawns & single;
    }
    return pawns & (FieldBit(field) >> 16);
}

TFieldSet BlackPawnStepper(const TChessboard& board, int field) {
    const TFieldSet pawns = board.m_pawns & board.m_blackMen;
    const TFieldSet single = FieldBit(field) << 8;
    TFieldSet stepper = pawns & single;
    if (stepper == 0 && RankOf(field) == 4 && (OccupiedFields(board) & single) == 0) {
        stepper = pawns & (FieldBit(field) << 16);
    }
    if (stepper != 0 && (board.m_fields[LowestField(stepper)] & MarkBit) != 0) {
        return 0;
    }
    return stepper;
}

}  // namespace

TFieldSet WhiteInterposersOf(const TChessboard& board, int field) noexcept {
    return FiguresReaching(board, field, board.m_whiteMen) | WhitePawnStepper(board, field);
}

TFieldSet BlackInterposersOf(const TChessboard& board, int field) noexcept {
    return FiguresReaching(board, field, board.m_blackMen) | BlackPawnStepper(board, field);
}

int ListWhiteInterposers(const TChessboard& board, int file, int rank, TFilePlace* pList) noexcept {
    return WriteAttackerPairs(board, WhiteInterposersOf(board, FieldAt(file, rank)), pList);
}

int ListBlackInterposers(const TChessboard& board, int file, int rank, TFilePlace* pList) noexcept {
    return WriteAttackerPairs(board, BlackInterposersOf(board, FieldAt(file, rank)), pList);
}

bool CanBlackInterpose(const TChessboard& board, int file, int rank, TFilePlace* pFound) noexcept {
    TFieldSet men = BlackInterposersOf(board, FieldAt(file, rank));
    if (men == 0) {
        return false;
    }
    men &= ~PinnedBlackMen(board);
    if (men != 0 && pFound != nullptr) {
        TFilePlace free[MaxInterposers];
        WriteAttackerPairs(board, men, free);
        *pFound = free[0];
    }
    return men != 0;
}

}  // namespace tarnwick
