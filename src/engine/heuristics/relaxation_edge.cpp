// Steps that loosen the hold on the black king: from "it must not move" over the edge and the two outer
// lines to "it has few fields", and to nothing.

#include <bit>

#include "engine/heuristics/board_questions.h"
#include "engine/heuristics/free_fields.h"
#include "engine/heuristics/position_tests.h"
#include "engine/heuristics/relaxation_ladder.h"
#include "engine/heuristics/scratch_moves.h"
#include "engine/search/thread_context.h"

namespace tarnwick {
namespace {

/// With more men on the board the few fields of the king say little.
constexpr int MostMenForSurrounded = 14;
/// So many tracked men are worth a pass of their own without them.
constexpr int ManyTracked = 3;

/// The mark of a job with heuristics, which the analysis leaves behind: while it is still choosing its
/// first set, the board does not have it.
bool IsMarkedForHeuristics(const TChessboard& board) {
    return board.m_searchFlags.Has(TSearchFlag::LongLightSort);
}

/// Neighbour fields of the black king: 3, 5 or 8.
int NeighbourCount(const TChessboard& board) {
    return std::popcount(KingFields[static_cast<std::size_t>(BlackKingField(board))]);
}

/// White's lone queen with its king facing the black one on the edge: unless the king is let out for a
/// move, Black is stalemated.
bool WouldQueenStalemate(const TChessboard& board) {
    return board.m_whiteQueens == 1 && WhiteFigureCount(board) == 1 &&
           BlackFigureCount(board) >= 2 && DistanceOfKings(board) == 2 &&
           BlackKingEdgeDistance(board) == 0 && HasKingField(board) && IsBlackNearStalemate(board);
}

/// A king that is to stand still may after all step out for one move.
bool AreExceptionsWorthIt(const TChessboard& board) {
    const int openNeighbours = NeighbourCount(board) - CountBlackMenNearKing(board);
    const bool bFewFigures = WhiteFigureCount(board) + BlackFigureCount(board) < 4;
    return WouldQueenStalemate(board) || openNeighbours == 1 ||
           (bFewFigures && openNeighbours == 2) ||
           (CountMatingLines(board) >= 2 && CountMatingMoves(board) >= 2) ||
           IsMatingFieldHeldByRook(board);
}

/// A pawn about to queen will hold the king; or each of Black's moves runs into a net.
bool DoPawnsHold(const TChessboard& board) {
    if (HasAdvancedWhitePawn(board)) {
        return true;
    }
    for (TFieldSet men = board.m_blackMen; men != 0;) {
        const bool bGetsAway =
            AnyBlackMove(board, PopLowest(men),
                         [](const TChessboard& after, TMove) { return !IsMatingNet(after); });
        if (bGetsAway) {
            return false;
        }
    }
    return true;
}

/// Once off the edge, may the king be kept within the two outer lines?
bool IsExtendedEdgeWorthIt(const TChessboard& board) {
    const int distance = BlackKingEdgeDistance(board);
    if (distance > 1 || (distance == 0 && WhiteFigureCount(board) == 0 && !DoPawnsHold(board))) {
        return false;
    }
    if (!IsMarkedForHeuristics(board)) {
        return CanHoldWithinExtendedEdge(board);
    }
    return MajorCount(board) > 0 || DoPawnsHold(board);
}

bool AreAllMajorsOnBoard(const TChessboard& board) {
    return board.m_whiteQueens > 0 && board.m_whiteRooks > 0 && board.m_blackQueens > 0 &&
           board.m_blackRooks > 0;
}

/// Bishops and knights alone do not surround a king that they are far from, two knights never.
bool AreMinorsTooWeak(const TChessboard& board) {
    const int minors = board.m_whiteBishops + board.m_whiteKnights;
    return MajorCount(board) == 0 && minors <= 2 &&
           (DistanceOfKings(board) > 2 || (board.m_whiteKnights == 2 && board.m_whitePawns == 0));
}

/// A queen and rooks around a held king do without the edge.
bool IsEdgeReplaced(const TLadder& ladder) {
    const TChessboard& board = ladder.board;
    if (ladder.parameters.RelaxationSteps <= 1) {
        return false;
    }
    if (!IsMarkedForHeuristics(board) && MajorCount(board) == 2 && board.m_whiteBishops > 0 &&
        !HasKingField(board)) {
        return true;
    }
    return IsMatingNet(board) || Thread(board).m_task.m_bEdgeHardToHold;
}

}  // namespace

void SetExtendedEdge(const TChessboard& board, TSpecialHeuristics& parameters, std::uint32_t& set) {
    set |= SH_KEEPKINGWITHINEXTEDGE;
    // Pawns beside the king that can move will open fields of the second line to it.
    const TFieldSet pawns = board.m_pawns & board.m_blackMen &
                            KingFields[static_cast<std::size_t>(BlackKingField(board))];
    parameters.bExtEdgeStrict = MovableBlackMen(board, pawns) == 0;
    // The king may run from a new queen: that is no reason to doubt the mate.
    parameters.bRelaxOnAdvancedPawn = parameters.bRelaxOnAdvancedPawn ||
                                      (parameters.bRelaxAutomatic && HasAdvancedWhitePawn(board));
}

void AddSurrounded(const TChessboard& board, std::uint32_t& set) {
    const bool bFewMen = std::popcount(OccupiedFields(board)) <= MostMenForSurrounded;
    if ((set & SH_KEEPKINGWITHINEXTEDGE) == 0 && WhiteFigureCount(board) >= 2 && bFewMen &&
        CountFreeFields(board) < 3 && !AreMinorsTooWeak(board)) {
        set |= SH_ASSERTBLACKKINGSURROUNDED;
    }
}

void AddHoldOfFewMen(const TChessboard& board, TSpecialHeuristics& parameters, std::uint32_t& set) {
    if (IsMarkedForHeuristics(board) && MajorCount(board) < 2 &&
        (set & SH_ASSERTBLACKKINGSURROUNDED) == 0) {
        SetExtendedEdge(board, parameters, set);
    }
    if ((set & SH_KEEPKINGWITHINEXTEDGE) == 0 && CountFreeFields(board) <= 1) {
        set |= SH_ASSERTBLACKKINGSURROUNDED;
    }
}

TRung RelaxStillKing(TLadder& ladder) {
    TSpecialHeuristics& p = ladder.parameters;
    if (!ladder.Has(SH_KEEPKINGONTHEEDGE) || !p.bKingStrict) {
        return TRung::GoOn;
    }
    if (ladder.Has(SH_DONTLETFIGUREUNBLOCK) && !ladder.bUnblockRestored &&
        WhiteFigureCount(ladder.board) == 1 && p.UnblockFieldCount >= ManyTracked) {
        p.bUnblockSuspended = true;
        return Drop(ladder, SH_DONTLETFIGUREUNBLOCK);
    }
    if (!p.bKingAlmostStrict && AreExceptionsWorthIt(ladder.board)) {
        p.bKingAlmostStrict = true;
        return TRung::Changed;
    }
    if (BlackKingEdgeDistance(ladder.board) > 0) {
        return TRung::GoOn;
    }
    p.bKingStrict = false;
    return IsEdgeReplaced(ladder)
               ? Replace(ladder, SH_KEEPKINGONTHEEDGE, SH_ASSERTBLACKKINGSURROUNDED)
               : TRung::Changed;
}

TRung RelaxSurrounded(TLadder& ladder) {
    if (!ladder.Has(SH_ASSERTBLACKKINGSURROUNDED)) {
        return TRung::GoOn;
    }
    if (ladder.parameters.bSurroundedStrict) {
        ladder.parameters.bSurroundedStrict = false;
        return TRung::Changed;
    }
    return Drop(ladder, SH_ASSERTBLACKKINGSURROUNDED);
}

TRung LeaveEdge(TLadder& ladder) {
    if (!ladder.Has(SH_KEEPKINGONTHEEDGE)) {
        return TRung::GoOn;
    }
    const TChessboard& board = ladder.board;
    Drop(ladder, SH_KEEPKINGONTHEEDGE);
    if (IsExtendedEdgeWorthIt(board) && !AreAllMajorsOnBoard(board)) {
        SetExtendedEdge(board, ladder.parameters, ladder.set);
    }
    AddSurrounded(board, ladder.set);
    AddHoldOfFewMen(board, ladder.parameters, ladder.set);
    return TRung::Changed;
}

TRung RelaxExtendedEdge(TLadder& ladder) {
    const TChessboard& board = ladder.board;
    if (IsUnblockInUse(ladder)) {
        const bool bMenFirst = !ladder.Has(SH_KEEPKINGWITHINEXTEDGE) || IsKingCoveredByMen(board) ||
                               DoFiguresHoldKingArea(board) || AreCoveringMenBlocked(board);
        if (bMenFirst) {
            return ReduceFollowedMen(ladder);
        }
    }
    if (!ladder.Has(SH_KEEPKINGWITHINEXTEDGE)) {
        return TRung::GoOn;
    }
    if (ladder.parameters.bExtEdgeStrict) {
        ladder.parameters.bExtEdgeStrict = false;
        return TRung::Changed;
    }
    Drop(ladder, SH_KEEPKINGWITHINEXTEDGE);
    if (CountFreeFields(board) <= 1 || IsMatingNet(board)) {
        ladder.set |= SH_ASSERTBLACKKINGSURROUNDED;
    }
    return TRung::Changed;
}

}  // namespace tarnwick
