#pragma once

// Whether bytes from a file can be a position that a search has stored.
//
// A wrong record of a register is worse than none: the search believes it. A damaged byte is most often no
// figure code, which is seen here before the record gets in.

#include "registers/chessboard_register_item.h"

namespace tarnwick {

/// A longer mate is never searched: this is the number of board slots of a thread.
inline constexpr std::uint16_t MostPliesOfRecord = 600;

/// All codes are figures or empty, and each side has one king. Pawns may bear the mark of pawns that only
/// capture.
bool CanBeStoredPosition(const TChessboardRegisterItem& item) noexcept;

}  // namespace tarnwick
