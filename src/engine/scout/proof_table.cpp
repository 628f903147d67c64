#include "engine/scout/proof_table.h"

#include <bit>
#include <cstdlib>
#include <new>

#include "engine/search/position_memory.h"

namespace tarnwick {

TProofTable::TProofTable(std::size_t mib) {
    const std::size_t entries = std::bit_floor(mib * (std::size_t{1} << 20) / sizeof(TEntry));
    // calloc hands out pages that the system clears when they are first touched. One entry more leaves
    // room to align.
    m_block.reset(std::calloc(entries + 1, sizeof(TEntry)));
    if (m_block == nullptr) {
        throw std::bad_alloc();
    }
    const auto address = reinterpret_cast<std::uintptr_t>(m_block.get());
    m_entries = reinterpret_cast<TEntry*>((address + 63) & ~std::uintptr_t{63});
    m_mask = entries - 1;
}

void TProofTable::TFree::operator()(void* p) const noexcept {
    std::free(p);
}

bool TProofTable::Holds(const TEntry& entry, const TChessboard& board,
                        std::uint16_t salt) noexcept {
    return entry.plies == board.m_shPlies && entry.salt == salt &&
           ((entry.white ^ board.m_whiteMen) | (entry.black ^ board.m_blackMen) |
            (entry.pawns ^ board.m_pawns) | (entry.knights ^ board.m_knights) |
            (entry.diagonalSliders ^ board.m_diagonalSliders) |
            (entry.straightSliders ^ board.m_straightSliders)) == 0;
}

std::size_t TProofTable::Bucket(const TChessboard& board, std::uint16_t salt) const noexcept {
    const std::uint64_t kind = board.m_shPlies + (std::uint64_t{salt} << 16);
    const std::uint64_t hash =
        (PlacingHash(board) ^ kind * 0x9E3779B97F4A7C15ULL) * 0xC2B2AE3D27D4EB4FULL;
    return (hash >> 24) & m_mask & ~std::size_t{1};
}

std::optional<TProofNumbers> TProofTable::Find(const TChessboard& board,
                                               std::uint16_t salt) const noexcept {
    const TEntry* bucket = &m_entries[Bucket(board, salt)];
    for (const TEntry* entry : {bucket, bucket + 1}) {
        if (Holds(*entry, board, salt)) {
            return TProofNumbers{entry->proof, entry->disproof};
        }
    }
    return std::nullopt;
}

void TProofTable::Store(const TChessboard& board, std::uint16_t salt, TProofNumbers numbers,
                        std::uint32_t work) noexcept {
    TEntry* bucket = &m_entries[Bucket(board, salt)];
    TEntry* chosen = bucket->work <= bucket[1].work ? bucket : bucket + 1;
    for (TEntry* entry : {bucket, bucket + 1}) {
        if (Holds(*entry, board, salt)) {
            chosen = entry;
            work += entry->work;
        }
    }
    *chosen = {.white = board.m_whiteMen,
               .black = board.m_blackMen,
               .pawns = board.m_pawns,
               .knights = board.m_knights,
               .diagonalSliders = board.m_diagonalSliders,
               .straightSliders = board.m_straightSliders,
               .proof = numbers.proof,
               .disproof = numbers.disproof,
               .work = work,
               .plies = board.m_shPlies,
               .salt = salt};
}

}  // namespace tarnwick
