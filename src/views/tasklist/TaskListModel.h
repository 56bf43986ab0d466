#pragma once

#include "corvexkit/time/CXClock.h"
#include "lists/TaskListRows.h"
#include "views/tasklist/SectionLook.h"
#include "views/tasklist/TaskDateText.h"

#include <QAbstractListModel>
#include <QHash>
#include <QList>

struct RowPlan;

/// The rows of a task list for Qt's views: sections, tasks, and the row that loads more. Main thread only.
class TaskListModel : public QAbstractListModel {
    Q_OBJECT

public:
    enum Role { IdRole = Qt::UserRole };

    explicit TaskListModel(CXClock &clock, QObject *parent = nullptr);

    const QList<TaskListRow> &rows() const { return m_rows; }
    /// Those rows that are tasks, not items of a checklist.
    QList<KWTaskListItemModel> tasks() const;
    const TaskListRow &rowAt(const QModelIndex &index) const { return m_rows.at(index.row()); }
    /// A row that can be selected: a task, an item of a checklist, an event.
    bool isEntry(const QModelIndex &index) const;
    /// The index of that row, or an invalid one.
    QModelIndex indexOf(const QString &id) const;

    /// Takes the new rows. What can be told as a few removals, moves and insertions is told so, and
    /// changed rows as changed; selection and scroll position live through it. Lists that share
    /// little are reset.
    /// `looks` are by the index of the section, see TaskListRow::category.
    void setRows(QList<TaskListRow> rows, QList<SectionLook> looks = {});
    SectionLook lookOf(const TaskListRow &section) const { return m_looks.value(section.category); }

    /// Names to show of the lists and calendars rows belong to, by list id; rows of other lists show none.
    /// Views of one list give none at all.
    void setListNames(QHash<QString, QString> names);
    QString listName(const KWTaskListItemModel &row) const { return m_listNames.value(row.projectID); }

    /// Labels of tags by name; a tag without one shows its name.
    void setTagLabels(QHash<QString, QString> labels);
    QString tagLabel(const QString &name) const { return m_tagLabels.value(name, name); }

    /// Of a task, an item or an event.
    TaskDateText dateTextOf(const TaskListRow &row) const;
    /// Whether a date says what is due: not in the trash, where none is overdue.
    void setHasDueDates(bool hasDueDates);
    /// "5 of 8 cups", "12 day streak"; empty where there is nothing to say.
    QString progressOf(const KWTaskListItemModel &habit) const;
    /// Tells views that words for dates may read differently now: a minute has passed.
    void refreshDates();

    QStringList mimeTypes() const override;
    /// The tasks among the rows.
    QMimeData *mimeData(const QModelIndexList &indexes) const override;
    Qt::DropActions supportedDropActions() const override { return Qt::MoveAction; }

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

Q_SIGNALS:
    /// Around every setRows() that changes which rows there are or their order.
    void rowsAboutToChange();
    void rowsDidChange();

private:
    void carryOut(const RowPlan &plan, const QList<TaskListRow> &rows);
    bool isOneRangeOnly(const RowPlan &plan, const QList<TaskListRow> &rows) const;
    void announceChangedRows(const QList<TaskListRow> &rows);
    void allChanged();
    QString spokenText(const TaskListRow &row) const;
    QString spokenTask(const TaskListRow &row) const;
    QString spokenEvent(const TaskListRow &row) const;
    QString spokenHabit(const KWTaskListItemModel &habit) const;

    CXClock &m_clock;
    QList<TaskListRow> m_rows;
    QList<SectionLook> m_looks;
    QHash<QString, QString> m_listNames;
    QHash<QString, QString> m_tagLabels;
    bool m_hasDueDates = true;
};
