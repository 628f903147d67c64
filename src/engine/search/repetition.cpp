// Why a repetition may be dropped: if White could mate from the position with fewer plies left, he could
// do so from its first occurrence. Below 14 plies safe mode searches it all the same, so that answers near
// the leaves depend on the position alone and can be remembered.

#include "engine/search/repetition.h"

#include <algorithm>
#include <cstring>

#include "chess/castling.h"

namespace tarnwick {
namespace {

bool IsQuietLastMove(const TChessboard& board) {
    const TMove move = board.m_lastMove;
    if (move.IsPass()) {
        return true;
    }
    return move.PromotionType() == 0 && TypeOf(board.m_fields[move.to]) != TypePawn &&
           board.m_pPrevious->m_fields[move.to] == EmptyField;
}

/// Four quiet plies back, or null.
const TChessboard* FourQuietPliesBack(const TChessboard* board) {
    for (int ply = 0; ply < 4; ++ply) {
        if (board->m_pPrevious == nullptr || !IsQuietLastMove(*board)) {
            return nullptr;
        }
        board = board->m_pPrevious;
    }
    return board;
}

bool BlackRightsDiffer(const TChessboard& a, const TChessboard& b) {
    return a.m_fields[E8] == BlackKing &&
           (HasCastlingRight(a, TCastling::BlackShort) !=
                HasCastlingRight(b, TCastling::BlackShort) ||
            HasCastlingRight(a, TCastling::BlackLong) != HasCastlingRight(b, TCastling::BlackLong));
}

bool MayBeRepeated(const TChessboard& earlier, const TChessboard& board) {
    return (earlier.m_shPlies & 1) == (board.m_shPlies & 1) && earlier.m_shPlies != 0 &&
           earlier.m_shPlies <= board.m_pTask->m_shRepetitionFrom;
}

}  // namespace

const TChessboard* FindRepeatedPosition(const TChessboard& board) noexcept {
    for (const TChessboard* b = FourQuietPliesBack(&board); b != nullptr;
         b = FourQuietPliesBack(b)) {
        if (std::memcmp(b->m_fields, board.m_fields, sizeof board.m_fields) == 0 &&
            !BlackRightsDiffer(*b, board)) {
            return MayBeRepeated(*b, board) ? b : nullptr;
        }
    }
    return nullptr;
}

bool IsRepetitionToSkip(TThreadContext& thread, const TChessboard& child, int nodePlies) noexcept {
    const bool bSafe = thread.m_task.m_bSafeMode;
    if (bSafe && nodePlies <= 13) {
        return false;
    }
    const TChessboard* earlier = FindRepeatedPosition(child);
    if (earlier == nullptr) {
        return false;
    }
    const bool bClose =
        earlier->m_shPlies - child.m_shPlies <= 4 && thread.m_quickerMateNesting == 0;
    if (bSafe && !bClose && nodePlies <= 15 && FindRepeatedPosition(*earlier) == nullptr) {
        return false;
    }
    std::uint16_t& limit = thread.m_repetitionLimit[static_cast<std::size_t>(nodePlies)];
    limit = std::max(limit, earlier->m_shPlies);
    return true;
}

}  // namespace tarnwick
