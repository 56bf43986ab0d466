#pragma once

#include "views/palette/FoundRow.h"

#include <QAbstractListModel>

/// What was found, as rows of a view. A row that cannot be used can be selected all the same, a heading
/// cannot.
class FoundRowsModel : public QAbstractListModel {
    Q_OBJECT

public:
    using QAbstractListModel::QAbstractListModel;

    void setRows(QList<FoundRow> rows);
    const FoundRow &rowAt(const QModelIndex &index) const { return m_rows.at(index.row()); }
    /// The first row from `start` on that can be selected; none when there is none.
    QModelIndex firstSelectable(int start = 0) const;
    QModelIndex lastSelectable() const;
    QModelIndex indexOfTask(const QString &taskID) const;

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

private:
    QList<FoundRow> m_rows;
};
