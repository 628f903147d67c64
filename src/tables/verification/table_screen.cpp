#include "tables/verification/table_screen.h"

#include <algorithm>
#include <new>

#include "platform/memory_info.h"

namespace tarnwick {
namespace {

template <typename Element>
class CElementScreen final : public CTableScreen {
  public:
    CElementScreen(const CTypeNode& root, const TTypeLookup& lookup) : m_rules(root, lookup) {}

    bool IsUsable() const { return m_rules.IsUsable(); }
    bool Prepare(int threads, const CRunControl& control,
                 const std::function<void(double)>& report) override {
        return m_rules.Prepare(threads, control, report);
    }
    bool IsOfOneMind() const override { return m_rules.DoOrdersAgree(); }
    std::uint64_t RowCells() const override { return m_rules.Layout().Cells(); }

    void Mark(std::uint64_t begin, unsigned partialMoves,
              std::span<TScreenMark> marks) const override {
        std::fill(marks.begin(), marks.end(), TScreenMark::Agrees);
        TLetterFields fields;
        if (!m_rules.Layout().FieldsAt(begin, fields)) {
            return;
        }
        using TRules = CRowRules<Element>;
        typename TRules::TRow stored;
        typename TRules::TRow expected;
        m_rules.StoredAt(begin, fields, stored);
        m_rules.Expected(fields, expected);
        for (std::size_t i = 0; i < marks.size(); ++i) {
            const bool bNotYet = stored[i] == TRules::NoMate && expected[i] != TRules::Ask &&
                                 expected[i] >= partialMoves;
            if (stored[i] == TRules::NoReply || stored[i] == expected[i] || bNotYet) {
                continue;
            }
            const bool bUnknown = expected[i] == TRules::Ask || stored[i] == TRules::Unsure;
            marks[i] = bUnknown ? TScreenMark::Unknown : TScreenMark::Differs;
        }
    }

  private:
    CRowRules<Element> m_rules;
};

template <typename Element>
std::unique_ptr<CTableScreen> MakeScreen(const CTypeNode& root, const TTypeLookup& lookup) {
    // The system hands out memory that it does not have; the table itself lies there already.
    const std::uint64_t machine = MemoryOfMachine();
    if (machine != 0 && root.Index().GetIndexCount() * sizeof(Element) > machine / 5 * 2) {
        return nullptr;
    }
    try {
        auto pScreen = std::make_unique<CElementScreen<Element>>(root, lookup);
        return pScreen->IsUsable() ? std::move(pScreen) : nullptr;
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

}  // namespace

std::unique_ptr<CTableScreen> MakeTableScreen(const CTypeNode& root, const TTypeLookup& lookup) {
    const TFoundTable* pOwn = lookup(root.Index().Type());
    const std::uint8_t* pElements = pOwn != nullptr ? pOwn->pValues->Elements() : nullptr;
    if (pElements == nullptr) {
        return nullptr;
    }
    return root.Letters() >= 4 && (pElements[0] & TwoByteElementsFlag) != 0
               ? MakeScreen<std::uint16_t>(root, lookup)
               : MakeScreen<std::uint8_t>(root, lookup);
}

}  // namespace tarnwick
