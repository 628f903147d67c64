#pragma once
// TBoardStack: what the moves need of a working thread. The search's thread context extends it. One
// owner thread; other threads only read boards above their fork.

#include <array>
#include <cstdint>
#include <memory>

#include "chess/chessboard.h"
#include "chess/make_hooks.h"

namespace tarnwick {

/// The deepest stipulation in plies, and the number of board slots of a thread.
inline constexpr int MaxPlies = 600;
inline constexpr int AlternateSlots = 13;
inline constexpr std::uint16_t NoAlternate = 65535;

/// A man taken since the root, in order of capture.
struct TCapturedMan {
    TFigureCode code = EmptyField;
    TField field = NoField;
};

struct TBoardStack {
    /// Allocates all slots; throws ChessException "Cannot allocate memory" when it cannot.
    TBoardStack();
    virtual ~TBoardStack() = default;
    TBoardStack(const TBoardStack&) = delete;
    TBoardStack& operator=(const TBoardStack&) = delete;

    std::unique_ptr<TChessboard[]> m_pBoards;  ///< MaxPlies slots, by plies left before a move.
    std::unique_ptr<TChessboard[]> m_pAlternateBoards;  ///< AlternateSlots slots.
    std::uint16_t m_shAlternateFrom = NoAlternate;      ///< From this ply down all boards share one
        ///< alternate slot; NoAlternate: not in use.
    const TChessboard* m_pRootBoard = nullptr;  ///< Castling is judged against it. Not owned.
    const TMakeHooks* m_pHooks = &NoMakeHooks;  ///< Never null.
    /// Per ply: the highest m_shPlies that a repetition in the line below refers to; 0 none.
    std::array<std::uint16_t, MaxPlies> m_repetitionLimit{};
    /// First three men of each colour captured since the root; index by the counts in m_captureState.
    std::array<TCapturedMan, 4> m_whiteCaptured{};
    std::array<TCapturedMan, 4> m_blackCaptured{};
};

/// The slot for the position after a move from this board. The caller copies the board into it, sets
/// m_pPrevious and makes the move there.
inline TChessboard* GetNextBoardSlot(const TChessboard& board) {
    TBoardStack& stack = *board.m_pThread;
    if (board.m_shPlies > stack.m_shAlternateFrom || stack.m_shAlternateFrom == NoAlternate) {
        return &stack.m_pBoards[board.m_shPlies];
    }
    return &stack.m_pAlternateBoards[stack.m_shAlternateFrom];
}

/// Takes the next slot and copies the board into it; the copy's history is this board.
inline TChessboard* CopyToNextSlot(TChessboard& board) {
    TChessboard* next = GetNextBoardSlot(board);
    *next = board;
    next->m_pPrevious = &board;
    return next;
}

}  // namespace tarnwick
