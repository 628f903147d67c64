#pragma once
// TChessboard: the one position record. The board that the user sees, the root of a solving job and
// every node of the search are values of it. It is flat and trivially copyable because the search never
// takes a move back: it copies the record into the next ply's slot and moves there (make_move.h).
//
// The two colours are not symmetrical: problems are told from White's side, so White has lists of where
// the figures stand and Black has none. Side to move is the parity of m_shPlies: odd is White.
//
// Beside the men field by field stand six words of 64 bits, bit number = field. They double no
// information but make every attack test a few masks; they cost 48 bytes of copy a node, and perft and
// mate search run more than twice as fast with them (docs/PERFORMANCE.md).
//
// Rights to castle and to capture en passant are no state: they follow from the root and the chain of
// previous boards (castling.h, line_history.h), which is what lets the men alone identify a position.

#include <cstdint>
#include <type_traits>

#include "chess/board_flags.h"
#include "chess/fields.h"
#include "chess/figure_codes.h"
#include "chess/move.h"

namespace tarnwick {

struct TSolveTask;
struct TBoardStack;

/// A set of fields, bit number = field.
using TFieldSet = std::uint64_t;

constexpr TFieldSet FieldBit(int field) {
    return TFieldSet{1} << field;
}

/// Values of the check fields that are no field.
inline constexpr std::int8_t NoChecker = -1;
inline constexpr std::int8_t DoubleCheck = 64;

struct TChessboard {
    TFigureCode m_fields[FieldCount];  ///< Figure code of each field.

    TFieldSet m_whiteMen;         ///< All white men, the king included.
    TFieldSet m_blackMen;         ///< All black men, the king included.
    TFieldSet m_pawns;            ///< Pawns of both colours.
    TFieldSet m_knights;          ///< Knights of both colours.
    TFieldSet m_diagonalSliders;  ///< Bishops and queens of both colours.
    TFieldSet m_straightSliders;  ///< Rooks and queens of both colours.

    TSolveTask* m_pTask;          ///< The solving job; shared by all copies, not owned.
    TField m_trackedFields[8];    ///< Followed black figures, valid while TrackedFields is set.
    TChessboard* m_pPrevious;     ///< Board of the previous ply, null at the root. Not owned.
    TBoardStack* m_pThread;       ///< Board stack of the thread working on this board. Not owned.
    TMove m_lastMove;             ///< The move that led here.
    std::uint16_t m_shPlies;      ///< Half-moves still to play; odd: White to move.
    std::uint16_t m_shRootPlies;  ///< m_shPlies at the root of this search.
    TFlagWord<TMakeHeuristic> m_heuristicFlags;  ///< Special heuristics in force.
    std::uint32_t m_heuristicKey;                ///< Their parameters, as the registers' key.
    TFlagWord<TSearchFlag> m_searchFlags;
    TFlagWord<TStateBit> m_stateBits;  ///< See the accessors below for bits 0-1 and 3-4.
    std::uint8_t m_captureState;       ///< Bits 0-1 one-colour play mode; 2-3 white, 4-5 black men
                                       ///< captured since the root, each staying at 3; 6-7 free.
    std::uint8_t m_pass;               ///< Number of the present pass.
    std::int8_t m_whiteKingFile, m_whiteKingRank;
    std::int8_t m_blackKingFile, m_blackKingRank;
    std::int8_t
        m_whiteChecker;  ///< Field of the man checking the white king, NoChecker, DoubleCheck.
    std::int8_t
        m_blackChecker;  ///< The same for the black king. In the search only the checker of the
                         ///< side to move has a meaning.
    // The ten counters, cleared as one run of bytes: this order is fixed.
    std::uint8_t m_whiteQueens, m_blackQueens;
    std::uint8_t m_whiteRooks, m_blackRooks;
    std::uint8_t m_whiteBishops, m_blackBishops;
    std::uint8_t m_whiteKnights, m_blackKnights;
    std::uint8_t m_whitePawns, m_blackPawns;
    // Where the white figures stand, valid while m_bWhiteFiguresListed.
    TField m_whiteRookFields[2];
    TField m_whiteBishopFields[2];
    TField m_whiteKnightFields[2];
    TField m_whiteQueenField;
    /// 1 exactly when White has at most one queen, two rooks, two knights and two bishops, two bishops
    /// being on fields of opposite colours.
    std::uint8_t m_bWhiteFiguresListed;
};
static_assert(std::is_trivially_copyable_v<TChessboard> && sizeof(TChessboard) == 192);

/// One-colour play modes in bits 0-1 of m_captureState.
inline constexpr std::uint8_t OneColourMask = 0x3;
inline constexpr std::uint8_t WhiteFieldsOnly = 1;
inline constexpr std::uint8_t BlackFieldsOnly = 2;
inline constexpr std::uint8_t SeparatedBlackBishop = 3;

/// Captures since the root, 0 to 3.
constexpr int WhiteMenCaptured(std::uint8_t captureState) {
    return (captureState >> 2) & 3;
}
constexpr int BlackMenCaptured(std::uint8_t captureState) {
    return (captureState >> 4) & 3;
}
inline constexpr std::uint8_t WhiteCaptureStep = 0x4;
inline constexpr std::uint8_t BlackCaptureStep = 0x10;
inline constexpr std::uint8_t CaptureCountsMask = 0x3C;

/// Black figures now on the board that came from a promotion; 3 means three or more, and stays.
inline int PromotedBlackFigures(const TChessboard& board) {
    return board.m_stateBits.Raw() & 3;
}
inline void SetPromotedBlackFigures(TChessboard& board, int count) {
    board.m_stateBits.SetRaw(static_cast<std::uint16_t>((board.m_stateBits.Raw() & ~3) | count));
}
/// Distance of the black king from the nearest edge, 0 to 3.
inline int BlackKingEdgeDistance(const TChessboard& board) {
    return (board.m_stateBits.Raw() >> 3) & 3;
}
inline void SetBlackKingEdgeDistance(TChessboard& board, int distance) {
    board.m_stateBits.SetRaw(
        static_cast<std::uint16_t>((board.m_stateBits.Raw() & ~0x18) | (distance << 3)));
}

inline bool IsWhiteToMove(const TChessboard& board) {
    return (board.m_shPlies & 1) != 0;
}
inline int WhiteKingField(const TChessboard& board) {
    return board.m_whiteKingFile + board.m_whiteKingRank * 8;
}
inline int BlackKingField(const TChessboard& board) {
    return board.m_blackKingFile + board.m_blackKingRank * 8;
}
inline TFieldSet OccupiedFields(const TChessboard& board) {
    return board.m_whiteMen | board.m_blackMen;
}
/// White's queens, rooks, bishops and knights together.
inline int WhiteFigureCount(const TChessboard& board) {
    return board.m_whiteQueens + board.m_whiteRooks + board.m_whiteBishops + board.m_whiteKnights;
}
inline int BlackFigureCount(const TChessboard& board) {
    return board.m_blackQueens + board.m_blackRooks + board.m_blackBishops + board.m_blackKnights;
}

/// A board with all 64 fields empty and every other member zero or at its marker. Not yet a position:
/// set the fields, then PreparePosition.
TChessboard EmptyChessboard();

}  // namespace tarnwick
