#include "app/document/edit_history.h"

#include <cassert>
#include <utility>

namespace tarnwick {

CEditHistory::CEditHistory(TProblemState state, bool bSaved) {
    if (bSaved) {
        m_saved = state;
    }
    m_states.push_back(std::move(state));
}

bool CEditHistory::Note(TProblemState state) {
    if (state == Present()) {
        return false;
    }
    m_states.resize(m_present + 1);
    m_states.push_back(std::move(state));
    if (m_states.size() > MaxSteps + 1) {
        m_states.pop_front();
    }
    m_present = m_states.size() - 1;
    return true;
}

const TProblemState& CEditHistory::Undo() {
    assert(CanUndo());
    return m_states[--m_present];
}

const TProblemState& CEditHistory::Redo() {
    assert(CanRedo());
    return m_states[++m_present];
}

void CEditHistory::MarkSaved() {
    m_saved = Present();
}

bool CEditHistory::IsSaved() const {
    return m_saved && *m_saved == Present();
}

}  // namespace tarnwick
