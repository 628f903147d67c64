#include "app/shell/workbench.h"

#include <algorithm>

#include "base/chess_exception.h"

#include "app/document/variants.h"

namespace tarnwick {
namespace {

bool SamePosition(const TChessboard& one, const TChessboard& other) {
    return std::equal(std::begin(one.m_fields), std::end(one.m_fields),
                      std::begin(other.m_fields)) &&
           one.m_shPlies == other.m_shPlies;
}

}  // namespace

CWorkbench::CWorkbench(TProgramSettings settings, CWindowDialog& dialog)
    : m_settings(std::move(settings)), m_dialog(dialog) {}

void CWorkbench::ShowProblem() {
    RestartLine();
    emit problemShown();
    emit lineChanged();
}

/// The start position, with the moves of the main variant before it for those who want to see them.
void CWorkbench::RestartLine() {
    m_nCuts = 0;
    const TChessProblem* const pProblem = m_document.Current();
    if (pProblem == nullptr) {
        m_line.Start(TChessProblem());
        return;
    }
    m_line.Start(*pProblem);
    const std::wstring* const pKey = FindMainVariant(*pProblem);
    if (pKey == nullptr || !m_settings.options.showMainVariant || m_line.Length() > 0) {
        return;
    }
    try {
        ShowVariant(pProblem->m_variants.at(*pKey), m_line);
    } catch (const ChessException&) {
        // A variant of another position: what can be played of it is in the line.
    }
    m_line.GoTo(0);
}

void CWorkbench::Edit(const CDocument::TChange& change) {
    if (m_document.Current() != nullptr) {
        EditProblem(m_document.Current()->m_id, change);
    }
}

void CWorkbench::EditProblem(int id, const CDocument::TChange& change) {
    try {
        if (m_document.EditProblem(id, change)) {
            m_nCuts = 0;
            ProblemChanged();
        }
    } catch (const ChessException& error) {
        m_dialog.Tell(error.what());
    }
}

void CWorkbench::ProblemChanged() {
    const TChessProblem* const pProblem = m_document.Current();
    const bool bSame = pProblem != nullptr && SamePosition(*pProblem->m_pBoard, m_line.BoardAt(0));
    if (!bSame) {
        RestartLine();
    }
    emit problemChanged();
    emit lineChanged();
}

bool CWorkbench::Play(TMove move) {
    const int nNext = m_line.Ply() + 1;
    const bool bCuts = nNext <= m_line.Length() && !m_line.BoardAt(nNext).m_lastMove.SameAs(move);
    const TMoveRefusal refusal = m_line.Play(move);
    if (refusal != TMoveRefusal::None) {
        Refuse(m_line.RefusalText(refusal, move));
        return false;
    }
    m_nCuts += bCuts ? 1 : 0;
    LineMoved();
    return true;
}

void CWorkbench::LineMoved() {
    emit lineChanged();
}

void CWorkbench::Undo() {
    if (m_nCuts > 0 && m_line.UndoCut()) {
        --m_nCuts;
        LineMoved();
        return;
    }
    m_nCuts = 0;
    if (m_document.Undo()) {
        ProblemChanged();
    }
}

void CWorkbench::Redo() {
    if (m_document.Redo()) {
        ProblemChanged();
    }
}

void CWorkbench::ChangeLanguage(LanguageId language) {
    g_language = language;
    m_settings.options.languageId = language;
    m_document.TranslateMainVariants();
    emit languageChanged();
    emit problemShown();
    emit lineChanged();
}

TWindowState CWorkbench::State() const {
    TWindowState state;
    const std::vector<int>& ids = m_document.Ids();
    state.nProblems = static_cast<int>(ids.size());
    if (const TChessProblem* const pProblem = m_document.Current()) {
        const auto place = std::ranges::lower_bound(ids, pProblem->m_id);
        state.nCurrent = static_cast<int>(place - ids.begin()) + 1;
        state.problemType = pProblem->m_type;
        state.bHasTags = !pProblem->m_tags.empty();
        state.bHasVariants = !pProblem->m_variants.empty();
        state.bHasMainVariant = FindMainVariant(*pProblem) != nullptr;
        const auto entries = EntriesOfLine(*pProblem, m_line.Moves(m_line.Ply()));
        state.bLastMoveInVariant = !entries.empty() && entries.back() != nullptr;
    }
    state.bCanUndo = CanUndo();
    state.bCanRedo = m_document.CanRedo();
    state.bUnsavedChanges = m_document.HasUnsavedChanges();
    state.bHasViewedBefore = m_document.HasViewedBefore();
    state.bHasViewedAfter = m_document.HasViewedAfter();
    state.bBlackToMove = !IsWhiteToMove(m_line.Board());
    state.bCanStepBack = m_line.Ply() > 0;
    state.bCanStepForward = m_line.Ply() < m_line.Length();
    state.language = m_settings.options.languageId;
    state.bManualEngineControl = m_settings.options.enableManualEngineControl;
    for (const TAddFacts& addFacts : m_facts) {
        addFacts(state);
    }
    return state;
}

}  // namespace tarnwick
