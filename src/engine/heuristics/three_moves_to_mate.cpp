// In the final position each field around the black king, and its own, is attacked by White or blocked.
// A white man that moves there covers only so many of them, so three moves can close only so many holes.
// The estimate is generous: it takes each man's best place and forgets that men who move uncover fields.

#include <algorithm>
#include <array>

#include "chess/board_tables.h"
#include "chess/lines.h"
#include "engine/heuristics/free_fields.h"
#include "engine/heuristics/material_checks.h"

namespace tarnwick {
namespace {

constexpr int PliesOfThreeMoves = 5;
constexpr std::size_t Moves = 3;

// Most fields of a king's neighbourhood that one man newly covers.
constexpr int QueenCover = 7, RookCover = 4, BishopCover = 3, KnightCover = 2, PawnCover = 2,
              KingCover = 3;
/// A knight further away does not come near in two moves and mate in the third.
constexpr int KnightRange = 6;
constexpr int PawnRange = 3;

/// The best covers that single moves can add, best first.
class CCovers {
  public:
    void Add(int cover) {
        for (int& best : m_best) {
            if (cover > best) {
                std::swap(cover, best);
            }
        }
    }
    int Sum(std::size_t moves) const {
        int sum = 0;
        for (std::size_t i = 0; i < moves; ++i) {
            sum += m_best[i];
        }
        return sum;
    }

  private:
    std::array<int, Moves> m_best{};
};

int CoverOfPawn(int pawn, int king) {
    if (RankOf(pawn) == 6) {
        return QueenCover;
    }
    return KingDistance(pawn, king) <= PawnRange ? PawnCover : 0;
}

CCovers CoversOf(const TChessboard& board) {
    const int king = BlackKingField(board);
    CCovers covers;
    for (int i = 0; i < board.m_whiteQueens; ++i) {
        covers.Add(QueenCover);
    }
    for (int i = 0; i < board.m_whiteRooks; ++i) {
        covers.Add(RookCover);
    }
    for (int i = 0; i < board.m_whiteBishops; ++i) {
        covers.Add(BishopCover);
    }
    for (TFieldSet men = board.m_whiteMen & (board.m_knights | board.m_pawns); men != 0;) {
        const int man = PopLowest(men);
        if (board.m_fields[man] != WhiteKnight) {
            covers.Add(CoverOfPawn(man, king));
        } else if (KingDistance(man, king) <= KnightRange) {
            covers.Add(KnightCover);
        }
    }
    return covers;
}

}  // namespace

bool IsMateInThreeUnlikely(const TChessboard& afterBlack) noexcept {
    if (afterBlack.m_shPlies != PliesOfThreeMoves) {
        return false;
    }
    const int holes = CountFreeFields(afterBlack) + 1;
    const CCovers covers = CoversOf(afterBlack);
    int most = covers.Sum(Moves);
    // Kings two apart face each other; each step that is missing costs one of the moves.
    const int steps =
        std::max(KingDistance(WhiteKingField(afterBlack), BlackKingField(afterBlack)) - 2, 1);
    if (steps < static_cast<int>(Moves)) {
        most = std::max(most, KingCover + covers.Sum(Moves - static_cast<std::size_t>(steps)));
    }
    return holes > most;
}

}  // namespace tarnwick
