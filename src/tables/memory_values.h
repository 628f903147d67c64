#pragma once
// A whole table in memory.

#include <atomic>
#include <memory>
#include <utility>

#include "tables/table_values.h"

namespace tarnwick {

/// Element: std::uint8_t or std::uint16_t, as the table's flags say.
template <typename Element>
class CMemoryValues final : public CTableValues {
  public:
    /// The elements live as long as their owner does.
    CMemoryValues(std::shared_ptr<void> pOwner, Element* pElements)
        : m_pOwner(std::move(pOwner)), m_pElements(pElements) {}

    unsigned ValueAt(std::uint64_t index) const override {
        const Element value =
            std::atomic_ref<Element>(m_pElements[index]).load(std::memory_order_relaxed);
        return value == Unknown ? NotGenerated : value;
    }
    bool SetValue(std::uint64_t index, unsigned value) override {
        if (value >= Unknown) {
            return false;
        }
        std::atomic_ref<Element>(m_pElements[index])
            .store(static_cast<Element>(value), std::memory_order_relaxed);
        return true;
    }

  private:
    static constexpr Element Unknown = static_cast<Element>(~Element{0});

    std::shared_ptr<void> m_pOwner;
    Element* m_pElements;
};

}  // namespace tarnwick
