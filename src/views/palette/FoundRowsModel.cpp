#include "views/palette/FoundRowsModel.h"

#include "model/text/DisplayTitle.h"

#include <algorithm>

void FoundRowsModel::setRows(QList<FoundRow> rows)
{
    beginResetModel();
    m_rows = std::move(rows);
    endResetModel();
}

QModelIndex FoundRowsModel::firstSelectable(int start) const
{
    for (int i = start; i < rowCount(); ++i)
        if (m_rows.at(i).kind != FoundRow::Kind::Heading) return index(i);
    return {};
}

QModelIndex FoundRowsModel::lastSelectable() const
{
    return rowCount() ? index(rowCount() - 1) : QModelIndex{}; // a heading is never the last
}

QModelIndex FoundRowsModel::indexOfTask(const QString &taskID) const
{
    const auto isIt = [&taskID](const FoundRow &each) {
        return each.kind == FoundRow::Kind::Task && each.id == taskID;
    };
    const auto found = std::ranges::find_if(m_rows, isIt);
    return found == m_rows.end() ? QModelIndex{} : index(int(found - m_rows.begin()));
}

int FoundRowsModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_rows.size());
}

QVariant FoundRowsModel::data(const QModelIndex &index, int role) const
{
    const FoundRow &row = rowAt(index);
    if (role == Qt::DisplayRole) return displayTitle(row.title);
    if (role == Qt::AccessibleTextRole)
        return row.note.isEmpty() ? displayTitle(row.title)
                                  : tr("%1, %2").arg(displayTitle(row.title), row.note);
    if (role == Qt::AccessibleDescriptionRole) return row.excerpt;
    return {};
}

Qt::ItemFlags FoundRowsModel::flags(const QModelIndex &index) const
{
    const bool isHeading = rowAt(index).kind == FoundRow::Kind::Heading;
    return isHeading ? Qt::ItemIsEnabled : Qt::ItemIsEnabled | Qt::ItemIsSelectable;
}
