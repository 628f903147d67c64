#pragma once
// The scout's table of nodes that are neither proved nor disproved yet: how much work is thought to be
// left for either. Lossy and of fixed size; nothing in it is believed as an answer.

#include <cstdint>
#include <memory>
#include <optional>

#include "chess/chessboard.h"

namespace tarnwick {

/// The least number of leaves that must still be proved to prove a node, and to disprove it. A settled
/// node has 0 in one of them.
struct TProofNumbers {
    static constexpr std::uint32_t Infinite = 1'000'000'000;

    std::uint32_t proof = 1;
    std::uint32_t disproof = 1;

    bool IsProved() const noexcept { return proof == 0; }
    bool IsDisproved() const noexcept { return disproof == 0; }
    bool IsSettled() const noexcept { return IsProved() || IsDisproved(); }
};
inline constexpr TProofNumbers Proved{0, TProofNumbers::Infinite};
inline constexpr TProofNumbers Disproved{TProofNumbers::Infinite, 0};

class TProofTable {
  public:
    /// Throws std::bad_alloc.
    explicit TProofTable(std::size_t mib);

    /// The numbers of this very position with these plies left; nothing if they are not known. The salt
    /// keeps apart searches of one game by different rules.
    std::optional<TProofNumbers> Find(const TChessboard& board, std::uint16_t salt) const noexcept;
    /// work: nodes that were searched below; the entry with less of it gives way.
    void Store(const TChessboard& board, std::uint16_t salt, TProofNumbers numbers,
               std::uint32_t work) noexcept;

  private:
    struct alignas(64) TEntry {
        TFieldSet white, black, pawns, knights, diagonalSliders, straightSliders;
        std::uint32_t proof, disproof;
        std::uint32_t work;
        std::uint16_t plies;  ///< 0: free.
        std::uint16_t salt;
    };
    static_assert(sizeof(TEntry) == 64);

    static bool Holds(const TEntry& entry, const TChessboard& board, std::uint16_t salt) noexcept;
    std::size_t Bucket(const TChessboard& board, std::uint16_t salt) const noexcept;

    struct TFree {
        void operator()(void* p) const noexcept;
    };

    std::unique_ptr<void, TFree> m_block;  ///< As allocated; not aligned to lines.
    TEntry* m_entries = nullptr;           ///< Aligned within the block.
    std::size_t m_mask = 0;
};

}  // namespace tarnwick
