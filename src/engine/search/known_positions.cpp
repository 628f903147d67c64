#include "engine/search/known_positions.h"

#include "engine/search/engine_state.h"

namespace tarnwick {
namespace {

/// A mate may take longer than the plies left by this much; 0: exactly what is asked.
int AdditionalPlies(const TThreadContext& thread) noexcept {
    return thread.m_quickerMateNesting > 0 ? 2 * thread.m_additionalMoves : 0;
}

TRegisterResult AskRegister(const TChessboard& board, const TThreadContext& thread,
                            const TChessboardRegisterItem& item, TPositionHash hash) noexcept {
    const std::uint32_t heuristics = board.m_heuristicFlags.Raw();
    const int additional = AdditionalPlies(thread);
    if (additional > 0) {
        return thread.m_pRegister->FindResultForQuickerMate(
            board.m_shPlies, static_cast<std::uint16_t>(board.m_shPlies + additional), item, hash,
            heuristics, board.m_heuristicKey);
    }
    return thread.m_pRegister->FindResult(board.m_shPlies, item, hash, heuristics,
                                          board.m_heuristicKey);
}

TRegisterResult AskMemory(const TChessboard& board, const TThreadContext& thread) noexcept {
    switch (thread.m_memory.Find(board, board.m_shPlies)) {
        case TRegisterAnswer::Mate:
            return TRegisterResult::Mate;
        case TRegisterAnswer::NoMate:
            return TRegisterResult::NoMate;
        default:
            return TRegisterResult::Unknown;
    }
}

/// A stopped thread knows nothing for certain, nor one under which a thread was stopped from outside.
bool MayStore(const TThreadContext& thread) noexcept {
    return thread.m_outsideStops == 0 && !IsStopRequested(thread);
}

}  // namespace

TRegisterResult FindKnown(const TChessboard& board, TKnowable may) noexcept {
    const TThreadContext& thread = Thread(board);
    if (!may.bRegister || (board.m_shPlies < LeastRegisterPlies && AdditionalPlies(thread) == 0)) {
        return may.bMemory ? AskMemory(board, thread) : TRegisterResult::Unknown;
    }
    // The way to the register's memory is long: it is sent for before the near memory is asked.
    const TChessboardRegisterItem item = ItemOf(board);
    const TPositionHash hash = HashOf(item);
    thread.m_pRegister->Prefetch(hash);
    const TRegisterResult near = may.bMemory ? AskMemory(board, thread) : TRegisterResult::Unknown;
    return near != TRegisterResult::Unknown ? near : AskRegister(board, thread, item, hash);
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
