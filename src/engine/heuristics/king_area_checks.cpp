#include "engine/heuristics/king_area_checks.h"

#include <algorithm>
#include <array>

#include "chess/attacks.h"
#include "chess/evasions.h"
#include "chess/generate_moves.h"
#include "chess/make_move.h"
#include "chess/mate_in_one.h"
#include "engine/heuristics/board_questions.h"
#include "engine/heuristics/edge_relaxation.h"
#include "engine/heuristics/key_checks.h"
#include "engine/heuristics/line_moves.h"
#include "engine/heuristics/white_captures.h"
#include "engine/search/find_mate.h"
#include "engine/search/thread_context.h"

namespace tarnwick {
namespace {

constexpr TFieldSet ExtendedEdge = 0xFFFFC3C3C3C3FFFFULL;
constexpr TFieldSet InnerCorners = 0x0042000000004200ULL;  // b2, g2, b7, g7
constexpr TFieldSet AllFields = ~TFieldSet{0};
/// A mate in two costs some hundred positions: worth it only where much work hangs below.
constexpr int LeastPliesForMateInTwo = 11;

/// Fields within a distance of some corner: by counted squares, and by king's moves.
struct TCornerAreas {
    std::array<TFieldSet, 15> bySquares{};
    std::array<TFieldSet, 8> byMoves{};
};

constexpr TCornerAreas MakeCornerAreas() {
    TCornerAreas areas;
    for (int field = 0; field < FieldCount; ++field) {
        const int file = std::min(FileOf(field), 7 - FileOf(field));
        const int rank = std::min(RankOf(field), 7 - RankOf(field));
        for (int d = file + rank; d < 15; ++d) {
            areas.bySquares[static_cast<std::size_t>(d)] |= FieldBit(field);
        }
        for (int d = std::max(file, rank); d < 8; ++d) {
            areas.byMoves[static_cast<std::size_t>(d)] |= FieldBit(field);
        }
    }
    return areas;
}

constexpr TCornerAreas CornerAreas = MakeCornerAreas();

TFieldSet CornerArea(int distance) {
    return distance >= 0 ? CornerAreas.bySquares[static_cast<std::size_t>(std::min(distance, 14))]
                         : CornerAreas.byMoves[static_cast<std::size_t>(std::min(-distance, 7))];
}

TFieldSet EdgeArea(const TSpecialHeuristics& parameters) {
    return EdgeFields | (parameters.bIncludeInnerCorners ? InnerCorners : 0);
}

bool IsInForce(const TChessboard& board, std::uint32_t bit) {
    return board.m_heuristicFlags.HasAny(bit) && !IsEdgeRelaxed(board, bit);
}

/// The king is not to move at all, or only out and back.
bool IsKingHeld(const TChessboard& board) {
    return Thread(board).m_heuristics.bKingStrict &&
           !board.m_stateBits.Has(TStateBit::StrictnessOff);
}

/// Where the king stood when the edge heuristic came into force: at the root, or where the search took it
/// up. The walk back is needed only while the king is not where it was at the root.
int HomeOfBlackKing(const TChessboard& board) {
    const TThreadContext& thread = Thread(board);
    if (thread.m_heuristics.StillKingField != NoHeuristicField) {
        return thread.m_heuristics.StillKingField;
    }
    const TChessboard* pRoot = thread.m_pRootBoard;
    if (pRoot != nullptr && pRoot->m_heuristicFlags.HasAny(SH_KEEPKINGONTHEEDGE) &&
        BlackKingField(*pRoot) == BlackKingField(board)) {
        return BlackKingField(board);
    }
    const TChessboard* first = &board;
    while (first->m_pPrevious != nullptr &&
           first->m_pPrevious->m_heuristicFlags.HasAny(SH_KEEPKINGONTHEEDGE)) {
        first = first->m_pPrevious;
    }
    return BlackKingField(*first);
}

bool HasKingJustMoved(const TChessboard& afterBlack) {
    return !afterBlack.m_lastMove.IsPass() && LastMover(afterBlack) == BlackKing;
}

/// A step out that the king may take back in its next move. A pawn that will be stopped may move in
/// between: its moves come to an end.
bool IsStepOut(const TChessboard& afterBlack, int home) {
    if (HasKingJustMoved(afterBlack)) {
        return BlackKingField(*afterBlack.m_pPrevious) == home;
    }
    return afterBlack.m_lastMove.PromotionType() == 0 &&
           IsPawnStoppedAhead(afterBlack, afterBlack.m_lastMove.to);
}

bool IsOffEdge(const TChessboard& afterBlack) {
    const TSpecialHeuristics& parameters = Thread(afterBlack).m_heuristics;
    const int king = BlackKingField(afterBlack);
    if (!IsKingHeld(afterBlack)) {
        return (EdgeArea(parameters) & FieldBit(king)) == 0;
    }
    const int home = HomeOfBlackKing(afterBlack);
    return king != home && !(parameters.bKingAlmostStrict && IsStepOut(afterBlack, home));
}

bool IsOffExtendedEdge(const TChessboard& afterBlack) {
    const TSpecialHeuristics& parameters = Thread(afterBlack).m_heuristics;
    const TFieldSet king = FieldBit(BlackKingField(afterBlack));
    return (ExtendedEdge & king) == 0 ||
           (parameters.bExtEdgeStrict && HasKingJustMoved(afterBlack) &&
            (EdgeArea(parameters) & king) == 0);
}

/// Fields that the regions without relaxation leave to the king.
TFieldSet AreaOfCornerAndKeys(const TChessboard& board) {
    const TSpecialHeuristics& parameters = Thread(board).m_heuristics;
    TFieldSet area = AllFields;
    if (board.m_heuristicFlags.HasAny(SH_KEEPKINGNEARCORNER)) {
        area &= CornerArea(parameters.CornerDistance);
    }
    if (board.m_heuristicFlags.HasAny(SH_KEYLINE)) {
        area &= AreaOfKeyLine(board);
    }
    if (board.m_heuristicFlags.HasAny(SH_KEYDIAGONAL)) {
        area &= AreaOfKeyDiagonal(board);
    }
    return area;
}

/// Plies since the black king left the place where the edge heuristics want it.
int PliesOut(const TChessboard& afterBlack, TFieldSet inside) {
    int plies = 0;
    for (const TChessboard* b = &afterBlack;
         b->m_pPrevious != nullptr && (FieldBit(BlackKingField(*b)) & inside) == 0;
         b = b->m_pPrevious) {
        ++plies;
    }
    return plies;
}

/// Broken, but it may turn out well: nobody asks yet.
bool IsViolationDeferred(const TChessboard& afterBlack) {
    const TSpecialHeuristics& parameters = Thread(afterBlack).m_heuristics;
    if (parameters.DeferMoves == 0) {
        return false;
    }
    TFieldSet inside = EdgeArea(parameters);
    if (!afterBlack.m_heuristicFlags.HasAny(SH_KEEPKINGONTHEEDGE)) {
        inside = ExtendedEdge;
    } else if (IsKingHeld(afterBlack)) {
        inside = FieldBit(HomeOfBlackKing(afterBlack));
    }
    return MayEdgeWait(afterBlack, PliesOut(afterBlack, inside));
}

/// Fields from which on the rules above would say that the king is out, if it went there now.
TFieldSet FieldsOut(const TChessboard& afterWhite) {
    const TSpecialHeuristics& parameters = Thread(afterWhite).m_heuristics;
    TFieldSet out = ~AreaOfCornerAndKeys(afterWhite);
    if (IsInForce(afterWhite, SH_KEEPKINGONTHEEDGE)) {
        if (!IsKingHeld(afterWhite)) {
            out |= ~EdgeArea(parameters);
        } else {
            const int home = HomeOfBlackKing(afterWhite);
            const bool bMayStepOut =
                parameters.bKingAlmostStrict && BlackKingField(afterWhite) == home;
            out |= bMayStepOut ? 0 : ~FieldBit(home);
        }
    }
    if (IsInForce(afterWhite, SH_KEEPKINGWITHINEXTEDGE)) {
        out |= parameters.bExtEdgeStrict ? ~EdgeArea(parameters) : ~ExtendedEdge;
    }
    return out;
}

/// Black's reply is legal, takes or leaves the king out, and is not mated at once.
bool GetsOut(TChessboard& afterWhite, TMove reply) {
    TChessboard* child = CopyToNextSlot(afterWhite);
    return MakeBlackMove(*child, reply, false) == MoveMade && IsKingOutOfArea(*child) &&
           !MatesAtOnce(*child);
}

bool StepsOut(TChessboard& afterWhite) {
    const int king = BlackKingField(afterWhite);
    const TFieldSet occupied = OccupiedFields(afterWhite) & ~FieldBit(king);
    TFieldSet steps = KingFields[static_cast<std::size_t>(king)] & ~afterWhite.m_blackMen;
    if (steps == 0) {
        return false;
    }
    for (steps &= FieldsOut(afterWhite); steps != 0;) {
        const int field = PopLowest(steps);
        if (!IsAttackedByWhiteOver(afterWhite, field, occupied, FieldBit(field)) &&
            GetsOut(afterWhite, {static_cast<TField>(king), static_cast<TField>(field), 0, 0})) {
            return true;
        }
    }
    return false;
}

/// The king of an almost strict set is out: any reply but the way back is a way to stay out.
bool StaysOut(TChessboard& afterWhite) {
    const int king = BlackKingField(afterWhite);
    if (!IsInForce(afterWhite, SH_KEEPKINGONTHEEDGE) || !IsKingHeld(afterWhite) ||
        !Thread(afterWhite).m_heuristics.bKingAlmostStrict || king == HomeOfBlackKing(afterWhite)) {
        return false;
    }
    TMove replies[MaxMovesOfSide];
    const int count = afterWhite.m_blackChecker != NoChecker
                          ? GenerateBlackEvasions(afterWhite, replies)
                          : GenerateAllBlackMoves(afterWhite, replies);
    return std::any_of(replies, replies + count, [&](TMove reply) {
        return reply.from != king && GetsOut(afterWhite, reply);
    });
}

}  // namespace

bool IsKingOutOfArea(const TChessboard& afterBlack) noexcept {
    if ((AreaOfCornerAndKeys(afterBlack) & FieldBit(BlackKingField(afterBlack))) == 0) {
        return true;
    }
    const bool bOut =
        (IsInForce(afterBlack, SH_KEEPKINGONTHEEDGE) && IsOffEdge(afterBlack)) ||
        (IsInForce(afterBlack, SH_KEEPKINGWITHINEXTEDGE) && IsOffExtendedEdge(afterBlack));
    return bOut && !IsViolationDeferred(afterBlack);
}

bool LetsKingOutOfArea(TChessboard& afterWhite) noexcept {
    return StepsOut(afterWhite) || StaysOut(afterWhite);
}

bool IsWhiteKingTooFar(const TChessboard& board) noexcept {
    constexpr int NearestKings = 2;
    const int steps = (board.m_shPlies + 1) / 2 - 1;
    return KingDistance(WhiteKingField(board), BlackKingField(board)) - NearestKings >
           std::max(steps, 0);
}

bool IsSecondQueenCheck(const TChessboard& afterBlack) noexcept {
    const auto isQueenCheck = [](const TChessboard& board) {
        if (board.m_whiteChecker == NoChecker) {
            return false;
        }
        return board.m_whiteChecker != DoubleCheck
                   ? board.m_fields[board.m_whiteChecker] == BlackQueen
                   : (BlackAttackersOf(board, WhiteKingField(board)) & board.m_diagonalSliders &
                      board.m_straightSliders) != 0;
    };
    if (!isQueenCheck(afterBlack) || (afterBlack.m_whiteChecker != DoubleCheck &&
                                      CanWhiteCapture(afterBlack, afterBlack.m_whiteChecker))) {
        return false;
    }
    // The root is no part of the line: a check there was not given in it.
    for (const TChessboard* b = &afterBlack; b->m_pPrevious != nullptr;) {
        b = b->m_pPrevious->m_pPrevious;
        if (b == nullptr || b->m_pPrevious == nullptr) {
            break;
        }
        if (isQueenCheck(*b)) {
            return true;
        }
    }
    return false;
}

bool MatesAtOnce(TChessboard& afterBlack) noexcept {
    if (IsMateInOne(afterBlack)) {
        return true;
    }
    return afterBlack.m_shPlies >= LeastPliesForMateInTwo &&
           Thread(afterBlack).m_quickerMateNesting == 0 && IsWhiteMateInTwo(afterBlack);
}

bool IsPawnStoppedAhead(const TChessboard& board, int field) noexcept {
    if (board.m_fields[field] != BlackPawn) {
        return false;
    }
    const TFieldSet ahead = LineMasks[static_cast<std::size_t>(field)].file & (FieldBit(field) - 1);
    return (ahead & board.m_whiteMen) != 0;
}

}  // namespace tarnwick
