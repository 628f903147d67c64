#include "app/shell/problem_list_dialog.h"

#include <QCoreApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QTableView>
#include <QVBoxLayout>

#include "base/filled_text.h"

#include "app/document/document.h"
#include "app/shell/panel.h"
#include "app/shell/problem_list_model.h"
#include "app/shell/shell_texts.h"

namespace tarnwick {
namespace {

constexpr QSize DefaultSize(620, 420);
constexpr int TagsWidth = 150;

bool LeadsFromBoxToTable(int key) {
    return key == Qt::Key_Down || key == Qt::Key_Up || key == Qt::Key_PageDown ||
           key == Qt::Key_PageUp;
}

}  // namespace

CProblemListDialog::CProblemListDialog(CDocument& document, QWidget* pParent)
    : QDialog(pParent),
      m_document(document),
      m_pFilter(new QLineEdit(this)),
      m_pTable(new QTableView(this)),
      m_pCount(new QLabel(this)),
      m_pModel(new CProblemListModel(document, this)) {
    auto* pLayout = new QVBoxLayout(this);
    pLayout->addWidget(m_pFilter);
    pLayout->addWidget(m_pTable);
    pLayout->addWidget(m_pCount);
    m_pFilter->setClearButtonEnabled(true);
    m_pFilter->installEventFilter(this);
    connect(m_pFilter, &QLineEdit::textChanged, this, &CProblemListDialog::ApplyFilter);
    SetUpTable();
    resize(DefaultSize);
    Retranslate();
    SelectShownProblem();
}

void CProblemListDialog::SetUpTable() {
    m_pTable->setModel(m_pModel);
    m_pTable->setShowGrid(false);
    m_pTable->setAlternatingRowColors(true);
    m_pTable->setWordWrap(false);
    m_pTable->setTabKeyNavigation(false);
    m_pTable->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_pTable->setSelectionMode(QAbstractItemView::SingleSelection);
    m_pTable->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_pTable->verticalHeader()->hide();
    m_pTable->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    m_pTable->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
    QHeaderView& header = *m_pTable->horizontalHeader();
    header.setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    header.setHighlightSections(false);
    header.setSectionResizeMode(CProblemListModel::DescriptionColumn, QHeaderView::Stretch);
    m_pTable->installEventFilter(this);
    connect(m_pTable, &QTableView::doubleClicked, this, &CProblemListDialog::WantSelected);
}

void CProblemListDialog::Refresh() {
    ApplyFilter();
}

/// Keeps the row of the problem that was selected, if it is still there, else takes the first.
void CProblemListDialog::ApplyFilter() {
    const int selected = m_pModel->IdAt(m_pTable->currentIndex().row());
    m_pModel->SetIds(m_document.Filtered(m_pFilter->text().toStdWString()));
    const int row = m_pModel->RowOf(selected);
    if (m_pModel->rowCount() > 0) {
        m_pTable->selectRow(row < 0 ? 0 : row);
    }
    const std::vector<std::string> counts = {std::to_string(m_pModel->rowCount()),
                                             std::to_string(m_document.Count())};
    m_pCount->setText(QString::fromStdString(FilledText(CountText, counts)));
}

void CProblemListDialog::SelectShownProblem() {
    const TChessProblem* pCurrent = m_document.Current();
    const int row = pCurrent == nullptr ? -1 : m_pModel->RowOf(pCurrent->m_id);
    if (row >= 0) {
        m_pTable->selectRow(row);
        m_pTable->scrollTo(m_pModel->index(row, 0), QAbstractItemView::PositionAtCenter);
    }
}

void CProblemListDialog::WantSelected() {
    const int id = m_pModel->IdAt(m_pTable->currentIndex().row());
    if (id >= 0) {
        emit problemWanted(id);
    }
}

/// Enter goes to the problem from the box too, and the arrows move in the list while one types.
bool CProblemListDialog::eventFilter(QObject* pObject, QEvent* pEvent) {
    if (pEvent->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(pEvent)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            WantSelected();
            return true;
        }
        if (pObject == m_pFilter && LeadsFromBoxToTable(key)) {
            m_pTable->setFocus();
            QCoreApplication::sendEvent(m_pTable, pEvent);
            return true;
        }
    }
    return QDialog::eventFilter(pObject, pEvent);
}

void CProblemListDialog::changeEvent(QEvent* pEvent) {
    if (pEvent->type() == QEvent::LanguageChange) {
        Retranslate();
    }
    QDialog::changeEvent(pEvent);
}

void CProblemListDialog::Retranslate() {
    setWindowTitle(ShownText(ProblemListText));
    m_pFilter->setPlaceholderText(ShownText(FilterText));
    m_pFilter->setAccessibleName(ShownText(FilterText));
    m_pFilter->setToolTip(ShownText(FilterText));
    m_pTable->setAccessibleName(ShownText(ProblemListText));
    emit m_pModel->headerDataChanged(Qt::Horizontal, 0, CProblemListModel::ColumnCount - 1);
    const QFontMetrics metrics(m_pTable->horizontalHeader()->font());
    const int padding = 3 * metrics.averageCharWidth();
    m_pTable->setColumnWidth(CProblemListModel::NumberColumn,
                             metrics.horizontalAdvance("100000") + padding);
    m_pTable->setColumnWidth(CProblemListModel::StipulationColumn,
                             metrics.horizontalAdvance(ShownText(StipulationColumnText)) + padding);
    m_pTable->setColumnWidth(CProblemListModel::TagsColumn, TagsWidth);
    ApplyFilter();
}

}  // namespace tarnwick
