#include "engine/search/known_positions.h"

#include "engine/search/engine_state.h"

namespace tarnwick {
namespace {

TRegisterResult AskRegister(TChessboard& board, const TThreadContext& thread) noexcept {
    const bool bAdditional = thread.m_quickerMateNesting > 0 && thread.m_additionalMoves > 0;
    if (board.m_shPlies < LeastRegisterPlies && !bAdditional) {
        return TRegisterResult::Unknown;
    }
    const TChessboardRegisterItem item = ItemOf(board);
    const std::uint32_t heuristics = board.m_heuristicFlags.Raw();
    if (bAdditional) {
        const auto extended =
            static_cast<std::uint16_t>(board.m_shPlies + 2 * thread.m_additionalMoves);
        return thread.m_pRegister->FindResultForQuickerMate(
            board.m_shPlies, extended, item, HashOf(item), heuristics, board.m_heuristicKey);
    }
    return thread.m_pRegister->FindResult(board.m_shPlies, item, HashOf(item), heuristics,
                                          board.m_heuristicKey);
}

/// A stopped thread knows nothing for certain, nor one under which a thread was stopped from outside.
bool MayStore(const TThreadContext& thread) noexcept {
    return thread.m_outsideStops == 0 && !IsStopRequested(thread);
}

}  // namespace

TRegisterResult FindKnown(TChessboard& board, TKnowable may) noexcept {
    TThreadContext& thread = Thread(board);
    if (may.bMemory) {
        switch (thread.m_memory.Find(board, board.m_shPlies)) {
            case TRegisterAnswer::Mate:
                return TRegisterResult::Mate;
            case TRegisterAnswer::NoMate:
                return TRegisterResult::NoMate;
            default:
                break;
        }
    }
    return may.bRegister ? AskRegister(board, thread) : TRegisterResult::Unknown;
}

void StoreKnownMate(const TChessboard& board, TKnowable may, int plies, TMove mate) noexcept {
    TThreadContext& thread = Thread(board);
    if (may.bMemory && plies == board.m_shPlies) {
        thread.m_memory.StoreMate(board, plies, mate);
    }
    if (may.bRegister && plies >= LeastRegisterPlies && MayStore(thread)) {
        const TChessboardRegisterItem item = ItemOf(board);
        thread.m_pRegister->StoreResult(static_cast<std::uint16_t>(plies), item, HashOf(item),
                                        true);
    }
}

void StoreKnownNoMate(const TChessboard& board, TKnowable may) noexcept {
    TThreadContext& thread = Thread(board);
    if (!MayStore(thread)) {
        return;
    }
    if (may.bMemory) {
        thread.m_memory.StoreNoMate(board, board.m_shPlies);
    }
    if (may.bRegister && board.m_shPlies >= LeastRegisterPlies) {
        const TChessboardRegisterItem item = ItemOf(board);
        thread.m_pRegister->StoreResult(board.m_shPlies, item, HashOf(item), false);
    }
}

void StoreKnownDoubtful(const TChessboard& board, TKnowable may) noexcept {
    TThreadContext& thread = Thread(board);
    if (may.bRegister && board.m_shPlies >= LeastRegisterPlies && MayStore(thread)) {
        const TChessboardRegisterItem item = ItemOf(board);
        thread.m_pRegister->InsertDoubtful(board.m_shPlies, item, HashOf(item),
                                           board.m_heuristicFlags.Raw(), board.m_heuristicKey);
    }
}

}  // namespace tarnwick
