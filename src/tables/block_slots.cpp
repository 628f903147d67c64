#include "tables/block_slots.h"

#include <thread>

namespace tarnwick {

std::unique_lock<std::mutex> CBlockSlots::Lock() noexcept {
    return m_bSeveralThreads ? std::unique_lock(m_mutex) : std::unique_lock<std::mutex>();
}

CBlockSlots::TSlot* CBlockSlots::FindFree(std::uint32_t block) noexcept {
    TSlot* pOldest = nullptr;
    for (TSlot& slot : m_slots) {
        if (slot.bBusy) {
            continue;
        }
        if (slot.block == block) {
            return &slot;
        }
        if (pOldest == nullptr || slot.lastUse < pOldest->lastUse) {
            pOldest = &slot;
        }
    }
    return pOldest;
}

std::size_t CBlockSlots::Take(std::uint32_t block) noexcept {
    while (true) {
        {
            const std::unique_lock lock = Lock();
            if (TSlot* const pSlot = FindFree(block)) {
                *pSlot = {.block = block, .bBusy = true, .lastUse = ++m_uses};
                return static_cast<std::size_t>(pSlot - m_slots.data());
            }
        }
        std::this_thread::yield();
    }
}

void CBlockSlots::Release(std::size_t slot) noexcept {
    const std::unique_lock lock = Lock();
    m_slots[slot].bBusy = false;
}

}  // namespace tarnwick
