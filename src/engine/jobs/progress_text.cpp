#include "engine/jobs/progress_text.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <utility>

#include "chess/board_stack.h"
#include "chess/fen.h"
#include "chess/move_text.h"

namespace tarnwick {

int ShownHalfMoves(int rootPlies) {
    if (rootPlies >= 141) {
        return 24;
    }
    if (rootPlies >= 81) {
        return 48;
    }
    return rootPlies >= 41 ? 144 : 288;
}

std::string ProgressText(const TChessboard& board) {
    std::array<const TChessboard*, MaxPlies> line;  // from the last board back to the first reply
    std::size_t count = 0;
    for (const TChessboard* b = &board; b->m_pPrevious != nullptr && count < line.size();
         b = b->m_pPrevious) {
        line[count++] = b;
    }
    const auto shown =
        std::min(count, static_cast<std::size_t>(ShownHalfMoves(board.m_shRootPlies)));
    std::string text;
    for (std::size_t i = 0; i < shown; ++i) {
        const TChessboard& after = *line[count - 1 - i];
        text += i == 0 ? "" : ", ";
        if (!IsWhiteToMove(after)) {
            text += std::to_string(i / 2 + 1) + ". ";
        }
        text += MoveToDisplayText(after.m_lastMove, *after.m_pPrevious);
    }
    std::array<char, 24> heuristics;
    std::snprintf(heuristics.data(), heuristics.size(), "%sSH:%xh", text.empty() ? "" : " ",
                  board.m_heuristicFlags.Raw());
    return text + heuristics.data();
}

namespace {

TPositionInHand PositionOf(const TChessboard& board) {
    const TChessboard* pWhite = &board;
    if (!IsWhiteToMove(board) && board.m_pPrevious != nullptr) {
        pWhite = board.m_pPrevious;
    }
    return {.fen = WriteFen(board, false),
            .problemFen = WriteFen(*pWhite, true),
            .problemMoves = (pWhite->m_shPlies + 1) / 2};
}

}  // namespace

void TLineInHand::Answer(const TChessboard& board) noexcept {
    std::int32_t asked = m_asked.load(std::memory_order_relaxed);
    try {
        std::string text = ProgressText(board);
        TPositionInHand position = PositionOf(board);
        const std::lock_guard guard(m_lock);
        m_text.swap(text);
        std::swap(m_position, position);
    } catch (...) {  // No memory for a text that nobody needs.
    }
    m_asked.compare_exchange_strong(asked, Nobody);
}

}  // namespace tarnwick
