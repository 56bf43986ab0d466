#pragma once

#include "corvexkit/time/CXClock.h"
#include "model/store/KWTaskListItemModel.h"
#include "views/tasklist/TaskDateText.h"

#include <QAbstractListModel>
#include <QHash>
#include <QList>

struct RowPlan;

/// The rows of a task list for Qt's views. Main thread only.
class TaskListModel : public QAbstractListModel {
    Q_OBJECT

public:
    enum Role { SidRole = Qt::UserRole };

    explicit TaskListModel(CXClock &clock, QObject *parent = nullptr);

    const QList<KWTaskListItemModel> &rows() const { return m_rows; }
    const KWTaskListItemModel &rowAt(const QModelIndex &index) const { return m_rows.at(index.row()); }
    /// The index of that row, or an invalid one.
    QModelIndex indexOf(const QString &sid) const;

    /// Takes the new rows. What can be told as a few removals, moves and insertions is told so, and
    /// changed rows as changed; selection and scroll position live through it. Lists that share
    /// little are reset.
    void setRows(QList<KWTaskListItemModel> rows);

    /// Names to show of the lists rows belong to, by list id; rows of other lists show none. Views of
    /// one list give none at all.
    void setListNames(QHash<QString, QString> names);
    QString listName(const KWTaskListItemModel &row) const { return m_listNames.value(row.projectID); }

    /// Labels of tags by name; a tag without one shows its name.
    void setTagLabels(QHash<QString, QString> labels);
    QString tagLabel(const QString &name) const { return m_tagLabels.value(name, name); }

    TaskDateText dateTextOf(const KWTaskListItemModel &row) const;
    /// Tells views that words for dates may read differently now: a minute has passed.
    void refreshDates();

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

Q_SIGNALS:
    /// Around every setRows() that changes which rows there are or their order.
    void rowsAboutToChange();
    void rowsDidChange();

private:
    void carryOut(const RowPlan &plan, const QList<KWTaskListItemModel> &rows);
    bool isOneRangeOnly(const RowPlan &plan, const QList<KWTaskListItemModel> &rows) const;
    void announceChangedRows(const QList<KWTaskListItemModel> &rows);
    void allChanged();
    QString spokenText(const KWTaskListItemModel &row) const;

    CXClock &m_clock;
    QList<KWTaskListItemModel> m_rows;
    QHash<QString, QString> m_listNames;
    QHash<QString, QString> m_tagLabels;
};
