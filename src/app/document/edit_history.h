#pragma once
// CEditHistory: undo and redo of one problem's edits, as a row of its states.
//
// The problem stands in one of them. An edit cuts what was undone and adds a state; undo and redo only
// walk. One state is known to be in the file: while the problem stands in it, nothing is to be saved.

#include <cstddef>
#include <deque>
#include <optional>

#include "app/document/problem_state.h"

namespace tarnwick {

class CEditHistory {
  public:
    /// So many edits can be undone; older ones are forgotten.
    static constexpr std::size_t MaxSteps = 500;

    /// bSaved: the file holds the state. A new problem is in no file yet.
    CEditHistory(TProblemState state, bool bSaved);

    /// The problem was changed to this state. False, and nothing noted, if it is the present one.
    bool Note(TProblemState state);

    bool CanUndo() const { return m_present > 0; }
    bool CanRedo() const { return m_present + 1 < m_states.size(); }
    /// The state to restore; only when CanUndo or CanRedo says so.
    const TProblemState& Undo();
    const TProblemState& Redo();

    const TProblemState& Present() const { return m_states[m_present]; }

    void MarkSaved();
    bool IsSaved() const;
    /// The state in the file, null for a problem that is in none.
    const TProblemState* Saved() const { return m_saved ? &*m_saved : nullptr; }

  private:
    std::deque<TProblemState> m_states;
    std::size_t m_present = 0;
    std::optional<TProblemState>
        m_saved;  ///< A copy: the row forgets, and an undone edit may be cut.
};

}  // namespace tarnwick
