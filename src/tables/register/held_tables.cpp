#include "tables/register/held_tables.h"

#include <exception>

#include "tables/position_type.h"

namespace tarnwick {

TGlobalRegister* CHeldTables::FindInSet(const TChessboard& board, const TLookupLimits& limits,
                                        std::uint64_t men) noexcept {
    TSlot& slot = m_slots[SlotOf(men)];
    const bool bMayLoad = MayLoadInSearch(board, limits);
    if (slot.men == men && !bMayLoad) {
        return nullptr;  // Asked before, and nothing has changed since.
    }
    try {
        const std::uint64_t key = PositionTypeId(board);
        if (!m_pSet->IsSettled(key) && bMayLoad) {
            ReleaseAll();  // A load may want the memory of what is held here.
        }
        m_pSet->ReleaseData(slot.pRegister);
        slot = {};
        slot.pRegister = m_pSet->FindDataFor(board, limits);
        const bool bSettled = slot.pRegister != nullptr || m_pSet->IsSettled(key);
        slot.state = bSettled ? TState::Settled : TState::NotLoaded;
        slot.men = men;
        return slot.pRegister;
    } catch (const std::exception&) {  // No memory for finding it: the search goes on without.
        return nullptr;
    }
}

void CHeldTables::ReleaseAll() noexcept {
    m_generation = m_pSet->Generation();
    for (TSlot& slot : m_slots) {
        m_pSet->ReleaseData(slot.pRegister);
        slot = {};
    }
}

}  // namespace tarnwick
