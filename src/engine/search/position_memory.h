#pragma once
// A thread's own memory of positions with White to move that the search has settled: of fixed size,
// lossy, and exact. It makes transpositions near the leaves free; the registers, which keep everything and
// are shared, take over where positions are worth their cost.
//
// Nothing is trusted to a hash: an entry holds the whole placing of the men and answers only for it. Side,
// castling and en passant are not in it, so the caller asks and stores only positions that their men
// describe fully. Answers are monotone: a mate within p plies is one within more, and no mate within p
// plies means none within fewer.
//
// An entry is one cache line, because a probe costs one miss and nothing else. Two neighbouring lines
// form a bucket: the first keeps the deeper work, the second the newest.

#include <bit>
#include <cstddef>
#include <cstdint>
#include <memory>

#include "chess/chessboard.h"
#include "engine/search/node_result.h"

namespace tarnwick {

struct alignas(64) TRememberedPosition {
    TFieldSet white, black, pawns, knights, diagonalSliders, straightSliders;
    std::uint16_t matePlies;    ///< Smallest plies with a proved mate; 0 none known.
    std::uint16_t noMatePlies;  ///< Largest plies proved to hold no mate.
    TMove mateMove;             ///< White's move of that mate.
    std::uint32_t work;         ///< Plies of the last store; what replacement compares.
    std::uint32_t unused;
};
static_assert(sizeof(TRememberedPosition) == 64);

/// The size in MiB that pays for a stipulation: what a short problem touches stays near the caches, and
/// the pages of a larger table cost more than they save. Never above the limit.
std::size_t MemoryForPlies(int plies, std::size_t limitMiB);

/// A hash of the placing of the men; the high bits are the good ones.
inline std::uint64_t PlacingHash(const TChessboard& board) noexcept {
    // One odd multiplier a word; the high bits of the sum depend on all bits below them.
    std::uint64_t hash = board.m_whiteMen * 0x9E3779B97F4A7C15ULL;
    hash ^= std::rotl(board.m_blackMen * 0xC2B2AE3D27D4EB4FULL, 17);
    hash += board.m_pawns * 0x165667B19E3779F9ULL;
    hash ^= std::rotl(board.m_knights * 0xD6E8FEB86659FD93ULL, 31);
    hash += std::rotl(board.m_diagonalSliders * 0xA0761D6478BD642FULL, 43);
    hash ^= board.m_straightSliders * 0xE7037ED1A0B428DBULL;
    hash ^= hash >> 32;
    return hash * 0x9FB21C651E98DF25ULL;
}

class TPositionMemory {
  public:
    /// mib 0 switches the memory off. The pages are taken when they are first used. Throws
    /// ChessException "Out of memory." when the address space cannot be had.
    explicit TPositionMemory(std::size_t mib);

    bool IsOn() const { return m_mask != 0; }
    /// Mate, NoMate or Unknown for White to move with plies left.
    TRegisterAnswer Find(const TChessboard& board, int plies) const noexcept;
    /// White's mating move if one is remembered for any number of plies; else a pass.
    TMove FindMateMove(const TChessboard& board) const noexcept;
    void StoreMate(const TChessboard& board, int plies, TMove move) noexcept;
    void StoreNoMate(const TChessboard& board, int plies) noexcept;

  private:
    struct TFree {
        void operator()(void* p) const noexcept;
    };

    TRememberedPosition* Bucket(const TChessboard& board) const noexcept;
    const TRememberedPosition* Lookup(const TChessboard& board) const noexcept;
    TRememberedPosition& SlotFor(const TChessboard& board, int plies) noexcept;

    std::unique_ptr<void, TFree> m_block;       ///< As allocated; not aligned to lines.
    TRememberedPosition* m_pEntries = nullptr;  ///< Aligned within the block.
    std::size_t m_mask = 0;                     ///< Entries - 1; the count is a power of two.
};

}  // namespace tarnwick
