// Rules for kinds of positions that have a heuristic of their own, and for what nearly every long problem
// gets.

#include <algorithm>

#include "engine/heuristics/analysis_rules.h"
#include "engine/heuristics/free_fields.h"
#include "engine/heuristics/heuristic_bits.h"
#include "engine/heuristics/line_moves.h"
#include "engine/heuristics/position_tests.h"
#include "engine/heuristics/scratch_moves.h"
#include "engine/heuristics/sea_snake.h"

namespace tarnwick {
namespace {

/// Shorter problems are solved before a pass with a plan of their kind has paid.
constexpr int LeastPliesOfPlan = 13;
constexpr int LeastPliesOfForcedMate = 23;
constexpr int LeastPliesOfThreeMoves = 11;
/// Points of shut-in men that are worth keeping shut in.
constexpr int LeastBlockedPoints = 5;
/// Men further from their king are no part of its prison.
constexpr int PrisonDistance = 2;

/// Points of the followed figures; the ones far from the king become the first to be let go.
int JudgeFollowedMen(TAnalysis& a) {
    TSpecialHeuristics& p = a.parameters;
    int points = 0;
    p.RemovableCount = 0;
    for (int i = 0; i < std::min<int>(p.UnblockFieldCount, MaxTrackedMen); ++i) {
        const TField field = p.UnblockFields[static_cast<std::size_t>(i)];
        if (field >= FieldCount) {
            continue;
        }
        if (KingDistance(field, BlackKingField(a.board)) > PrisonDistance) {
            p.RemovableFields[p.RemovableCount++] = field;
        } else {
            points += FigureValues[TypeOf(a.board.m_fields[field])];
        }
    }
    return points;
}

/// White men besides the queen that could move if they were let.
bool HasOtherMovableMen(const TChessboard& board) {
    const TFieldSet queens = board.m_diagonalSliders & board.m_straightSliders;
    return MovableWhiteMen(board, board.m_whiteMen & ~queens) != 0;
}

}  // namespace

void RecogniseSeaSnake(TAnalysis& a) {
    if (a.board.m_shRootPlies >= LeastPliesOfPlan && DetectSeaSnake(a.board, a.parameters)) {
        a.Add(SH_SEASNAKE);
    }
}

void RecogniseZugzwang(TAnalysis& a) {
    // The shortest way to lose a move: three of White's against two there and back of Black's.
    if (a.board.m_shRootPlies >= LeastPliesOfPlan && !a.Has(SH_SEASNAKE) &&
        IsZugzwangPosition(a.board)) {
        a.Add(SH_ZUGZWANG);
        a.parameters.ZugzwangReturnMoves = 3;
    }
}

void RecogniseSingleQueen(TAnalysis& a) {
    if (a.board.m_shRootPlies >= LeastPliesOfPlan && IsSingleQueenPosition(a.board)) {
        a.Add(SH_SINGLEQUEENMATE);
        a.parameters.SingleQueenTable = HasOtherMovableMen(a.board) ? 1 : 0;
    }
}

void RecogniseSweepingRook(TAnalysis& a) {
    if (a.board.m_shRootPlies >= LeastPliesOfPlan && IsSweepingRookPosition(a.board)) {
        a.Add(SH_SWEEPINGWHITEROOK);
    }
}

void RecogniseKeyFigure(TAnalysis& a) {
    const TKeyPin pin = FindKeyPin(a.board);
    if (a.board.m_shRootPlies >= LeastPliesOfPlan && pin.keyField != NoField) {
        a.Add(SH_KEYWHITEFIGURE);
        a.parameters.KeyWhiteFigureField = pin.keyField;
    }
}

void RecogniseBlockedMen(TAnalysis& a) {
    TSpecialHeuristics& p = a.parameters;
    if (a.Has(SH_DONTLETFIGUREUNBLOCK)) {
        return;
    }
    const int points = JudgeFollowedMen(a);
    const bool bHeld = a.Has(EdgeHeuristics | SH_ASSERTBLACKKINGSURROUNDED);
    if (p.UnblockFieldCount > 0 &&
        (p.bUnblockFixedByUser || (bHeld && points >= LeastBlockedPoints))) {
        a.Add(SH_DONTLETFIGUREUNBLOCK);
    } else if (a.options.bUnblockDynamic) {
        // Men to be shut in later: there must be heavy ones.
        p.bUnblockDynamic = a.board.m_blackQueens + a.board.m_blackRooks > 0;
        p.bCannotApplyDynamically = !p.bUnblockDynamic;
    }
}

void ForceSafeModeInDuels(TAnalysis& a) {
    if (IsMinorDuel(a.board)) {
        a.flags |= Bit(TPositionFlag::SafeModeForced);
    }
}

void StartWithForcedMate(TAnalysis& a) {
    const TChessboard& board = a.board;
    const bool bCanForce = board.m_whiteQueens + board.m_whiteRooks > 0 || a.whiteFigures >= 2;
    if (!a.options.bForcedMate || board.m_shRootPlies < LeastPliesOfForcedMate || !bCanForce ||
        a.Has(SH_SEASNAKE | SH_SWEEPINGWHITEROOK)) {
        return;
    }
    a.Add(SH_FINDFORCEDMATE);
    // Without heavy figures hardly any move threatens mate at once.
    TSpecialHeuristics& p = a.parameters;
    p.ForcedStartLevel = board.m_whiteQueens + board.m_whiteRooks > 0 ? TForcedLevel::Threat1
                                                                      : TForcedLevel::Threat2;
    p.ForcedLevel = p.ForcedStartLevel;
    p.bForcedCaptures = BlackFigureCount(board) > 0;
}

void CheckThreeMoves(TAnalysis& a) {
    // Alone it would make a pass of its own for little.
    if (a.set != 0 && a.board.m_shRootPlies >= LeastPliesOfThreeMoves) {
        a.Add(SH_3MOVESTOMATE);
    }
}

}  // namespace tarnwick
