// The sweeping rook: behind Black's pawns, on the lowest rank, a rook makes every pawn that advances
// fall, until Black is in zugzwang. The screen rejects rook moves that leave this plan: the rook goes up
// beside or above a pawn, or to where it can be taken, without a check or a pin to show for it.

#include "chess/attackers.h"
#include "chess/attacks.h"
#include "chess/make_move.h"
#include "chess/mate_in_one.h"
#include "chess/pins.h"
#include "engine/heuristics/exchanges.h"
#include "engine/heuristics/free_fields.h"
#include "engine/heuristics/heuristic_bits.h"
#include "engine/heuristics/heuristic_key.h"
#include "engine/heuristics/line_moves.h"
#include "engine/heuristics/white_screens.h"
#include "engine/search/thread_context.h"

namespace tarnwick {
namespace {

bool IsEdgeLine(int fileOrRank) {
    return fileOrRank == 0 || fileOrRank == 7;
}

/// The field lies on an edge file or rank on which the black king stands.
bool SharesEdgeLineWithKing(const TChessboard& board, int field) {
    return (FileOf(field) == board.m_blackKingFile && IsEdgeLine(FileOf(field))) ||
           (RankOf(field) == board.m_blackKingRank && IsEdgeLine(RankOf(field)));
}

/// The first man met from the field along its rank towards the black king's file; NoChecker if none.
int FirstManTowardsKing(const TChessboard& board, int field) {
    const int step = board.m_blackKingFile - FileOf(field);
    if (step == 0) {
        return NoChecker;
    }
    for (int file = FileOf(field) + (step > 0 ? 1 : -1); file >= 0 && file <= 7;
         file += step > 0 ? 1 : -1) {
        const int next = FieldAt(file, RankOf(field));
        if (board.m_fields[next] != EmptyField) {
            return next;
        }
    }
    return NoChecker;
}

/// The rook attacks along its rank a man that another white man pins from elsewhere.
bool RookBearsOnPinnedMan(const TChessboard& board, int rook) {
    const int man = FirstManTowardsKing(board, rook);
    if (man < 0 || !IsBlack(board.m_fields[man]) || board.m_fields[man] == BlackKing) {
        return false;
    }
    const int file = FileOf(man);
    const int files = file - board.m_blackKingFile;
    const int ranks = RankOf(rook) - board.m_blackKingRank;
    if (ranks == 0 || (files != 0 && files != ranks && files != -ranks)) {
        return false;
    }
    if ((IsEdgeLine(RankOf(rook)) || IsEdgeLine(file)) &&
        (BlackKingEdgeDistance(board) != 0 || files != 0 || !IsEdgeLine(file))) {
        return false;
    }
    return IsBlackFigurePinned(board, file, RankOf(man));
}

/// White would mate if Black made no move.
bool ThreatensMateInOne(TChessboard& board) {
    TChessboard passed = board;
    passed.m_pPrevious = &board;
    return board.m_shPlies > 0 && PassBlack(passed) && IsMateInOne(passed);
}

bool CanBlackTakeOn(const TChessboard& board, int field) {
    return FindBlackFreeAttacker(board, FileOf(field), RankOf(field), nullptr);
}

bool IsKingBeside(const TChessboard& board, int field) {
    return KingDistance(BlackKingField(board), field) <= 1;
}

bool IsCovered(const TChessboard& board, int field) {
    return IsFieldAttackedByWhite(board, FileOf(field), RankOf(field));
}

/// Rank of the lowest black pawn, 8 when there is none.
int LowestPawnRank(const TChessboard& board) {
    const TFieldSet pawns = board.m_pawns & board.m_blackMen;
    return pawns == 0 ? 8 : RankOf(LowestField(pawns));
}

/// A rook move off the first rank that needs a reason and has none of the good ones.
bool IsRookMoveInQuestion(const TChessboard& child) {
    const TMove move = child.m_lastMove;
    if (child.m_fields[move.to] != WhiteRook || RankOf(move.to) == 0) {
        return false;
    }
    const bool bFromKingsEdge = SharesEdgeLineWithKing(child, move.from);
    if (Thread(child).m_quickerMateNesting > 0 && !bFromKingsEdge) {
        return false;
    }
    if (RankOf(move.from) > 0 && !bFromKingsEdge && SharesEdgeLineWithKing(child, move.to)) {
        return false;
    }
    return child.m_blackChecker == NoChecker && !RookBearsOnPinnedMan(child, move.to);
}

/// A quiet rook move beside the king, in a short search, that threatens mate from a safe field.
bool IsMatingApproach(TChessboard& child) {
    return RankOf(child.m_lastMove.to) == child.m_blackKingRank &&
           Thread(child).m_quickerMateNesting > 0 && !IsLastMovedManEnPrise(child) &&
           ThreatensMateInOne(child);
}

bool IsRookMoveRejected(TChessboard& child) {
    const int to = child.m_lastMove.to;
    const TFigureCode captured = LastCaptured(child);
    const int pawnRank = LowestPawnRank(child);
    if (captured == EmptyField && pawnRank <= RankOf(to) && !IsMatingApproach(child)) {
        return true;
    }
    if (CanBlackTakeOn(child, to) || (IsKingBeside(child, to) && !IsCovered(child, to))) {
        return true;
    }
    // The pawn that was left to run is nearly through: only a mate threat makes up for the time.
    return captured == BlackPawn && pawnRank <= 1 && !ThreatensMateInOne(child);
}

/// Taking back on the first rank what Black has just put there is part of the sweep.
bool IsSweepingCapture(const TChessboard& child) {
    if (RankOf(child.m_lastMove.to) != 0) {
        return false;
    }
    const TChessboard& before = *child.m_pPrevious;
    return before.m_pPrevious == nullptr ||
           (before.m_lastMove.to == child.m_lastMove.to &&
            (before.m_lastMove.PromotionType() == 0 || Thread(child).m_bMateCapturedPromotion));
}

/// White has won a figure safely while the king is free: another game begins.
bool EndsSweeping(const TChessboard& child) {
    const int to = child.m_lastMove.to;
    return IsFigure(LastCaptured(child)) && !IsSweepingCapture(child) && FreeFields(child) != 0 &&
           (!IsKingBeside(child, to) || IsCovered(child, to)) && !CanBlackTakeOn(child, to);
}

}  // namespace

bool IsScreenedBySweepingRook(TChessboard& child) noexcept {
    if (BlackFigureCount(child) == 0 && WhiteFigureCount(child) > 0) {
        return false;
    }
    if (IsRookMoveInQuestion(child) && IsRookMoveRejected(child)) {
        return true;
    }
    if (EndsSweeping(child)) {
        SetHeuristics(child, child.m_heuristicFlags.Raw() & ~SH_SWEEPINGWHITEROOK);
    }
    return false;
}

}  // namespace tarnwick
