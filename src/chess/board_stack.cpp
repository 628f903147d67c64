#include "chess/board_stack.h"

#include <new>

#include "base/chess_exception.h"

namespace tarnwick {

TBoardStack::TBoardStack() {
    try {
        m_pBoards = std::make_unique<TChessboard[]>(MaxPlies);
        m_pAlternateBoards = std::make_unique<TChessboard[]>(AlternateSlots);
    } catch (const std::bad_alloc&) {
        throw ChessException("Cannot allocate memory");
    }
    for (int i = 0; i < MaxPlies; ++i) {
        m_pBoards[static_cast<std::size_t>(i)].m_pThread = this;
    }
    for (int i = 0; i < AlternateSlots; ++i) {
        m_pAlternateBoards[static_cast<std::size_t>(i)].m_pThread = this;
    }
}

}  // namespace tarnwick
