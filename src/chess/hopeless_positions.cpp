// Each recogniser is a proof. Endings known to be drawn in general but with winning exceptions (a lone
// knight against blocked men, say) are left to the search: an answer too many here would be a wrong
// "no mate", an answer too few costs only time. The tests count the small endings out.

#include "chess/hopeless_positions.h"

#include "chess/board_tables.h"
#include "chess/escape_check.h"
#include "chess/lines.h"
#include "chess/mate_in_one.h"

namespace tarnwick {
namespace {

constexpr TFieldSet AFile = 0x0101010101010101ULL;
constexpr TFieldSet HFile = AFile << 7;

bool IsBare(const TChessboard& board) {
    return !HasMoreThanOne(board.m_blackMen);
}

/// White moves that a lone pawn needs to queen on an empty road.
int MovesToQueen(int pawn) {
    const int rank = RankOf(pawn);
    return rank == 1 ? 5 : 7 - rank;
}

/// King and one pawn against the bare king: without a promotion in the moves left there is no mate
/// (the mate itself takes one more), nor with the black king in front of a rook's pawn, which it never
/// has to leave.
bool IsLonePawnHopeless(const TChessboard& board) {
    const TFieldSet pawns = board.m_pawns;
    const int pawn = LowestField(pawns);
    const int whiteMoves = (board.m_shPlies + 1) / 2;
    if (whiteMoves < MovesToQueen(pawn)) {
        return true;
    }
    const int king = BlackKingField(board);
    return (pawns & (AFile | HFile)) != 0 && FileOf(king) == FileOf(pawn) &&
           RankOf(king) > RankOf(pawn);
}

/// A rook's pawn whose queening field the bishop cannot cover, and the black king on that field or
/// beside it: it can always return to the corner.
bool IsWrongBishopHopeless(const TChessboard& board) {
    const int pawn = LowestField(board.m_pawns);
    const int corner = FileOf(pawn) + 56;
    const TFieldSet home = KingFields[static_cast<std::size_t>(corner)] | FieldBit(corner);
    return (home & FieldBit(BlackKingField(board))) != 0;
}

}  // namespace

void UpdateWrongBishopMark(TChessboard& board) noexcept {
    const TFieldSet pawns = board.m_pawns & board.m_whiteMen;
    bool bMarked = false;
    if (board.m_whiteBishops == 1 && WhiteFigureCount(board) == 1 && pawns != 0 &&
        ((pawns & ~AFile) == 0 || (pawns & ~HFile) == 0)) {
        const int bishop = LowestField(board.m_diagonalSliders & board.m_whiteMen);
        bMarked = ColourParity(FileOf(LowestField(pawns)) + 56) != ColourParity(bishop);
    }
    board.m_stateBits.Assign(TStateBit::WrongBishopRookPawn, bMarked);
}

bool HasOnlyOneColouredBishops(const TChessboard& board) noexcept {
    if (board.m_whitePawns != 0 || WhiteFigureCount(board) != board.m_whiteBishops) {
        return false;
    }
    constexpr TFieldSet darkFields = 0xAA55AA55AA55AA55ULL;
    const TFieldSet bishops = board.m_diagonalSliders & board.m_whiteMen;
    return (bishops & darkFields) == 0 || (bishops & ~darkFields) == 0;
}

bool IsHopelessForWhite(TChessboard& board) noexcept {
    const int minors = board.m_whiteKnights + board.m_whiteBishops;
    if (board.m_whiteQueens != 0 || board.m_whiteRooks != 0 || minors > 2) {
        return false;
    }
    if (minors == 1 && board.m_whitePawns == 0) {
        board.m_stateBits.Set(TStateBit::LoneMinorPiece);
    }
    if (minors == 0 && board.m_whitePawns == 0) {
        return true;
    }
    if (!IsBare(board)) {
        return false;
    }
    if (board.m_whitePawns == 0) {
        // Two knights mate a bare king only at once.
        return minors == 1 || HasOnlyOneColouredBishops(board) ||
               (board.m_whiteKnights == 2 && !IsMateInOne(board));
    }
    if (board.m_whitePawns > 1) {
        return false;
    }
    if (minors == 0) {
        return IsLonePawnHopeless(board);
    }
    return minors == 1 && board.m_stateBits.Has(TStateBit::WrongBishopRookPawn) &&
           IsWrongBishopHopeless(board);
}

bool IsUselessWhiteMove(TChessboard& board) noexcept {
    if (WhiteFigureCount(board) != board.m_whiteKnights || board.m_whiteKnights > 2 ||
        !IsBare(board)) {
        return false;
    }
    return board.m_whiteKnights < 2 || board.m_blackChecker == NoChecker ||
           CanBlackEscapeCheck(board);
}

}  // namespace tarnwick
