#include "engine/heuristics/dynamic_heuristics.h"

#include <algorithm>
#include <bit>

#include "chess/line_history.h"
#include "engine/heuristics/board_questions.h"
#include "engine/heuristics/heuristic_bits.h"
#include "engine/heuristics/heuristic_key.h"
#include "engine/heuristics/line_moves.h"
#include "engine/heuristics/position_tests.h"
#include "engine/heuristics/tracked_men.h"
#include "engine/search/find_mate.h"
#include "engine/search/thread_context.h"

namespace tarnwick {
namespace {

/// Near the root, with enough moves left to gain anything.
constexpr int LeastPliesToFollow = 16;
constexpr int MostPliesPlayedToFollow = 7;
constexpr int LeastPliesToFallBack = 16;
constexpr int MostPliesPlayedToFallBack = 10;

TFieldSet HeavyBlackMen(const TChessboard& board) {
    return board.m_straightSliders & board.m_blackMen;
}

/// The white king stops a pawn from below, on the first rank, and has just come into opposition.
bool HasKingBlockedPawn(const TChessboard& afterWhite) {
    const int king = afterWhite.m_lastMove.to;
    const TChessboard& beforeBlack = *afterWhite.m_pPrevious->m_pPrevious;
    return afterWhite.m_fields[king] == WhiteKing && RankOf(king) == 0 &&
           afterWhite.m_fields[king + 8] == BlackPawn &&
           KingDistance(king, BlackKingField(afterWhite)) == 2 &&
           KingDistance(WhiteKingField(beforeBlack), BlackKingField(beforeBlack)) > 2 &&
           !HasKingField(afterWhite);
}

/// Minor pieces only, and a king on the edge.
bool IsMinorPieceHunt(const TChessboard& afterWhite) {
    const bool bOneMinor = afterWhite.m_blackBishops + afterWhite.m_blackKnights == 1;
    const bool bOneColour = (afterWhite.m_captureState & OneColourMask) != 0;
    const bool bHeavyMen = (afterWhite.m_straightSliders & OccupiedFields(afterWhite)) != 0;
    return !bHeavyMen && BlackKingEdgeDistance(afterWhite) == 0 && (bOneMinor || bOneColour) &&
           afterWhite.m_whiteBishops <= 1 && afterWhite.m_bWhiteFiguresListed != 0;
}

/// The reply is worth a search with a stricter set first.
bool MayFallBack(const TChessboard& afterWhite) {
    const TSpecialHeuristics& parameters = Thread(afterWhite).m_heuristics;
    const bool bNearRoot =
        afterWhite.m_shPlies >= LeastPliesToFallBack &&
        afterWhite.m_shRootPlies - afterWhite.m_shPlies <= MostPliesPlayedToFallBack;
    return bNearRoot &&
           (BlackKingEdgeDistance(afterWhite) == 0 ||
            (afterWhite.m_heuristicFlags.HasAny(SH_KEEPKINGONTHEEDGE) && parameters.bKingStrict)) &&
           CanFallBack(afterWhite);
}

}  // namespace

bool CanUnblockBeSetDynamically(const TChessboard& afterBlack) noexcept {
    const TSpecialHeuristics& parameters = Thread(afterBlack).m_heuristics;
    if (afterBlack.m_heuristicFlags.HasAny(SH_DONTLETFIGUREUNBLOCK) ||
        parameters.bCannotApplyDynamically || parameters.bUnblockFixedByUser ||
        afterBlack.m_pPrevious == nullptr) {
        return false;
    }
    const TFieldSet figures = BlackFigures(afterBlack);
    const TFieldSet heavy = HeavyBlackMen(afterBlack);
    const TFieldSet blocked = BlockedBlackMen(afterBlack, false);
    const TFieldSet mustBeBlocked = heavy != 0 ? heavy : figures;
    const auto king = static_cast<std::size_t>(BlackKingField(afterBlack));
    return std::popcount(blocked) >= 2 && (mustBeBlocked & ~blocked) == 0 &&
           (KingFields[king] & blocked) != 0 &&
           std::popcount(BlockedBlackMen(*afterBlack.m_pPrevious, false)) < std::popcount(blocked);
}

bool MatesWithTrackedFields(TChessboard& child) noexcept {
    if (!Thread(child).m_heuristics.bUnblockDynamic || child.m_pass != 1 ||
        child.m_shPlies < LeastPliesToFollow ||
        child.m_shRootPlies - child.m_shPlies > MostPliesPlayedToFollow ||
        !CanUnblockBeSetDynamically(child)) {
        return false;
    }
    const CFollowedMenScope scope(child);
    return FindMateWhiteToMove(child, true) == ResultMate;
}

bool CanFallBack(const TChessboard& afterWhite) noexcept {
    const TChessboard* before = afterWhite.m_pPrevious;
    if (before == nullptr || before->m_pPrevious == nullptr || before->m_lastMove.IsPass() ||
        LastMover(*before) != BlackKing || FieldEdgeDistance(before->m_lastMove.from) == 0) {
        return false;
    }
    return HasKingBlockedPawn(afterWhite) || IsMinorPieceHunt(afterWhite);
}

bool MatesWithStrictEdge(TChessboard& afterWhite) noexcept {
    if (!MayFallBack(afterWhite)) {
        return false;
    }
    const CStrictEdgeScope scope(afterWhite);
    return FindMateBlackToMove(afterWhite) == ResultMate;
}

CStrictEdgeScope::CStrictEdgeScope(TChessboard& board) noexcept
    : m_board(board),
      m_mask(board.m_heuristicFlags.Raw()),
      m_key(board.m_heuristicKey),
      m_parameters(Thread(board).m_heuristics) {
    TSpecialHeuristics& parameters = Thread(board).m_heuristics;
    parameters.bKingStrict = true;
    parameters.StillKingField = static_cast<std::uint8_t>(BlackKingField(board));
    SetHeuristics(board, m_mask | SH_KEEPKINGONTHEEDGE);
}

CStrictEdgeScope::~CStrictEdgeScope() {
    Thread(m_board).m_heuristics = m_parameters;
    m_board.m_heuristicFlags.SetRaw(m_mask);
    m_board.m_heuristicKey = m_key;
}

CFollowedMenScope::CFollowedMenScope(TChessboard& board) noexcept
    : m_board(board),
      m_mask(board.m_heuristicFlags.Raw()),
      m_key(board.m_heuristicKey),
      m_parameters(Thread(board).m_heuristics) {
    std::copy(std::begin(board.m_trackedFields), std::end(board.m_trackedFields),
              m_trackedFields.begin());
    TSpecialHeuristics& parameters = Thread(board).m_heuristics;
    CollectTrackedMen(board, parameters);
    parameters.bUnblockFromFields = false;
    for (std::size_t man = 0; static_cast<int>(man) < parameters.UnblockFieldCount; ++man) {
        parameters.UnblockInitialFields[man] =
            OriginalFieldOf(board, parameters.UnblockFields[man]);
    }
    SetHeuristics(board, m_mask | SH_DONTLETFIGUREUNBLOCK);
}

CFollowedMenScope::~CFollowedMenScope() {
    std::copy(m_trackedFields.begin(), m_trackedFields.end(), m_board.m_trackedFields);
    Thread(m_board).m_heuristics = m_parameters;
    m_board.m_heuristicFlags.SetRaw(m_mask);
    m_board.m_heuristicKey = m_key;
}

}  // namespace tarnwick
