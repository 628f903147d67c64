#pragma once
// Finer questions about the black king's room than the plain count of free_fields.h, after a white move.

#include <cstdint>

#include "chess/chessboard.h"

namespace tarnwick {

enum class TRoomMode : std::uint8_t {
    Usual = 0,
    TwoHeavyMen = 1,  ///< White has two heavy men, or one and a pawn about to become another.
    InCheck = 254     ///< The king is in check: the shape of the fields is about to change.
};

/// Free fields; counted exactly up to the limit. Above it, shapes that one move of a heavy man
/// closes count for less, but never below the limit.
int CountFreeFields(const TChessboard& child, int limit, TRoomMode mode) noexcept;

/// The least count after White, moving again, has won a black man beside the king; 8 when no man can
/// be won there.
int CountFreeFieldsAfterCapture(const TChessboard& child, int limit, TRoomMode mode) noexcept;

/// A free field that leads further from the edge than the king stands.
bool HasFreeInnerField(const TChessboard& board) noexcept;

/// A white pawn on rank 7 can promote on a field that is not beside the black king and that Black does
/// not attack.
bool HasSafePromotion(const TChessboard& board) noexcept;

}  // namespace tarnwick
