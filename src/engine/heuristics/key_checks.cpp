#include "engine/heuristics/key_checks.h"

#include "engine/heuristics/line_moves.h"
#include "engine/heuristics/white_captures.h"
#include "engine/search/thread_context.h"

namespace tarnwick {
namespace {

constexpr TFieldSet AllFields = ~TFieldSet{0};

constexpr int Sign(int value) {
    return (value > 0) - (value < 0);
}

/// The fields for which sideOf(field) has the sign that it has for the black king at the root.
template <class TSideOf>
TFieldSet SideOfRootKing(const TChessboard& board, TSideOf sideOf) {
    const TChessboard* pRoot = Thread(board).m_pRootBoard;
    if (pRoot == nullptr) {
        return AllFields;
    }
    const int wanted = Sign(sideOf(BlackKingField(*pRoot)));
    TFieldSet area = 0;
    for (int field = 0; field < FieldCount; ++field) {
        area |= Sign(sideOf(field)) == wanted ? FieldBit(field) : 0;
    }
    return area;
}

}  // namespace

TFieldSet AreaOfKeyLine(const TChessboard& board) noexcept {
    const int line = Thread(board).m_heuristics.KeyLine;
    if (line > 7) {
        return AllFields;
    }
    return SideOfRootKing(board, [&](int field) { return FileOf(field) - line; });
}

TFieldSet AreaOfKeyDiagonal(const TChessboard& board) noexcept {
    const int a = Thread(board).m_heuristics.KeyDiagonalField1;
    const int b = Thread(board).m_heuristics.KeyDiagonalField2;
    if (a >= FieldCount || b >= FieldCount || a == b) {
        return AllFields;
    }
    const int files = FileOf(b) - FileOf(a);
    const int ranks = RankOf(b) - RankOf(a);
    if (files != ranks && files != -ranks) {
        return AllFields;
    }
    const int slope = Sign(files) * Sign(ranks);
    return SideOfRootKing(board, [&](int field) {
        return RankOf(field) - RankOf(a) - slope * (FileOf(field) - FileOf(a));
    });
}

bool LeavesKeyField(const TChessboard& afterWhite) noexcept {
    const TMove move = afterWhite.m_lastMove;
    return !move.IsPass() && move.from == Thread(afterWhite).m_heuristics.KeyField;
}

bool HasBlackTakenKeyField(const TChessboard& afterBlack) noexcept {
    const TMove move = afterBlack.m_lastMove;
    return !move.IsPass() && move.to == Thread(afterBlack).m_heuristics.KeyField &&
           !CanWhiteCapture(afterBlack, move.to);
}

}  // namespace tarnwick
