#pragma once
// Names of the bits in the flag words of a board.

#include <cstdint>

#include "base/field_flags.h"

namespace tarnwick {

/// m_searchFlags: marks of the search on one position.
enum class TSearchFlag : std::uint16_t {
    LongLightSort = 0x2,    ///< Light ordering of White's moves up to 13 plies.
    KingAreaState = 0x8,    ///< State of the area around the black king, kept by the heuristics.
    FewFigures = 0x20,      ///< The position is of the kind that wants ordering earlier.
    BareBlackKing = 0x400,  ///< Black has nothing but the king; set by the capture that did it.
    GlobalRegisterMayHold = 0x800  ///< Precalculated data may answer this position.
};

/// m_stateBits, single bits. Bits 0-1 and 3-4 are fields with accessors beside the board record.
enum class TStateBit : std::uint16_t {
    QueenSaved = 0x20,            ///< Black took a figure that was to be saved: a queen.
    RookSaved = 0x40,             ///< The same while rooks are not to be saved.
    WhitePromotedQueen = 0x80,    ///< White has promoted to a queen.
    RelaxedByPawn = 0x100,        ///< The edge heuristics are off: a white pawn is near promotion.
    LoneMinorPiece = 0x400,       ///< White's only figure is one bishop or one knight, no pawns.
    WrongBishopRookPawn = 0x800,  ///< White has one bishop and pawns on a rook's file only, whose
                                  ///< queening field is of the other colour.
    FigureLost = 0x2000,          ///< Black's last move took a white figure.
    StrictnessOff = 0x8000        ///< The strict form of the edge heuristic is off in this line.
};

/// m_heuristicFlags: only the bits that the make operations look at themselves.
enum class TMakeHeuristic : std::uint32_t {
    TrackedFields = 0x80,           ///< m_trackedFields is in use.
    KeyFieldInPlay = 0x40000,       ///< Cleared when the captured man was the key of a heuristic.
    ForbiddenKingFields = 0x100000  ///< A list of fields that the white king may not enter.
};

}  // namespace tarnwick
