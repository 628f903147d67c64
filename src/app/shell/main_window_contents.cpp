// What the main window shows of the problem, the line, the solve and the file.

#include "app/shell/main_window.h"
#include "app/solving/known_position.h"
#include "app/view/problem_title.h"
#include "problems/file_text.h"

namespace tarnwick {

void CMainWindow::ShowTitle() {
    const TChessProblem* const pProblem = m_workbench.Document().Current();
    TTitle title = pProblem != nullptr ? TitleOf(*pProblem) : TTitle{};
    if (pProblem != nullptr && m_setup.IsActive() && m_setup.Moves() > 0) {
        TChessProblem shown;  // with the stipulation that is being set
        shown.m_id = pProblem->m_id;
        shown.m_type = pProblem->m_type;
        SetPlies(shown, PliesOfStipulation(shown.m_type, m_setup.Moves()));
        title.number = QString::fromStdString(TitleText(shown));
    }
    m_pTitleBar->ShowTitle(title);
    PlaceParts();
}

/// The panel of setting up takes the place of progress and moves.
void CMainWindow::ShowSetup() {
    const bool bActive = m_setup.IsActive();
    m_pSetup->setVisible(bActive);
    m_pProgress->setVisible(!bActive);
    m_pMoves->setVisible(!bActive);
    m_pStrip->setEnabled(!bActive);
    ShowTitle();
}

void CMainWindow::ShowProblemDetails() {
    QStringList tags;
    std::vector<TVariantItem> variants;
    if (const TChessProblem* const pProblem = m_workbench.Document().Current()) {
        for (const std::wstring& tag : pProblem->m_tags) {
            tags.append(QString::fromStdWString(tag));
        }
        variants = VariantItems(*pProblem);
    }
    m_pMoves->ShowTags(tags);
    m_pMoves->ShowVariants(std::move(variants));
}

void CMainWindow::ShowLine() {
    const TChessProblem* const pProblem = m_workbench.Document().Current();
    const CPlayedLine& line = m_workbench.Line();
    if (pProblem == nullptr) {
        m_pMoves->ShowMoves({});
        return;
    }
    const std::vector<TMoveRow> rows = line.Rows(*pProblem, m_pMoves->RemainingMoves());
    QString comment;
    for (const TMoveRow& row : rows) {
        for (const TMoveCell* pCell : {&row.white, &row.black}) {
            if (pCell->bCurrent && pCell->nPly > 0) {
                comment = QString::fromStdWString(pCell->comment);
            }
        }
    }
    m_pMoves->ShowMoves(rows);
    m_pStrip->ShowComment(comment);
    QString known;
    // A start that is no legal position has no future to tell about.
    if (line.WhyRefused(TMove{}) != TMoveRefusal::InvalidPosition) {
        const TKnownPosition position = LookUpPosition(line.Board(), m_solving.Register());
        known = QString::fromStdString(KnownPositionText(position, line.Board()));
    }
    m_pStrip->ShowKnown(known);
}

void CMainWindow::ShowProgress() {
    if (m_solving.IsRunning()) {
        m_pProgress->ShowProgress(m_solving.Progress(), m_solving.IsOfShownProblem());
    } else if (m_tables.IsRunning()) {
        m_pProgress->ShowText(QString::fromStdString(m_tables.ProgressText()));
    } else {
        m_pProgress->ShowText(QString::fromStdString(m_solving.LastAnswer()));
    }
}

void CMainWindow::ShowState() {
    const TWindowState state = m_workbench.State();
    m_pTitleBar->ShowState(state);
    m_pBottomBar->ShowState(state);
    setWindowModified(state.bUnsavedChanges);
}

void CMainWindow::ShowIndicator() {
    const CSolvingIndicator& indicator = m_solving.Indicator();
    m_pBottomBar->ShowIndicator(indicator.Icon());
    const TProgramIcon icon = indicator.State() == TIndicatorState::Running ? TProgramIcon::Running
                              : indicator.State() == TIndicatorState::Finished
                                  ? TProgramIcon::Finished
                                  : TProgramIcon::Normal;
    if (!m_bProgramIconSet || icon != m_programIcon) {
        m_bProgramIconSet = true;
        m_programIcon = icon;
        setWindowIcon(ProgramIcon(icon));
        m_tray.ShowIcon(icon);
    }
}

void CMainWindow::ShowFileName() {
    const std::string name = FileNameForMessage(m_workbench.Document().Path().filename());
    setWindowTitle(name.empty() ? QString("Tarnwick")
                                : QString("Tarnwick - %1[*]").arg(QString::fromStdString(name)));
}

}  // namespace tarnwick
