#pragma once
// The board as a picture of text, for terminals.

#include <string>

#include "chess/chessboard.h"

namespace tarnwick {

enum class TBoardStyle : std::uint8_t {
    Ascii,    ///< Letters, and nothing but ASCII: for files, mails and old terminals.
    Letters,  ///< Letters on a shaded board, UTF-8.
    Figures   ///< The figures of Unicode on a shaded board, UTF-8.
};

/// Eleven lines, each with its line end, a8 at the top left, every column one wide: the frame with
/// ranks and files, and behind the files the men of White and Black, as problem diagrams have them.
/// White's letters are upper case, Black's lower case.
std::string DrawBoard(const TChessboard& board, TBoardStyle style);

}  // namespace tarnwick
