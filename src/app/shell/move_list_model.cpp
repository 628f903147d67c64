#include "app/shell/move_list_model.h"

#include <QApplication>
#include <QPainter>
#include <utility>

#include "app/commands/tooltip_texts.h"
#include "app/shell/panel.h"
#include "app/shell/shell_texts.h"

namespace tarnwick {
namespace {

QString TooltipOf(const TMoveCell& cell) {
    const QString what = ShownText(cell.bInVariant ? ListedVariantMoveTooltip : ListedMoveTooltip);
    return cell.comment.empty() ? what : QString::fromStdWString(cell.comment) + "\n\n" + what;
}

/// What a listener hears: the move and its comment.
QString SpokenText(const TMoveCell& cell) {
    const QString move = QString::fromStdString(cell.text);
    return cell.comment.empty() ? move : move + ", " + QString::fromStdWString(cell.comment);
}

}  // namespace

/// A step in the line keeps the rows: the list must not jump, nor forget what the mouse holds in it.
void CMoveListModel::SetRows(std::vector<TMoveRow> rows) {
    if (rows.size() == m_rows.size() && !rows.empty()) {
        m_rows = std::move(rows);
        emit dataChanged(index(0, 0), index(rowCount() - 1, ColumnCount - 1));
        return;
    }
    beginResetModel();
    m_rows = std::move(rows);
    endResetModel();
}

const TMoveCell* CMoveListModel::CellAt(const QModelIndex& index) const {
    if (!index.isValid() || index.column() == NumberColumn || index.row() >= rowCount()) {
        return nullptr;
    }
    const TMoveRow& row = m_rows[static_cast<std::size_t>(index.row())];
    const TMoveCell& cell = index.column() == WhiteColumn ? row.white : row.black;
    return cell.nPly > 0 ? &cell : nullptr;
}

int CMoveListModel::PlyAt(const QModelIndex& index) const {
    const TMoveCell* pCell = CellAt(index);
    return pCell == nullptr ? 0 : pCell->nPly;
}

QModelIndex CMoveListModel::CurrentCell() const {
    for (int row = 0; row < rowCount(); ++row) {
        for (const int column : {WhiteColumn, BlackColumn}) {
            const TMoveCell* pCell = CellAt(index(row, column));
            if (pCell != nullptr && pCell->bCurrent) {
                return index(row, column);
            }
        }
    }
    return {};
}

int CMoveListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int CMoveListModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant CMoveListModel::data(const QModelIndex& index, int role) const {
    if (index.isValid() && index.column() == NumberColumn && role == Qt::DisplayRole) {
        return QString::fromStdString(m_rows[static_cast<std::size_t>(index.row())].number);
    }
    const TMoveCell* pCell = CellAt(index);
    if (pCell == nullptr) {
        return {};
    }
    switch (role) {
        case Qt::DisplayRole:
            return QString::fromStdString(pCell->text);
        case Qt::AccessibleTextRole:
            return SpokenText(*pCell);
        case Qt::ToolTipRole:
            return TooltipOf(*pCell);
        case CommentRole:
            return pCell->comment.empty() ? QVariant() : QString::fromStdWString(pCell->comment);
        case InVariantRole:
            return pCell->bInVariant;
        default:
            return {};
    }
}

QVariant CMoveListModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) {
        return {};
    }
    switch (section) {
        case WhiteColumn:
            return ShownText(WhiteColumnText);
        case BlackColumn:
            return ShownText(BlackColumnText);
        default:
            return ShownText(NumberColumnText);
    }
}

/// The keyboard goes from move to move, not over numbers and empty cells.
Qt::ItemFlags CMoveListModel::flags(const QModelIndex& index) const {
    return PlyAt(index) > 0 ? Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren
                            : Qt::NoItemFlags;
}

/// Numbers cannot be selected, but they are not less important for that.
void CMoveDelegate::initStyleOption(QStyleOptionViewItem* pOption, const QModelIndex& index) const {
    QStyledItemDelegate::initStyleOption(pOption, index);
    pOption->state |= QStyle::State_Enabled;
    pOption->font.setBold(index.data(InVariantRole).toBool());
    pOption->fontMetrics = QFontMetrics(pOption->font);
}

void CMoveDelegate::paint(QPainter* pPainter, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const {
    QStyledItemDelegate::paint(pPainter, option, index);
    const QString comment = index.data(CommentRole).toString();
    if (comment.isEmpty()) {
        return;
    }
    QStyleOptionViewItem move = option;
    initStyleOption(&move, index);
    const int used = move.fontMetrics.horizontalAdvance(move.text) + 10;
    const QRect room = option.rect.adjusted(used, 0, -2, 0);
    pPainter->save();
    pPainter->setPen(option.palette.color(QPalette::PlaceholderText));
    pPainter->drawText(room, Qt::AlignLeft | Qt::AlignVCenter,
                       option.fontMetrics.elidedText(comment, Qt::ElideRight, room.width()));
    pPainter->restore();
}

}  // namespace tarnwick
