#pragma once
// CViewedHistory: which problems were looked at before, with back and forward as in a browser.

#include <cstddef>
#include <functional>
#include <vector>

namespace tarnwick {

class CViewedHistory {
  public:
    static constexpr std::size_t MaxViewed = 1000;  ///< Older ones are forgotten.

    /// The user went to this problem by any other way than Back and Forward: what lay forward is gone.
    void Visit(int id);

    using TIsThere = std::function<bool(int id)>;
    /// Number of the problem to show; -1, and nothing changed, if there is none. Problems that have
    /// left the file meanwhile are passed over.
    int Back(const TIsThere& isThere) { return Step(-1, isThere); }
    int Forward(const TIsThere& isThere) { return Step(1, isThere); }

    /// Whether there is anything on that side; it may have left the file meanwhile.
    bool HasBefore() const { return m_present > 0; }
    bool HasAfter() const { return m_present + 1 < m_ids.size(); }

    void Clear();

  private:
    int Step(int direction, const TIsThere& isThere);

    std::vector<int> m_ids;
    std::size_t m_present = 0;  ///< Index; no meaning while m_ids is empty.
};

}  // namespace tarnwick
