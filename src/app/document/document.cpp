#include "app/document/document.h"

#include <algorithm>
#include <utility>

#include "base/encoding.h"

#include "app/document/document_texts.h"
#include "chess/fen.h"
#include "chess/prepare_position.h"
#include "problems/cp_problem_reader.h"

namespace tarnwick {

CDocument::CDocument() : m_pList(std::make_unique<TProblemList>()) {}

// The file.

void CDocument::Replace(std::filesystem::path path, std::unique_ptr<TProblemList> pList,
                        TReadLosses losses) {
    m_path = std::move(path);
    m_pCurrent = nullptr;
    m_pList = std::move(pList);
    m_losses = std::move(losses);
    m_ids.clear();
    for (const TChessProblem* pProblem : m_pList->Problems()) {
        m_ids.push_back(pProblem->m_id);
    }
    m_viewed.Clear();
    m_filter.ForgetAll();
    m_histories.clear();
    m_unsaved.clear();
    m_removed.clear();
    ++m_nRevision;
    GoToFirst();
}

void CDocument::MarkSaved(const std::filesystem::path& path) {
    m_path = path;
    std::erase_if(m_histories, [this](const auto& entry) { return !m_pList->Find(entry.first); });
    for (auto& [id, history] : m_histories) {
        history.MarkSaved();
    }
    m_unsaved.clear();
    m_removed.clear();
    m_losses = {};
    ++m_nRevision;
}

bool CDocument::HasUnsavedPosition(int id) const {
    const CEditHistory* pHistory = FindHistory(id);
    if (pHistory == nullptr) {
        return false;
    }
    return pHistory->Saved() == nullptr || pHistory->Saved()->fields != pHistory->Present().fields;
}

std::optional<std::string> CDocument::SavedPlacement(int id) const {
    const CEditHistory* pHistory = FindHistory(id);
    if (pHistory == nullptr) {
        return WriteFen(*m_pList->Find(id)->m_pBoard, true);
    }
    if (pHistory->Saved() == nullptr) {
        return std::nullopt;
    }
    TChessboard board{};
    std::ranges::copy(pHistory->Saved()->fields, board.m_fields);
    return WriteFen(board, true);
}

// Going through the problems.

std::size_t CDocument::IndexOf(int id) const {
    return static_cast<std::size_t>(std::ranges::lower_bound(m_ids, id) - m_ids.begin());
}

void CDocument::Show(int id) {
    m_pCurrent = m_pList->Find(id);
}

bool CDocument::GoTo(int id) {
    if (m_pList->Find(id) == nullptr) {
        return false;
    }
    Show(id);
    m_viewed.Visit(id);
    return true;
}

bool CDocument::GoToIndex(std::size_t index) {
    return index < m_ids.size() && GoTo(m_ids[index]);
}

bool CDocument::GoToFirst() {
    return GoToIndex(0);
}

bool CDocument::GoToLast() {
    return !m_ids.empty() && GoTo(m_ids.back());
}

bool CDocument::GoToNext() {
    return m_pCurrent != nullptr && GoToIndex(IndexOf(m_pCurrent->m_id) + 1);
}

bool CDocument::GoToPrevious() {
    const std::size_t index = m_pCurrent == nullptr ? 0 : IndexOf(m_pCurrent->m_id);
    return index > 0 && GoToIndex(index - 1);
}

bool CDocument::GoBack() {
    const int id = m_viewed.Back([this](int viewed) { return m_pList->Find(viewed) != nullptr; });
    if (id >= 0) {
        Show(id);
    }
    return id >= 0;
}

bool CDocument::GoForward() {
    const int id =
        m_viewed.Forward([this](int viewed) { return m_pList->Find(viewed) != nullptr; });
    if (id >= 0) {
        Show(id);
    }
    return id >= 0;
}

std::vector<int> CDocument::Filtered(std::wstring_view words) {
    return m_filter.Matching(m_pList->Problems(), words);
}

std::set<std::wstring> CDocument::KnownTags() const {
    std::set<std::wstring> tags = m_offeredTags;
    for (const TChessProblem* pProblem : m_pList->Problems()) {
        tags.insert(pProblem->m_tags.begin(), pProblem->m_tags.end());
    }
    return tags;
}

void CDocument::AddKnownTags(const std::set<std::wstring>& tags) {
    m_offeredTags.insert(tags.begin(), tags.end());
}

// Changes.

const CEditHistory* CDocument::FindHistory(int id) const {
    const auto found = m_histories.find(id);
    return found == m_histories.end() ? nullptr : &found->second;
}

CEditHistory& CDocument::HistoryOf(const TChessProblem& problem) {
    const auto found = m_histories.find(problem.m_id);
    if (found != m_histories.end()) {
        return found->second;
    }
    return m_histories.try_emplace(problem.m_id, StateOf(problem), true).first->second;
}

void CDocument::NoteChange(int id) {
    if (m_histories.at(id).IsSaved()) {
        m_unsaved.erase(id);
    } else {
        m_unsaved.insert(id);
    }
    m_filter.Forget(id);
    ++m_nRevision;
}

bool CDocument::Edit(const TChange& change) {
    return m_pCurrent != nullptr && EditProblem(m_pCurrent->m_id, change);
}

bool CDocument::EditProblem(int id, const TChange& change) {
    TChessProblem* pProblem = m_pList->Find(id);
    if (pProblem == nullptr) {
        return false;
    }
    CEditHistory& history = HistoryOf(*pProblem);
    try {
        change(*pProblem);
    } catch (...) {
        RestoreState(*pProblem, history.Present());
        throw;
    }
    if (!history.Note(StateOf(*pProblem))) {
        return false;
    }
    NoteChange(id);
    return true;
}

bool CDocument::CanUndo() const {
    const CEditHistory* pHistory = m_pCurrent == nullptr ? nullptr : FindHistory(m_pCurrent->m_id);
    return pHistory != nullptr && pHistory->CanUndo();
}

bool CDocument::CanRedo() const {
    const CEditHistory* pHistory = m_pCurrent == nullptr ? nullptr : FindHistory(m_pCurrent->m_id);
    return pHistory != nullptr && pHistory->CanRedo();
}

bool CDocument::Undo() {
    if (!CanUndo()) {
        return false;
    }
    RestoreState(*m_pCurrent, HistoryOf(*m_pCurrent).Undo());
    NoteChange(m_pCurrent->m_id);
    return true;
}

bool CDocument::Redo() {
    if (!CanRedo()) {
        return false;
    }
    RestoreState(*m_pCurrent, HistoryOf(*m_pCurrent).Redo());
    NoteChange(m_pCurrent->m_id);
    return true;
}

int CDocument::NextFreeId() const {
    if (m_ids.empty()) {
        return 1;
    }
    if (m_ids.back() < MaxProblemId) {
        return m_ids.back() + 1;
    }
    int id = 1;  // the last number is taken: the lowest free one
    while (m_pList->Find(id) != nullptr) {
        ++id;
    }
    return id;
}

void CDocument::Insert(std::unique_ptr<TChessProblem> pProblem) {
    const int id = pProblem->m_id;
    m_ids.insert(m_ids.begin() + static_cast<std::ptrdiff_t>(IndexOf(id)), id);
    m_pList->Insert(std::move(pProblem));
}

int CDocument::Add(std::unique_ptr<TChessProblem> pProblem) {
    const int id = NextFreeId();
    pProblem->m_id = id;
    m_histories.insert_or_assign(id, CEditHistory(StateOf(*pProblem), false));
    Insert(std::move(pProblem));
    NoteChange(id);
    if (m_pCurrent == nullptr) {
        GoTo(id);
    }
    return id;
}

TChessProblem& CDocument::AddNewProblem() {
    auto pProblem = std::make_unique<TChessProblem>();
    SetPlies(*pProblem, PliesOfStipulation(TProblemType::DirectMate, 2));
    SetDescription(*pProblem, FromUtf8(UserText(NewDescriptionText)));
    pProblem->m_pBoard->m_fields[E1] = WhiteKing;
    pProblem->m_pBoard->m_fields[E8] = BlackKing;
    PreparePosition(*pProblem->m_pBoard, true);
    pProblem->m_originalBoard = *pProblem->m_pBoard;
    GoTo(Add(std::move(pProblem)));
    return *m_pCurrent;
}

std::unique_ptr<TChessProblem> CDocument::Take(int id) {
    if (m_pList->Find(id) == nullptr) {
        return nullptr;
    }
    if (const std::optional<std::string> placement = SavedPlacement(id)) {
        m_removed.insert_or_assign(id, *placement);
    }
    m_unsaved.erase(id);
    m_filter.Forget(id);
    const std::size_t index = IndexOf(id);
    m_ids.erase(m_ids.begin() + static_cast<std::ptrdiff_t>(index));
    ++m_nRevision;
    std::unique_ptr<TChessProblem> pTaken = m_pList->Remove(id);
    if (m_pCurrent == pTaken.get()) {
        m_pCurrent = nullptr;
        static_cast<void>(GoToIndex(index) || GoToLast());
    }
    return pTaken;
}

void CDocument::PutBack(std::unique_ptr<TChessProblem> pProblem) {
    const int id = pProblem->m_id;
    HistoryOf(*pProblem);
    Insert(std::move(pProblem));
    m_removed.erase(id);
    NoteChange(id);
}

void CDocument::TranslateMainVariants() {
    for (TChessProblem* pProblem : m_pList->Problems()) {
        TranslateMainVariant(*pProblem);
    }
}

}  // namespace tarnwick
