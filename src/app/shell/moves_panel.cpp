#include "app/shell/moves_panel.h"

#include <QCheckBox>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QListWidget>
#include <QPainter>
#include <QTableView>
#include <algorithm>

#include "app/commands/tooltip_texts.h"
#include "app/shell/colours.h"
#include "app/shell/move_list_model.h"
#include "app/shell/shell_texts.h"
#include "app/shell/tag_chips.h"
#include "problems/variant.h"

namespace tarnwick {
namespace {

constexpr int Margin = 4;
constexpr int RowPadding = 3;

bool IsEnter(const QEvent& event) {
    if (event.type() != QEvent::KeyPress) {
        return false;
    }
    const int key = static_cast<const QKeyEvent&>(event).key();
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}

}  // namespace

std::vector<TVariantItem> VariantItems(const TChessProblem& problem) {
    std::vector<TVariantItem> items;
    for (const auto& [key, variant] : problem.m_variants) {
        items.push_back(
            {.key = key, .name = variant.m_name, .bMain = IsMainVariantName(variant.m_name)});
    }
    std::ranges::stable_sort(items, [](const TVariantItem& a, const TVariantItem& b) {
        return a.bMain != b.bMain ? a.bMain : a.name < b.name;
    });
    return items;
}

CMovesPanel::CMovesPanel(QWidget* pParent)
    : CPanel(pParent),
      m_pRemaining(new QCheckBox(this)),
      m_pMoves(new QTableView(this)),
      m_pModel(new CMoveListModel(this)),
      m_pVariants(new QListWidget(this)),
      m_pTags(new CTagChips(this)) {
    SetUpMoves();
    SetUpVariants();
    ConnectParts();
    Retranslate();
}

void CMovesPanel::SetUpMoves() {
    m_pMoves->setModel(m_pModel);
    m_pMoves->setItemDelegate(new CMoveDelegate(m_pMoves));
    m_pMoves->setShowGrid(false);
    m_pMoves->setFrameShape(QFrame::NoFrame);
    m_pMoves->setSelectionMode(QAbstractItemView::SingleSelection);
    m_pMoves->setTabKeyNavigation(false);
    m_pMoves->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_pMoves->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_pMoves->verticalHeader()->hide();
    m_pMoves->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    QHeaderView& header = *m_pMoves->horizontalHeader();
    header.setMinimumSectionSize(20);
    header.setSectionResizeMode(QHeaderView::Stretch);
    header.setSectionResizeMode(CMoveListModel::NumberColumn, QHeaderView::ResizeToContents);
    header.setHighlightSections(false);
    header.setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    m_pMoves->installEventFilter(this);
    m_pMoves->viewport()->installEventFilter(this);
}

void CMovesPanel::SetUpVariants() {
    m_pVariants->setFrameShape(QFrame::NoFrame);
    m_pVariants->setTextElideMode(Qt::ElideRight);
    m_pVariants->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_pVariants->installEventFilter(this);
    m_pVariants->viewport()->installEventFilter(this);
}

void CMovesPanel::ConnectParts() {
    connect(m_pRemaining, &QCheckBox::toggled, this, &CMovesPanel::remainingMovesChanged);
    connect(m_pMoves->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex& index) { GoTo(index); });
    connect(m_pVariants, &QListWidget::itemClicked, this,
            [this](QListWidgetItem* pItem) { WantVariant(m_pVariants->row(pItem)); });
    connect(m_pTags, &CTagChips::removalWanted, this, &CMovesPanel::tagRemovalWanted);
    connect(m_pTags, &CTagChips::moreWanted, this,
            [this] { emit commandWanted(TCommand::RemoveTag); });
}

// The moves.

void CMovesPanel::ShowMoves(const std::vector<TMoveRow>& rows) {
    m_bShowing = true;
    m_pModel->SetRows(rows);
    const QModelIndex current = m_pModel->CurrentCell();
    m_pMoves->selectionModel()->setCurrentIndex(current, QItemSelectionModel::ClearAndSelect);
    if (current.isValid()) {
        m_pMoves->scrollTo(current);
    } else {
        m_pMoves->scrollToTop();
    }
    m_bShowing = false;
}

bool CMovesPanel::RemainingMoves() const {
    return m_pRemaining->isChecked();
}

void CMovesPanel::GoTo(const QModelIndex& index) {
    const int nPly = m_pModel->PlyAt(index);
    if (nPly > 0 && !m_bShowing) {
        emit plyWanted(nPly);
    }
}

// The variants and tags.

void CMovesPanel::ShowVariants(std::vector<TVariantItem> items) {
    const std::wstring selected = SelectedVariant();
    m_items = std::move(items);
    m_pVariants->clear();
    for (const TVariantItem& item : m_items) {
        auto* pItem = new QListWidgetItem(QString::fromStdWString(item.name), m_pVariants);
        QFont font = m_pVariants->font();
        font.setBold(item.bMain);
        pItem->setFont(font);
        pItem->setToolTip(QString::fromStdWString(item.key));
        if (item.key == selected) {
            m_pVariants->setCurrentItem(pItem);
        }
    }
}

std::wstring CMovesPanel::SelectedVariant() const {
    const int row = m_pVariants->currentRow();
    return row < 0 ? std::wstring() : m_items[static_cast<std::size_t>(row)].key;
}

void CMovesPanel::WantVariant(int row) {
    if (row >= 0) {
        const std::wstring key = m_items[static_cast<std::size_t>(row)].key;
        emit variantWanted(key);
    }
}

void CMovesPanel::ShowTags(const QStringList& tags) {
    m_pTags->SetTags(tags);
}

// Both lists.

bool CMovesPanel::eventFilter(QObject* pObject, QEvent* pEvent) {
    const bool bMoves = pObject == m_pMoves || pObject == m_pMoves->viewport();
    QAbstractItemView& view = bMoves ? static_cast<QAbstractItemView&>(*m_pMoves) : *m_pVariants;
    if (pEvent->type() == QEvent::ContextMenu) {
        OpenMenu(view, *static_cast<QContextMenuEvent*>(pEvent));
        return true;
    }
    if (IsEnter(*pEvent) && view.currentIndex().isValid()) {
        bMoves ? GoTo(view.currentIndex()) : WantVariant(m_pVariants->currentRow());
        return true;
    }
    // A right press only opens the menu: the board stays where it is.
    return bMoves && pEvent->type() == QEvent::MouseButtonPress &&
           static_cast<QMouseEvent*>(pEvent)->button() == Qt::RightButton;
}

void CMovesPanel::OpenMenu(QAbstractItemView& view, const QContextMenuEvent& event) {
    const bool bByKey = event.reason() == QContextMenuEvent::Keyboard;
    const QModelIndex index = bByKey ? view.currentIndex() : view.indexAt(event.pos());
    const QPoint place =
        bByKey ? view.viewport()->mapToGlobal(view.visualRect(index).center()) : event.globalPos();
    if (&view == m_pVariants) {
        if (!bByKey) {
            m_pVariants->setCurrentRow(index.isValid() ? index.row() : -1);
        }
        emit contextMenuWanted(TContextMenu::MainVariantButton, place);
    } else if (m_pModel->PlyAt(index) > 0) {
        m_nMenuPly = m_pModel->PlyAt(index);
        emit contextMenuWanted(TContextMenu::ListedMove, place);
    }
}

// Place and looks.

/// From top to bottom: the check box, the moves, the variants, the tags.
void CMovesPanel::Place(const TWindowLayout& layout) {
    const QRect moves = ToQRect(layout.moves);
    const QRect variants = ToQRect(layout.variants);
    setGeometry(moves.united(variants));
    const int row = fontMetrics().height() + RowPadding;
    const int inner = width() - 2 * Margin;
    m_pRemaining->setGeometry(Margin, 1, inner, row);
    m_pMoves->setGeometry(Margin, row + 2, inner, moves.height() - row - 2 - Margin);
    m_pMoves->verticalHeader()->setDefaultSectionSize(row);
    m_pMoves->horizontalHeader()->setFixedHeight(row);
    const int tags = fontMetrics().height() + 4;
    const int top = moves.height();
    m_pVariants->setGeometry(Margin, top, inner, variants.height() - tags - 2 * Margin);
    m_pTags->setGeometry(Margin, height() - tags - Margin, inner, tags);
}

void CMovesPanel::Retranslate() {
    m_pRemaining->setText(ShownText(RemainingMovesText));
    m_pRemaining->setToolTip(ShownText(RemainingMovesTooltip));
    m_pMoves->setAccessibleName(ShownText(MovesNameText));
    m_pMoves->setToolTip(ShownText(ListedMoveTooltip));
    m_pVariants->setAccessibleName(ShownText(VariantsNameText));
    m_pVariants->setToolTip(ShownText(VariantsNameText));
    m_pTags->Retranslate();
    emit m_pModel->headerDataChanged(Qt::Horizontal, 0, CMoveListModel::ColumnCount - 1);
}

void CMovesPanel::paintEvent(QPaintEvent* /*pEvent*/) {
    QPainter painter(this);
    painter.fillRect(rect(), ToQColor(Palette().panel));
    painter.setPen(ToQColor(Palette().border));
    painter.drawLine(rect().topLeft(), rect().bottomLeft());
    painter.drawLine(rect().topLeft(), rect().topRight());
}

}  // namespace tarnwick
