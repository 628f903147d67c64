#include "engine/search/node_hooks.h"

#include "chess/board_tables.h"
#include "chess/castling.h"
#include "chess/generate_moves.h"
#include "chess/lines.h"
#include "engine/heuristics/one_colour_play.h"
#include "tables/register/held_tables.h"

namespace tarnwick {
namespace {

/// A table on disk or packed takes microseconds to ask; with fewer plies left the search is faster.
constexpr int LeastPliesForSlowTables = 5;

/// Black's last move was a double step, and a white pawn could take it in passing. The table knows nothing of that
/// capture.
bool MayCaptureEnPassant(const TChessboard& board) noexcept {
    if (board.m_pPrevious == nullptr) {
        return false;
    }
    const int target = WhiteEnPassantTarget(board);
    return target >= 0 && (BlackPawnTargets[static_cast<std::size_t>(target)] & board.m_whiteMen &
                           board.m_pawns) != 0;
}

/// A table's plies, 0 for no mate, as the answer of a node.
std::optional<TNodeResult> AnswerOfPlies(const TChessboard& board, int plies) noexcept {
    TThreadContext& thread = Thread(board);
    if (plies != 0 && plies <= board.m_shPlies) {
        thread.m_bMateCapturedPromotion = false;
        return ResultMate;  // A capture en passant is one move more to choose from, and takes none away.
    }
    if (MayCaptureEnPassant(board)) {
        return std::nullopt;
    }
    const int additional = thread.m_quickerMateNesting > 0 ? 2 * thread.m_additionalMoves : 0;
    if (plies != 0 && plies <= board.m_shPlies + additional) {
        thread.m_bMateCapturedPromotion = false;
        thread.m_bUsedAdditionalMoves = true;
        return ResultMate;
    }
    return ResultNoMate;
}

}  // namespace

bool HasNoCastlingRights(const TChessboard& board) noexcept {
    using enum TCastling;
    const bool bWhite = board.m_fields[E1] == WhiteKing &&
                        (HasCastlingRight(board, WhiteShort) || HasCastlingRight(board, WhiteLong));
    const bool bBlack = board.m_fields[E8] == BlackKing &&
                        (HasCastlingRight(board, BlackShort) || HasCastlingRight(board, BlackLong));
    return !bWhite && !bBlack;
}

std::optional<TNodeResult> AskGlobalRegister(TChessboard& board, bool bReduced) noexcept {
    TThreadContext& thread = Thread(board);
    if (thread.m_pTables == nullptr || IsOneColourPlay(board) || IsBishopTakenOff(board) ||
        !HasNoCastlingRights(board)) {
        return std::nullopt;
    }
    const TLookupLimits limits{
        .bAllSolutions = thread.m_task.m_options.bAllSolutions,
        .bReducedPosition = bReduced,
        .bQueenIsSlow = board.m_heuristicFlags.HasAny(HeuristicsThatForbidSorting)};
    const TGlobalRegister* pRegister = thread.m_pTables->Find(board, limits);
    if (pRegister == nullptr || !pRegister->Store().HasLengths() ||
        (!pRegister->IsInMemory() && board.m_shPlies < LeastPliesForSlowTables)) {
        return std::nullopt;
    }
    const std::uint16_t plies = pRegister->IsMateByIndex(board);
    if (plies == UnknownPlies) {
        return std::nullopt;
    }
    ++thread.m_tableHits;
    return AnswerOfPlies(board, plies);
}

}  // namespace tarnwick
