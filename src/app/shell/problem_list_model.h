#pragma once
// The problems of a list of numbers as the toolkit's tables take them. Each cell is asked from the document
// when it is painted, so a problem that is gone meanwhile shows an empty row and nothing worse.

#include <QAbstractTableModel>
#include <vector>

namespace tarnwick {

class CDocument;

class CProblemListModel : public QAbstractTableModel {
    Q_OBJECT

  public:
    static constexpr int NumberColumn = 0;
    static constexpr int StipulationColumn = 1;
    static constexpr int DescriptionColumn = 2;
    static constexpr int TagsColumn = 3;
    static constexpr int ColumnCount = 4;

    CProblemListModel(const CDocument& document, QObject* pParent);

    /// The numbers rise.
    void SetIds(std::vector<int> ids);
    /// -1 for no row.
    int IdAt(int row) const;
    /// -1 if the problem is not among them.
    int RowOf(int id) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  private:
    const CDocument& m_document;
    std::vector<int> m_ids;
};

}  // namespace tarnwick
