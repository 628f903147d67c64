#include "app/document/viewed_history.h"

namespace tarnwick {

void CViewedHistory::Visit(int id) {
    if (!m_ids.empty()) {
        if (m_ids[m_present] == id) {
            return;
        }
        m_ids.resize(m_present + 1);
    }
    m_ids.push_back(id);
    if (m_ids.size() > MaxViewed) {
        m_ids.erase(m_ids.begin());
    }
    m_present = m_ids.size() - 1;
}

int CViewedHistory::Step(int direction, const TIsThere& isThere) {
    const auto step =
        static_cast<std::size_t>(direction);  // -1 wraps to the end, which stops the loop
    for (std::size_t i = m_present + step; i < m_ids.size(); i += step) {
        if (m_ids[i] != m_ids[m_present] && isThere(m_ids[i])) {
            m_present = i;
            return m_ids[i];
        }
    }
    return -1;
}

void CViewedHistory::Clear() {
    m_ids.clear();
    m_present = 0;
}

}  // namespace tarnwick
