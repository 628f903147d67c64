#include "chess/attacker_visit.h"

namespace tarnwick {
namespace {

/// All black attackers, to be narrowed by the caller.
TAttackerQuestion AskBlack(const TChessboard& board, int file, int rank) {
    const int field = FieldAt(file, rank);
    return {.board = board,
            .field = field,
            .own = board.m_blackMen,
            .pawnFields = WhitePawnTargets[static_cast<std::size_t>(field)],
            .king = BlackKingField(board),
            .pinned = PinnedBlackMen(board),
            .bWithKing = true,
            .bWithBehind = true,
            .bWithPinned = true};
}

}  // namespace

int ListBlackAttackers(const TChessboard& board, int file, int rank, std::uint8_t* pList) noexcept {
    return ListAttackers(AskBlack(board, file, rank), pList);
}

int ListBlackFreeAttackers(const TChessboard& board, int file, int rank,
                           std::uint8_t* pList) noexcept {
    TAttackerQuestion question = AskBlack(board, file, rank);
    question.bWithPinned = false;
    return ListAttackers(question, pList);
}

bool FindBlackFreeAttacker(const TChessboard& board, int file, int rank,
                           std::uint8_t* pFound) noexcept {
    TAttackerQuestion question = AskBlack(board, file, rank);
    question.bWithKing = false;
    question.bWithBehind = false;
    question.bWithPinned = false;
    return FindAttacker(question, pFound);
}

int FindFirstBlackAttacker(const TChessboard& board, int file, int rank,
                           std::uint8_t* pFound) noexcept {
    TAttackerQuestion question = AskBlack(board, file, rank);
    question.bWithKing = false;
    question.bWithBehind = false;
    return FindAttacker(question, pFound) ? 1 : 0;
}

}  // namespace tarnwick
