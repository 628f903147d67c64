// Short mates of fixed depth, as the sieve asks for them.

#include "engine/search/find_mate.h"

namespace tarnwick {
namespace {

bool MatesInPlies(TChessboard& board, std::uint16_t plies) {
    const std::uint16_t before = board.m_shPlies;
    board.m_shPlies = plies;
    const TNodeResult result = FindMateWhiteToMove(board, true);
    board.m_shPlies = before;
    return result == ResultMate;
}

}  // namespace

bool IsWhiteMateInTwo(TChessboard& board) noexcept {
    return MatesInPlies(board, 3);
}

bool IsWhiteMateInThree(TChessboard& board) noexcept {
    return MatesInPlies(board, 5);
}

}  // namespace tarnwick
