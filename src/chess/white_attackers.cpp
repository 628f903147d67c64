#include "chess/attacker_visit.h"

namespace tarnwick {
namespace {

/// All white attackers, to be narrowed by the caller.
TAttackerQuestion AskWhite(const TChessboard& board, int file, int rank) {
    const int field = FieldAt(file, rank);
    return {.board = board,
            .field = field,
            .own = board.m_whiteMen,
            .pawnFields = BlackPawnTargets[static_cast<std::size_t>(field)],
            .king = WhiteKingField(board),
            .pinned = PinnedWhiteMen(board),
            .bWithKing = true,
            .bWithBehind = true,
            .bWithPinned = true};
}

TAttackerQuestion AskFreeWhite(const TChessboard& board, int file, int rank) {
    TAttackerQuestion question = AskWhite(board, file, rank);
    question.bWithKing = false;
    question.bWithBehind = false;
    question.bWithPinned = false;
    return question;
}

}  // namespace

int ListWhiteAttackers(const TChessboard& board, int file, int rank, std::uint8_t* pList) noexcept {
    return ListAttackers(AskWhite(board, file, rank), pList);
}

int ListWhiteAttackersFirstOnRay(const TChessboard& board, int file, int rank,
                                 std::uint8_t* pList) noexcept {
    TAttackerQuestion question = AskWhite(board, file, rank);
    question.bWithBehind = false;
    return ListAttackers(question, pList);
}

int ListWhiteFreeAttackers(const TChessboard& board, int file, int rank,
                           std::uint8_t* pList) noexcept {
    return ListAttackers(AskFreeWhite(board, file, rank), pList);
}

bool FindWhiteFreeAttacker(const TChessboard& board, int file, int rank,
                           std::uint8_t* pFound) noexcept {
    return FindAttacker(AskFreeWhite(board, file, rank), pFound);
}

}  // namespace tarnwick
