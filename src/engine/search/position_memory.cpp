#include "engine/search/position_memory.h"

#include <algorithm>
#include <bit>
#include <cstdlib>

#include "base/chess_exception.h"

namespace tarnwick {
namespace {

bool Holds(const TRememberedPosition& entry, const TChessboard& board) {
    return ((entry.white ^ board.m_whiteMen) | (entry.black ^ board.m_blackMen) |
            (entry.pawns ^ board.m_pawns) | (entry.knights ^ board.m_knights) |
            (entry.diagonalSliders ^ board.m_diagonalSliders) |
            (entry.straightSliders ^ board.m_straightSliders)) == 0;
}

TRememberedPosition Blank(const TChessboard& board) {
    return {.white = board.m_whiteMen,
            .black = board.m_blackMen,
            .pawns = board.m_pawns,
            .knights = board.m_knights,
            .diagonalSliders = board.m_diagonalSliders,
            .straightSliders = board.m_straightSliders,
            .matePlies = 0,
            .noMatePlies = 0,
            .mateMove = {},
            .work = 0,
            .unused = 0};
}

}  // namespace

std::size_t MemoryForPlies(int plies, std::size_t limitMiB) {
    if (plies <= 7) {
        return std::min<std::size_t>(limitMiB, 1);
    }
    return plies <= 9 ? std::min<std::size_t>(limitMiB, 8) : limitMiB;
}

void TPositionMemory::TFree::operator()(void* p) const noexcept {
    std::free(p);
}

TPositionMemory::TPositionMemory(std::size_t mib) {
    if (mib == 0) {
        return;
    }
    const std::size_t entries =
        std::bit_floor(mib * (std::size_t{1} << 20) / sizeof(TRememberedPosition));
    // calloc hands out pages that the system clears when they are first touched, so that a short
    // problem pays for what it uses. One entry more leaves room to align.
    m_block.reset(std::calloc(entries + 1, sizeof(TRememberedPosition)));
    if (m_block == nullptr) {
        throw ChessException("Out of memory.");
    }
    const auto address = reinterpret_cast<std::uintptr_t>(m_block.get());
    const std::uintptr_t aligned = (address + 63) & ~std::uintptr_t{63};
    m_pEntries = reinterpret_cast<TRememberedPosition*>(aligned);
    m_mask = entries - 1;
}

TRememberedPosition* TPositionMemory::Bucket(const TChessboard& board) const noexcept {
    return m_pEntries + ((PlacingHash(board) >> 30) & m_mask & ~std::size_t{1});
}

const TRememberedPosition* TPositionMemory::Lookup(const TChessboard& board) const noexcept {
    const TRememberedPosition* bucket = Bucket(board);
    if (Holds(bucket[0], board)) {
        return &bucket[0];
    }
    return Holds(bucket[1], board) ? &bucket[1] : nullptr;
}

TRegisterAnswer TPositionMemory::Find(const TChessboard& board, int plies) const noexcept {
    if (!IsOn()) {
        return TRegisterAnswer::Unknown;
    }
    const TRememberedPosition* entry = Lookup(board);
    if (entry == nullptr) {
        return TRegisterAnswer::Unknown;
    }
    if (plies <= entry->noMatePlies) {
        return TRegisterAnswer::NoMate;
    }
    return entry->matePlies != 0 && plies >= entry->matePlies ? TRegisterAnswer::Mate
                                                              : TRegisterAnswer::Unknown;
}

TMove TPositionMemory::FindMateMove(const TChessboard& board) const noexcept {
    const TRememberedPosition* entry = IsOn() ? Lookup(board) : nullptr;
    return entry != nullptr ? entry->mateMove : TMove{};
}

TRememberedPosition& TPositionMemory::SlotFor(const TChessboard& board, int plies) noexcept {
    TRememberedPosition* bucket = Bucket(board);
    for (TRememberedPosition* entry : {bucket, bucket + 1}) {
        if (Holds(*entry, board)) {
            return *entry;
        }
    }
    TRememberedPosition* chosen = bucket;
    if (bucket->work > static_cast<std::uint32_t>(plies)) {
        chosen = bucket + 1;
    }
    *chosen = Blank(board);
    return *chosen;
}

void TPositionMemory::StoreMate(const TChessboard& board, int plies, TMove move) noexcept {
    if (!IsOn()) {
        return;
    }
    TRememberedPosition& entry = SlotFor(board, plies);
    if (entry.matePlies == 0 || plies < entry.matePlies) {
        entry.matePlies = static_cast<std::uint16_t>(plies);
        entry.mateMove = move;
    }
    entry.work = static_cast<std::uint32_t>(plies);
}

void TPositionMemory::StoreNoMate(const TChessboard& board, int plies) noexcept {
    if (!IsOn()) {
        return;
    }
    TRememberedPosition& entry = SlotFor(board, plies);
    if (plies > entry.noMatePlies) {
        entry.noMatePlies = static_cast<std::uint16_t>(plies);
    }
    entry.work = static_cast<std::uint32_t>(plies);
}

}  // namespace tarnwick
