#include "app/solving/progress_snapshot.h"

#include <algorithm>

namespace tarnwick {

void CProgressLog::ListenTo(TSolveTask& task) {
    m_noted.bSafeMode = !task.m_options.bQuickMode;
    task.m_callbacks.onFirstMove = [this](TMove move, int index, int count, int /*pass*/) {
        NoteFirstMove(move, index, count);
    };
    // Passes begin on the thread that alone may switch to safe mode, while no other searches.
    task.m_callbacks.onPass = [this, &task](const std::string& name,
                                            const std::string& heuristics) {
        NotePass(name, heuristics, task.m_bSafeMode);
    };
    task.m_callbacks.onText = [this](const std::string& text) {
        const std::lock_guard guard(m_lock);
        m_noted.text = text;
    };
}

void CProgressLog::NoteFirstMove(TMove move, int index, int count) {
    const std::lock_guard guard(m_lock);
    m_noted.moveInHand = move;
    m_noted.firstMoves = count;
    m_firstMovesTaken = std::max(m_firstMovesTaken, index + 1);
}

void CProgressLog::NotePass(const std::string& name, const std::string& heuristics,
                            bool bSafeMode) {
    const std::lock_guard guard(m_lock);
    if (!m_noted.passes.empty()) {
        m_noted.passes.back().bRunning = false;
    }
    m_noted.passes.push_back({.name = name, .heuristics = heuristics, .bRunning = true});
    m_noted.bSafeMode = bSafeMode;
    m_noted.text.clear();
    m_firstMovesTaken = 0;
}

void CProgressLog::NoteKey(TMove key) {
    const std::lock_guard guard(m_lock);
    m_noted.keys.push_back(key);
    if (!m_noted.passes.empty()) {
        ++m_noted.passes.back().keysFound;
    }
}

void CProgressLog::NoteEnd() {
    const std::lock_guard guard(m_lock);
    m_noted.text.clear();
    if (!m_noted.passes.empty()) {
        m_noted.passes.back().bRunning = false;
    }
}

void CProgressLog::CopyTo(TProgress& progress) const {
    const int inHand = std::max(1, static_cast<int>(progress.threads.size()));
    const std::lock_guard guard(m_lock);
    progress.moveInHand = m_noted.moveInHand;
    progress.firstMoves = m_noted.firstMoves;
    progress.firstMovesDone = std::max(0, m_firstMovesTaken - inHand);
    progress.passes = m_noted.passes;
    progress.keys = m_noted.keys;
    progress.text = m_noted.text;
    progress.bSafeMode = m_noted.bSafeMode;
}

}  // namespace tarnwick
