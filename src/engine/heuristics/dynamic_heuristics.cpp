#include "engine/heuristics/dynamic_heuristics.h"

#include <algorithm>
#include <bit>

#include "chess/line_history.h"
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

TFieldSet HeavyBlackMen(const TChessboard& board) {
    return board.m_straightSliders & board.m_blackMen;
}

TFieldSet BlackFigures(const TChessboard& board) {
    return board.m_blackMen & ~board.m_pawns & ~FieldBit(BlackKingField(board));
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

CStrictEdgeScope::CStrictEdgeScope(TChessboard& board) noexcept
    : m_board(board),
      m_mask(board.m_heuristicFlags.Raw()),
      m_key(board.m_heuristicKey),
      m_bStrict(Thread(board).m_heuristics.bKingStrict) {
    Thread(board).m_heuristics.bKingStrict = true;
    SetHeuristics(board, m_mask | SH_KEEPKINGONTHEEDGE);
}

CStrictEdgeScope::~CStrictEdgeScope() {
    Thread(m_board).m_heuristics.bKingStrict = m_bStrict;
    m_board.m_heuristicFlags.SetRaw(m_mask);
    m_board.m_heuristicKey = m_key;
}

CFollowedMenScope::CFollowedMenScope(TChessboard& board) noexcept
    : m_board(board),
      m_mask(board.m_heuristicFlags.Raw()),
      m_key(board.m_heuristicKey),
      m_parameters(Thread(board).m_heuristics) {
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
    Thread(m_board).m_heuristics = m_parameters;
    m_board.m_heuristicFlags.SetRaw(m_mask);
    m_board.m_heuristicKey = m_key;
}

}  // namespace tarnwick
