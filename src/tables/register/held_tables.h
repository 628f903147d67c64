#pragma once
// CHeldTables: the registers that one search thread keeps in hand.
//
// A search asks a few types millions of times. Finding a register takes a lock and a count that all threads
// share; here both are paid once, and a lookup is a slot of a small table. The set's generation tells when
// to give everything back: then tables were loaded or evicted, or somebody wants their memory.

#include <array>
#include <cstdint>

#include "tables/register/global_register_set.h"

namespace tarnwick {

/// One thread at a time.
class CHeldTables {
  public:
    /// The set must outlive this object.
    explicit CHeldTables(TGlobalRegisterSet* pSet) noexcept : m_pSet(pSet) {}
    ~CHeldTables() { ReleaseAll(); }
    CHeldTables(const CHeldTables&) = delete;
    CHeldTables& operator=(const CHeldTables&) = delete;

    /// The register of a board of at most seven men, or null. It stays valid until the next call of any
    /// operation. Neither allocates nor locks where the type was found before.
    TGlobalRegister* Find(const TChessboard& board, const TLookupLimits& limits) noexcept {
        if (m_generation != m_pSet->Generation()) {
            ReleaseAll();
        }
        const std::uint64_t men = MenOf(board);
        const TSlot& slot = m_slots[SlotOf(men)];
        if (slot.men == men && slot.state != TState::NotLoaded) {
            return slot.pRegister;
        }
        return FindInSet(board, limits, men);
    }

    /// Before this thread waits or ends.
    void ReleaseAll() noexcept;

  private:
    enum class TState : std::uint8_t {
        NotLoaded,
        Settled  ///< Held, or known to have no data (null).
    };
    struct TSlot {
        std::uint64_t men = 0;
        TGlobalRegister* pRegister = nullptr;
        TState state = TState::NotLoaded;
    };
    static constexpr int SlotBits = 8;

    /// The ten counters of a board of at most seven men, without loss; never 0.
    static std::uint64_t MenOf(const TChessboard& board) noexcept {
        const auto at = [](std::uint8_t count, int place) {
            return static_cast<std::uint64_t>(count) << (3 * place);
        };
        return at(board.m_whiteQueens, 0) | at(board.m_blackQueens, 1) | at(board.m_whiteRooks, 2) |
               at(board.m_blackRooks, 3) | at(board.m_whiteBishops, 4) |
               at(board.m_blackBishops, 5) | at(board.m_whiteKnights, 6) |
               at(board.m_blackKnights, 7) | at(board.m_whitePawns, 8) | at(board.m_blackPawns, 9) |
               std::uint64_t{1} << 63;
    }
    static std::size_t SlotOf(std::uint64_t men) noexcept {
        return static_cast<std::size_t>((men * 0x9E3779B97F4A7C15) >> (64 - SlotBits));
    }
    TGlobalRegister* FindInSet(const TChessboard& board, const TLookupLimits& limits,
                               std::uint64_t men) noexcept;

    TGlobalRegisterSet* m_pSet;
    std::uint64_t m_generation = 0;
    std::array<TSlot, 1 << SlotBits> m_slots{};
};

}  // namespace tarnwick
