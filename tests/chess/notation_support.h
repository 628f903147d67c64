#pragma once

// A position with a stack of its own, from which tests play lines of moves given as text.

#include <stdexcept>
#include <string>
#include <string_view>

#include "chess/board_stack.h"
#include "chess/fen.h"

namespace tarnwick {

/// The position of a FEN, side to move and plies left by shPlies.
inline TChessboard BoardOf(std::string_view fen, std::uint16_t shPlies = 1) {
    TChessboard board = EmptyChessboard();
    bool bWithheld = false;
    bool bEnPassant = false;
    if (!ReadFen(board, fen, bWithheld, bEnPassant)) {
        throw std::invalid_argument("no FEN: " + std::string(fen));
    }
    board.m_shPlies = board.m_shRootPlies = shPlies;
    return board;
}

/// The root of a line, bound to the stack that it owns.
struct TRootOfLine {
    explicit TRootOfLine(std::string_view fen, std::uint16_t shPlies = 599)
        : board(BoardOf(fen, shPlies)) {
        board.m_pThread = &stack;
        stack.m_pRootBoard = &board;
    }

    TBoardStack stack;
    TChessboard board;
};

}  // namespace tarnwick
