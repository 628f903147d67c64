#include "engine/heuristics/one_colour_play.h"

#include "chess/line_history.h"
#include "chess/lines.h"
#include "chess/mate_in_one.h"
#include "chess/move_list.h"
#include "engine/heuristics/heuristic_bits.h"
#include "engine/heuristics/heuristic_key.h"

namespace tarnwick {
namespace {

constexpr int LeastPlies = 13;
constexpr TFieldSet LightFields = 0x55AA55AA55AA55AAULL;

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
    board.m_captureState |= bLightBishop ? BlackFieldsOnly : WhiteFieldsOnly;
    UpdateHeurParams(board);
}

bool MaySeparate(const TChessboard& board) {
    return board.m_heuristicFlags.HasAny(SH_ONECOLORPLAYPOSSIBLE) &&
           (board.m_captureState & OneColourMask) == 0 && board.m_shPlies >= LeastPlies &&
           AreOppositeBishopsSeparable(board);
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
    if (child.m_pPrevious != nullptr && MaySeparate(child)) {
        TakeBishopOff(child);
    }
}

bool SeparateOppositeBishopsAtRoot(TChessboard& root) noexcept {
    if (!MaySeparate(root)) {
        return false;
    }
    TakeBishopOff(root);
    return true;
}

bool MayWhitePlayInOneColour(const TChessboard& board, TMove move) noexcept {
    const int mode = board.m_captureState & OneColourMask;
    if (mode != WhiteFieldsOnly && mode != BlackFieldsOnly) {
        return true;
    }
    const bool bLight = mode == WhiteFieldsOnly;
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
