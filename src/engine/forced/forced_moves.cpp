// The tests are ordered by cost: what can be read off the board first, then a mate in one, then the replies
// that Black has left, and the deeper threats last.

#include "engine/forced/forced_moves.h"

#include <algorithm>

#include "chess/board_tables.h"
#include "chess/evasions.h"
#include "chess/generate_moves.h"
#include "chess/make_move.h"
#include "chess/mate_in_one.h"
#include "engine/forced/find_forced_mate.h"
#include "engine/forced/forced_scopes.h"
#include "engine/heuristics/free_fields.h"
#include "engine/ordering/white_order.h"

namespace tarnwick {
namespace {

/// From here on the finer order of moves pays.
constexpr int LeastPliesForFullSort = 13;
constexpr int NoFreeFieldRule = -1;

/// What a level takes for forcing besides checks.
struct TLevelRule {
    int threat;          ///< Longest threat of mate, in moves; 0: none.
    int mostReplies;     ///< A waiting move that leaves Black so few replies: zugzwang is near.
    int mostFreeFields;  ///< A move that takes a field from the king and leaves it so few.
};

/// By TForcedLevel.
constexpr TLevelRule LevelRules[] = {{0, 1, NoFreeFieldRule},
                                     {1, 1, NoFreeFieldRule},
                                     {1, 2, 0},
                                     {2, 2, 0},
                                     {2, 4, 1},
                                     {3, 4, 1},
                                     {4, 4, 1},
                                     {5, 4, 1}};
static_assert(std::size(LevelRules) == static_cast<std::size_t>(TForcedLevel::Threat5) + 1);

/// Takes the man that has just taken one of White's.
bool IsRecapture(const TChessboard& board, TMove move) {
    const TMove last = board.m_lastMove;
    return board.m_pPrevious != nullptr && !last.IsPass() && move.to == last.to &&
           board.m_pPrevious->m_fields[last.to] != EmptyField;
}

bool CapturesBesideKing(const TChessboard& board, TMove move) {
    return board.m_fields[move.to] != EmptyField &&
           KingDistance(move.to, BlackKingField(board)) == 1;
}

/// Stalemate is no zugzwang, nor does White wait for a reply that leaves him without the force to mate.
bool LeavesFewReplies(TChessboard& afterWhite, int most) {
    TMove replies[MaxMovesOfSide];
    const int count = GenerateAllBlackMoves(afterWhite, replies);
    int legal = 0;
    for (int i = 0; i < count; ++i) {
        const int made = MakeBlackMove(*CopyToNextSlot(afterWhite), replies[i], false);
        if (made == MoveRefused) {
            continue;
        }
        if (made == MoveMadeHopeless || ++legal > most) {
            return false;
        }
    }
    return legal > 0;
}

bool ClosesNet(const TChessboard& board, const TChessboard& child, int mostFreeFields) {
    if (mostFreeFields == NoFreeFieldRule) {
        return false;
    }
    const int free = CountFreeFields(child);
    return free <= mostFreeFields && free < CountFreeFields(board);
}

/// The child after the move, Black to move.
bool IsForcing(const TChessboard& board, TChessboard& child) {
    const TMove move = child.m_lastMove;
    if (board.m_whiteChecker != NoChecker || child.m_blackChecker != NoChecker ||
        move.PromotionType() != 0 || IsRecapture(board, move)) {
        return true;
    }
    const TSpecialHeuristics& parameters = Thread(board).m_heuristics;
    if (parameters.bForcedCaptures && parameters.ForcedLevel >= TForcedLevel::Threat2 &&
        CapturesBesideKing(board, move)) {
        return true;
    }
    const TLevelRule& rule = LevelRules[static_cast<std::size_t>(parameters.ForcedLevel)];
    return ClosesNet(board, child, rule.mostFreeFields) ||
           (rule.threat > 0 && ThreatensMate(child, 1)) ||
           LeavesFewReplies(child, rule.mostReplies) ||
           (rule.threat > 1 && ThreatensMate(child, rule.threat));
}

/// Longer threats than two moves, the shortest first. The search below this one lists its moves at a level
/// that asks for mates in one only, so that it does not come here again.
bool ThreatensForcedMate(TChessboard& passed, int longest) {
    const CForcedLevelScope level(passed, TForcedLevel::Threat1);
    CPliesScope plies(passed);
    for (int k = 5; k <= longest; k += 2) {
        plies.Set(k);
        if (FindForcedMateWhite(passed, NoForcedDepth) == ResultMate) {
            return true;
        }
    }
    return false;
}

}  // namespace

bool ThreatensMate(TChessboard& afterWhite, int moves) noexcept {
    TChessboard* passed = CopyToNextSlot(afterWhite);
    if (!PassBlack(*passed)) {
        return false;
    }
    SetHeuristics(*passed, SH_FINDFORCEDMATE);
    const CNestedWork nested(*passed);
    const int longest = std::min<int>(2 * moves - 1, passed->m_shPlies);
    return IsMateInOne(*passed) || (longest >= 3 && IsExactMateInTwo(*passed)) ||
           (longest >= 5 && ThreatensForcedMate(*passed, longest));
}

bool IsForcedMove(TChessboard& board, TMove move) noexcept {
    TChessboard* child = CopyToNextSlot(board);
    return MakeWhiteMove(*child, move) != MoveRefused && IsForcing(board, *child);
}

int ListForcedMoves(TChessboard& board, TMove* pList) noexcept {
    const int all = board.m_whiteChecker != NoChecker ? GenerateWhiteEvasions(board, pList)
                                                      : GenerateAllWhiteMoves(board, pList);
    TMove* const end =
        std::remove_if(pList, pList + all, [&](TMove move) { return !IsForcedMove(board, move); });
    bool bMate = false;
    return SortWhiteMoves(board, static_cast<int>(end - pList), pList,
                          board.m_shPlies < LeastPliesForFullSort, &bMate);
}

}  // namespace tarnwick
