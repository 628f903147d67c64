#include "registers/chessboard_register.h"

#include "base/chess_exception.h"
#include "base/little_endian.h"

#include "registers/register_texts.h"

namespace tarnwick {
namespace {

bool IsDefence(std::uint16_t plies) {
    return plies % 2 == 0;
}

/// Whether what an entry says also holds for another number of plies. A mate stays one with more plies and
/// a missing mate stays missing with fewer; a defence that holds long also holds shorter, and where there
/// is none for few plies there is none for more.
bool Follows(std::uint16_t entryPlies, bool bEntryAnswer, std::uint16_t plies) {
    const bool bHoldsUpward = bEntryAnswer != IsDefence(entryPlies);
    return bHoldsUpward ? plies >= entryPlies : plies <= entryPlies;
}

}  // namespace

TSolvedProblemSummary::TSolvedProblemSummary() noexcept {
    for (const int offset : MarkerOffsets) {
        StoreLittleEndian<std::uint32_t>(m_block.data() + offset,
                                         TSubproblemRegisterInfo<bool>::MoveMarker);
    }
}

// --- Root and clearing ---

void TChessboardRegister<bool>::SetRootPosition(const TChessboard& position) {
    const TChessboardRegisterItem root = ItemOf(position);
    if (root == m_root) {
        return;
    }
    m_rootId = TChessboardId::Build(position);
    m_root = root;
    ClearMaps();
    if (!bNoFile && m_pFiles != nullptr) {
        LoadFiles();
    }
}

void TChessboardRegister<bool>::LoadFiles() {
    // A file may hold what an insert would have removed, and is to come back as it was written.
    bRemoveDominated = false;
    try {
        m_pFiles->LoadAnswers(*this);
    } catch (...) {
        bRemoveDominated = true;
        throw;
    }
    bRemoveDominated = true;
    m_pFiles->LoadSummary(*this);
}

void TChessboardRegister<bool>::ClearMaps() {
    const TRegisterWriteGuard guard(m_lock);
    m_answers.clear();
    m_summary.m_block[TSolvedProblemSummary::SolvedByte] = 0;
    m_summary.m_moves.clear();
    m_elements.exchange(0);
    m_secondCount.exchange(0);
    bKeepShortMovers = true;
}

// --- Limits ---

void TChessboardRegister<bool>::UpdateLimits(const TRegisterLimits& limits) noexcept {
    m_memoryLimit = limits.m_memoryLimit;
    m_dataBudget = limits.m_dataBudget;
    m_maxElements = limits.m_maxElements;
}

std::uint32_t TChessboardRegister<bool>::CountAgainstLimit() const noexcept {
    return m_pOwner != nullptr ? m_pOwner->ElementCount() : ElementCount();
}

void TChessboardRegister<bool>::MakeRoom() noexcept {
    if (m_pOwner != nullptr) {
        m_pOwner->MakeRoom();
    }
}

bool TChessboardRegister<bool>::MayInsert(std::uint16_t nMoves) noexcept {
    if (!bKeepShortMovers && nMoves < 4) {
        return false;
    }
    if (CountAgainstLimit() >= MaxElements()) {
        MakeRoom();
    }
    return CountAgainstLimit() < MaxElements();
}

// --- Queries ---

TSolvedAnswer TChessboardRegister<bool>::FindUnlocked(std::uint16_t nMoves,
                                                      const TChessboardRegisterItem& position,
                                                      TMove* pMove) const {
    for (const auto& [plies, positions] : m_answers) {
        if (IsDefence(plies) != IsDefence(nMoves)) {
            continue;
        }
        const auto entry = positions.find(position);
        if (entry != positions.end() && Follows(plies, entry->second.m_answer, nMoves)) {
            if (pMove != nullptr) {
                *pMove = entry->second.m_move;
            }
            return entry->second.m_answer ? TSolvedAnswer::Yes : TSolvedAnswer::No;
        }
    }
    return TSolvedAnswer::Unknown;
}

TSolvedAnswer TChessboardRegister<bool>::FindAnswer(std::uint16_t nMoves,
                                                    const TChessboardRegisterItem& position) const {
    const TRegisterReadGuard guard(m_lock);
    return FindUnlocked(nMoves, position, nullptr);
}

TSolvedAnswer TChessboardRegister<bool>::FindDefenceAnswer(std::uint16_t nMoves,
                                                           const TChessboardRegisterItem& position,
                                                           TMove* pMove) const {
    const TRegisterReadGuard guard(m_lock);
    return FindUnlocked(nMoves, position, pMove);
}

// --- Inserts ---

void TChessboardRegister<bool>::Insert(std::uint16_t nMoves,
                                       const TChessboardRegisterItem& position, bool bThereIsMate,
                                       const TMove* pMove, bool bSave) {
    if (!MayInsert(nMoves)) {
        return;
    }
    const TRegisterWriteGuard guard(m_lock);
    InsertUnlocked(nMoves, position, bThereIsMate, pMove, bSave);
}

void TChessboardRegister<bool>::InsertDefence(std::uint16_t nMoves,
                                              const TChessboardRegisterItem& position,
                                              bool bDefenceExists, const TMove* pMove, bool bSave) {
    if (!MayInsert(nMoves)) {
        return;
    }
    const TRegisterWriteGuard guard(m_lock);
    InsertUnlocked(nMoves, position, bDefenceExists, pMove, bSave);
}

void TChessboardRegister<bool>::InsertUnlocked(std::uint16_t nMoves,
                                               const TChessboardRegisterItem& position,
                                               bool bAnswer, const TMove* pMove, bool bSave) {
    const TSolvedAnswer known = FindUnlocked(nMoves, position, nullptr);
    if (known != TSolvedAnswer::Unknown) {
        if ((known == TSolvedAnswer::Yes) != bAnswer) {
            throw ChessException(
                UserText(IsDefence(nMoves) ? IncoherentDefenceText : IncoherentAnswerText));
        }
        return;
    }
    TInfo info;
    info.m_plies = nMoves;
    info.m_move = pMove != nullptr ? *pMove : TMove{};
    info.m_answer = bAnswer;
    if (!m_answers[nMoves].emplace(position, info).second) {
        return;
    }
    if (!IsDefence(nMoves)) {
        ++m_elements;
    }
    if (bRemoveDominated) {
        RemoveDominated(nMoves, position, bAnswer);
    }
    if (bSave && !bNoFile && m_pFiles != nullptr) {
        m_pFiles->SaveAnswers(*this);
    }
}

void TChessboardRegister<bool>::RemoveDominated(std::uint16_t nMoves,
                                                const TChessboardRegisterItem& position,
                                                bool bAnswer) {
    for (auto& [plies, positions] : m_answers) {
        if (plies == nMoves || IsDefence(plies) != IsDefence(nMoves) ||
            !Follows(nMoves, bAnswer, plies)) {
            continue;
        }
        const auto entry = positions.find(position);
        if (entry != positions.end() && entry->second.m_answer == bAnswer) {
            positions.erase(entry);
            if (!IsDefence(nMoves)) {
                --m_elements;
            }
        }
    }
}

}  // namespace tarnwick
