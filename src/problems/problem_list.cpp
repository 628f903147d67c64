#include "problems/problem_list.h"

namespace tarnwick {

bool TProblemList::Insert(std::unique_ptr<TChessProblem> pProblem) {
    const std::scoped_lock guard(m_lock);
    m_tags.insert(pProblem->m_tags.begin(), pProblem->m_tags.end());
    std::unique_ptr<TChessProblem>& place = m_problems[pProblem->m_id];
    const bool bReplaced = place != nullptr;
    place = std::move(pProblem);
    return bReplaced;
}

std::unique_ptr<TChessProblem> TProblemList::Remove(int id) {
    const std::scoped_lock guard(m_lock);
    const auto found = m_problems.find(id);
    if (found == m_problems.end()) {
        return nullptr;
    }
    std::unique_ptr<TChessProblem> pProblem = std::move(found->second);
    m_problems.erase(found);
    return pProblem;
}

TChessProblem* TProblemList::Find(int id) const {
    const std::scoped_lock guard(m_lock);
    const auto found = m_problems.find(id);
    return found == m_problems.end() ? nullptr : found->second.get();
}

std::vector<TChessProblem*> TProblemList::Problems() const {
    const std::scoped_lock guard(m_lock);
    std::vector<TChessProblem*> problems;
    problems.reserve(m_problems.size());
    for (const auto& [id, pProblem] : m_problems) {
        problems.push_back(pProblem.get());
    }
    return problems;
}

std::size_t TProblemList::Size() const {
    const std::scoped_lock guard(m_lock);
    return m_problems.size();
}

std::set<std::wstring> TProblemList::Tags() const {
    const std::scoped_lock guard(m_lock);
    return m_tags;
}

void TProblemList::Clear() {
    const std::scoped_lock guard(m_lock);
    m_problems.clear();
    m_tags.clear();
}

}  // namespace tarnwick
