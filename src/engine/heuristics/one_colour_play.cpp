#include "engine/heuristics/one_colour_play.h"

#include <algorithm>

#include "chess/generate_moves.h"
#include "chess/line_history.h"
#include "chess/lines.h"
#include "chess/make_move.h"
#include "chess/mate_in_one.h"
#include "chess/move_list.h"
#include "engine/heuristics/heuristic_bits.h"
#include "engine/heuristics/heuristic_key.h"

namespace tarnwick {
namespace {

constexpr int LeastPlies = 13;
constexpr TFieldSet LightFields = 0x55AA55AA55AA55AAULL;
constexpr TFieldSet FilesA = 0x0101010101010101ULL;
constexpr TFieldSet FilesH = FilesA << 7;

TFieldSet FieldsOfColour(int parity) {
    return parity != 0 ? LightFields : ~LightFields;
}

int BishopOf(const TChessboard& board, TFieldSet men) {
    return LowestField(board.m_diagonalSliders & men);
}

bool HasRightMaterial(const TChessboard& board) {
    return board.m_bWhiteFiguresListed != 0 && board.m_whiteBishops == 1 &&
           board.m_whiteQueens + board.m_whiteRooks == 0 && board.m_blackBishops == 1 &&
           BlackFigureCount(board) == 1 && board.m_blackPawns > 0;
}

bool AreBlackPawnsBlocked(const TChessboard& board) {
    const TFieldSet pawns = board.m_pawns & board.m_blackMen;
    return ((pawns >> 8) & ~OccupiedFields(board)) == 0;
}

void TakeBishopOff(TChessboard& board) {
    const int field = BishopOf(board, board.m_blackMen);
    const bool bLightBishop = ColourParity(field) != 0;
    if (PromotedBlackFigures(board) > 0 && IsPromotedFigure(board, field)) {
        SetPromotedBlackFigures(board, PromotedBlackFigures(board) - 1);
    }
    board.m_fields[field] = EmptyField;
    board.m_blackMen &= ~FieldBit(field);
    board.m_diagonalSliders &= ~FieldBit(field);
    board.m_blackBishops = 0;
    for (TField& tracked : board.m_trackedFields) {
        tracked = tracked == field ? NoField : tracked;
    }
    board.m_captureState &= static_cast<std::uint8_t>(~OneColourMask);
    board.m_captureState |= BishopTakenOff | (bLightBishop ? BlackFieldsOnly : WhiteFieldsOnly);
    UpdateHeurParams(board);
}

bool MaySeparate(const TChessboard& board) {
    return board.m_heuristicFlags.HasAny(SH_ONECOLORPLAYPOSSIBLE) && !IsBishopTakenOff(board) &&
           board.m_shPlies >= LeastPlies && AreOppositeBishopsSeparable(board);
}

/// Free fields of the bishop's colour from which a bishop could not move: all neighbours on its
/// diagonals are Black's own men or off the board. White's men never stand on that colour.
TFieldSet FieldsThatBuryBishop(const TChessboard& board) {
    const bool bDark = (board.m_captureState & OneColourMask) == WhiteFieldsOnly;
    const TFieldSet open = FieldsOfColour(bDark ? 0 : 1) & ~board.m_blackMen;
    const TFieldSet notA = open & ~FilesA;
    const TFieldSet notH = open & ~FilesH;
    return open & ~((notA << 7) | (notA >> 9) | (notH << 9) | (notH >> 7));
}

/// Nothing that the bishop does can be in the way of a move to a field of the other colour.
bool HasMoveOffBishopsColour(TChessboard& board) {
    const bool bLight = (board.m_captureState & OneColourMask) == WhiteFieldsOnly;
    TMove moves[MaxMovesOfSide];
    const int count = GenerateAllBlackMoves(board, moves);
    return std::any_of(moves, moves + count, [&](TMove move) {
        const bool bDoubleStep =
            board.m_fields[move.from] == BlackPawn && move.from - move.to == 2 * 8;
        return (ColourParity(move.to) != 0) == bLight && !bDoubleStep &&
               MakeBlackMove(*CopyToNextSlot(board), move, false) != MoveRefused;
    });
}

}  // namespace

bool AreOppositeBishopsSeparable(const TChessboard& board) noexcept {
    if (!HasRightMaterial(board)) {
        return false;
    }
    const int blackParity = ColourParity(BishopOf(board, board.m_blackMen));
    return ColourParity(BishopOf(board, board.m_whiteMen)) != blackParity &&
           (board.m_whiteMen & FieldsOfColour(blackParity)) == 0 && AreBlackPawnsBlocked(board);
}

void SeparateOppositeBishops(TChessboard& child) noexcept {
    if (MaySeparate(child)) {
        TakeBishopOff(child);
    }
}

bool MayBlackBeStalemated(TChessboard& board) noexcept {
    return FieldsThatBuryBishop(board) != 0 && !HasMoveOffBishopsColour(board);
}

bool MayWhitePlayInOneColour(const TChessboard& board, TMove move) noexcept {
    if (!IsOneColourPlay(board)) {
        return true;
    }
    const bool bLight = (board.m_captureState & OneColourMask) == WhiteFieldsOnly;
    const TFigureCode promotion = move.PromotionType();
    const bool bDoubleStep = board.m_fields[move.from] == WhitePawn && move.to - move.from == 2 * 8;
    return (ColourParity(move.to) != 0) == bLight && !bDoubleStep && promotion != TypeQueen &&
           promotion != TypeRook;
}

bool IsKnownOneColourMate(const TChessboard& board) noexcept {
    TChessboard copy = board;
    TMove moves[MaxMovesOfSide];
    const int count = GenerateMatingMoves(copy, moves);
    for (int i = 0; i < count; ++i) {
        if (MayWhitePlayInOneColour(board, moves[i])) {
            return true;
        }
    }
    return false;
}

}  // namespace tarnwick
