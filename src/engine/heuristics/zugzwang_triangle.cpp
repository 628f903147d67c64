#include "engine/heuristics/zugzwang_triangle.h"

#include "chess/attacks.h"
#include "engine/heuristics/heuristic_bits.h"
#include "engine/heuristics/heuristic_key.h"
#include "engine/search/thread_context.h"

namespace tarnwick {
namespace {

bool IsField(int field) {
    return field >= 0 && field < FieldCount;
}

/// The white king could stand there, now or after its next steps.
bool IsOpenToKing(const TChessboard& board, int field) {
    const int king = WhiteKingField(board);
    return field == king ||
           (!IsWhite(board.m_fields[field]) &&
            !IsFieldAttackedByBlackWithout(board, FileOf(field), RankOf(field), king));
}

/// Some third field, open to the king, touches both.
bool HasThirdField(const TChessboard& board, int first, int second) {
    for (TFieldSet thirds = KingFields[static_cast<std::size_t>(first)] &
                            KingFields[static_cast<std::size_t>(second)];
         thirds != 0;) {
        if (IsOpenToKing(board, PopLowest(thirds))) {
            return true;
        }
    }
    return false;
}

}  // namespace

bool CanKingWalkTriangle(const TChessboard& board) noexcept {
    const TSpecialHeuristics& parameters = Thread(board).m_heuristics;
    const int first = parameters.TriangleField1;
    const int second = parameters.TriangleField2;
    if (!IsField(first) || !IsField(second) || KingDistance(first, second) != 1 ||
        !IsOpenToKing(board, first) || !IsOpenToKing(board, second)) {
        return false;
    }
    const int king = WhiteKingField(board);
    if (king == first || king == second) {
        return HasThirdField(board, first, second);
    }
    return KingDistance(king, first) == 1 && KingDistance(king, second) == 1;
}

void UpdateZugzwangTriangles(TChessboard& afterBlack) noexcept {
    if (!CanKingWalkTriangle(afterBlack)) {
        SetHeuristics(afterBlack, afterBlack.m_heuristicFlags.Raw() & ~SH_ZUGZWANGTRIANGLES);
    }
}

}  // namespace tarnwick
