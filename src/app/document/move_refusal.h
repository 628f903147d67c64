#pragma once
// Why a move is not legal, in the words of a friend at the board: "the man is pinned" teaches, "illegal
// move" does not.

#include <cstdint>
#include <string>
#include <string_view>

#include "chess/chessboard.h"

namespace tarnwick {

enum class TMoveRefusal : std::uint8_t {
    None,  ///< The move is legal.
    NoManThere,
    WrongSide,
    OwnManThere,
    CannotGoThere,  ///< This kind of man does not move so.
    WayBlocked,
    StillInCheck,
    KingIntoCheck,
    Pinned,
    PromotionMissing,
    PromotionWhereNone,
    CastlingHasMoved,
    CastlingBlocked,
    CastlingInCheck,
    CastlingAttacked,
    // Of a line of play (played_line.h), not of the rules.
    InvalidPosition,
    StipulationOver,
    LineFull,
    MateImpossible
};

/// Judges a move by the rules of chess. The board must be a prepared position; castling and en passant
/// follow from its history.
TMoveRefusal WhyIllegal(const TChessboard& board, TMove move);

/// The reason for the user, for those up to CastlingAttacked; empty for None.
std::string TextOfRefusal(TMoveRefusal refusal, const TChessboard& board, TMove move);

/// The move that the user wrote, in any way that app/view/typed_move.h reads. Throws ChessException that
/// says why there is none: no text of a move, several moves, or the reason why it is not legal.
TMove MoveOfTypedText(const TChessboard& board, std::string_view text);

}  // namespace tarnwick
