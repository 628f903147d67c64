#pragma once
// The rows of the move list as the toolkit's tables take them: number, White's move, Black's move. Comments
// and the mark of a variant come by roles of their own, which the list's painter reads.

#include <QAbstractTableModel>
#include <QStyledItemDelegate>
#include <vector>

#include "app/document/played_line.h"

namespace tarnwick {

enum TMoveRole {
    CommentRole = Qt::UserRole,  ///< Text of the comment; invalid without one.
    InVariantRole                ///< Whether the line to this move belongs to a variant.
};

class CMoveListModel : public QAbstractTableModel {
    Q_OBJECT

  public:
    static constexpr int NumberColumn = 0;
    static constexpr int WhiteColumn = 1;
    static constexpr int BlackColumn = 2;
    static constexpr int ColumnCount = 3;

    explicit CMoveListModel(QObject* pParent) : QAbstractTableModel(pParent) {}

    void SetRows(std::vector<TMoveRow> rows);
    /// The half-move of the cell, from 1; 0 for a cell without one.
    int PlyAt(const QModelIndex& index) const;
    /// The cell of the position on show; invalid at the start of the line.
    QModelIndex CurrentCell() const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

  private:
    const TMoveCell* CellAt(const QModelIndex& index) const;

    std::vector<TMoveRow> m_rows;
};

/// Paints a move, in bold if it belongs to a variant, and behind it as much of its comment as fits.
class CMoveDelegate : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;
    void initStyleOption(QStyleOptionViewItem* pOption, const QModelIndex& index) const override;
    void paint(QPainter* pPainter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
};

}  // namespace tarnwick
