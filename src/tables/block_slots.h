#pragma once

// Which of a packed table's few unpacked blocks serves whom.
//
// A slot has one reader at a time. It keeps its block afterwards: positions near each other stand near each
// other in a table, so the next question is often about the same block, and then a value costs
// nanoseconds instead of microseconds. Any thread; readers beyond the number of slots wait, spinning, as no
// reader keeps a slot longer than it takes to unpack a block.

#include <cstdint>
#include <mutex>
#include <vector>

namespace tarnwick {

class CBlockSlots {
  public:
    /// Without bSeveralThreads there is no lock, and one thread at a time.
    CBlockSlots(std::size_t count, bool bSeveralThreads)
        : m_slots(count), m_bSeveralThreads(bSeveralThreads) {}

    /// A slot for the caller alone until Release: one that kept the block, else the one that was not used for
    /// longest.
    std::size_t Take(std::uint32_t block) noexcept;
    void Release(std::size_t slot) noexcept;

  private:
    static constexpr std::uint32_t NoBlock = 0xFFFFFFFF;

    struct TSlot {
        std::uint32_t block = NoBlock;
        bool bBusy = false;
        std::uint64_t lastUse = 0;
    };

    TSlot* FindFree(std::uint32_t block) noexcept;
    std::unique_lock<std::mutex> Lock() noexcept;

    std::vector<TSlot> m_slots;
    bool m_bSeveralThreads;
    std::mutex m_mutex;
    std::uint64_t m_uses = 0;
};

/// A slot for as long as this object lives.
class CBlockSlotUse {
  public:
    CBlockSlotUse(CBlockSlots& slots, std::uint32_t block) noexcept
        : m_slots(slots), m_number(slots.Take(block)) {}
    CBlockSlotUse(const CBlockSlotUse&) = delete;
    CBlockSlotUse& operator=(const CBlockSlotUse&) = delete;
    ~CBlockSlotUse() { m_slots.Release(m_number); }

    [[nodiscard]] std::size_t Number() const noexcept { return m_number; }

  private:
    CBlockSlots& m_slots;
    std::size_t m_number;
};

}  // namespace tarnwick
