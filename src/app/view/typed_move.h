#pragma once
// Moves that the user types with the board in focus: "e2e4", "e2-e4", "Ke1-e2", "Ke2", "Nbd2", "exd5",
// "e7e8Q", "e8=Q", "0-0". Figure letters may be English or Polish, as in every text of a position.
//
// Each legal move is spelled in all these ways and compared with what was typed, so a text can never
// name a move that the board would refuse. A small letter that is a file is a file: "b" is the b-file
// and "B" the bishop.

#include <string>
#include <string_view>
#include <vector>

#include "chess/chessboard.h"

namespace tarnwick {

/// What a typed text may still become.
struct TTypedMoves {
    std::vector<TMove> exact;   ///< Legal moves that the text spells completely; two are ambiguous.
    bool bMayContinue = false;  ///< A longer text spells another legal move.

    /// The text can only mean this one move: it need not wait for Enter.
    bool IsDecided() const { return exact.size() == 1 && !bMayContinue; }
    /// No legal move begins like this.
    bool IsHopeless() const { return exact.empty() && !bMayContinue; }
};

/// Reads the text for the side to move of a prepared position. Blanks and the signs - x : = + # ! ? do
/// not count. An empty text may become any legal move.
TTypedMoves ReadTypedMove(const TChessboard& board, std::string_view text);

/// Whether the key can belong to a move: other keys are left to the window.
bool IsMoveCharacter(char32_t character);

}  // namespace tarnwick
