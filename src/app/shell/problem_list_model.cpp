#include "app/shell/problem_list_model.h"

#include <algorithm>
#include <utility>

#include "app/document/document.h"
#include "app/shell/panel.h"
#include "app/shell/shell_texts.h"
#include "app/view/problem_title.h"

namespace tarnwick {
namespace {

QString TagsOf(const TChessProblem& problem) {
    QStringList tags;
    for (const std::wstring& tag : problem.m_tags) {
        tags << QString::fromStdWString(tag);
    }
    return tags.join(", ");
}

QString CellOf(const TChessProblem& problem, int column) {
    switch (column) {
        case CProblemListModel::NumberColumn:
            return QString::number(problem.m_id);
        case CProblemListModel::StipulationColumn:
            return QString::fromStdString(StipulationText(problem));
        case CProblemListModel::DescriptionColumn:
            return QString::fromStdWString(problem.m_description);
        default:
            return TagsOf(problem);
    }
}

}  // namespace

CProblemListModel::CProblemListModel(const CDocument& document, QObject* pParent)
    : QAbstractTableModel(pParent), m_document(document) {}

void CProblemListModel::SetIds(std::vector<int> ids) {
    beginResetModel();
    m_ids = std::move(ids);
    endResetModel();
}

int CProblemListModel::IdAt(int row) const {
    return row >= 0 && row < rowCount() ? m_ids[static_cast<std::size_t>(row)] : -1;
}

int CProblemListModel::RowOf(int id) const {
    const auto place = std::ranges::lower_bound(m_ids, id);
    return place != m_ids.end() && *place == id ? static_cast<int>(place - m_ids.begin()) : -1;
}

int CProblemListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_ids.size());
}

int CProblemListModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant CProblemListModel::data(const QModelIndex& index, int role) const {
    const bool bText = role == Qt::DisplayRole || role == Qt::ToolTipRole;
    const TChessProblem* pProblem = m_document.Problems().Find(IdAt(index.row()));
    if (!bText || pProblem == nullptr) {
        return {};
    }
    return CellOf(*pProblem, index.column());
}

QVariant CProblemListModel::headerData(int section, Qt::Orientation orientation, int role) const {
    constexpr const TUserText* Titles[ColumnCount] = {&NumberColumnText, &StipulationColumnText,
                                                      &DescriptionColumnText, &TagsNameText};
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section >= ColumnCount) {
        return {};
    }
    return ShownText(*Titles[section]);
}

}  // namespace tarnwick
