#include "views/tasklist/TaskListModel.h"

#include "model/records/PriorityNames.h"
#include "model/settings/KWLocalizedString.h"
#include "model/text/DisplayTitle.h"
#include "views/focus/FocusWording.h"
#include "views/habits/HabitPhrases.h"
#include "views/tasklist/RowPlan.h"
#include "views/tasklist/TaskMimeData.h"

using namespace Qt::StringLiterals;

namespace {

// Above this many steps a view redraws faster from scratch than step by step.
constexpr std::size_t mostSteps = 32;

QString statusName(KWTaskStatus status)
{
    return KWLocalizedString(status == KWTaskStatusAbandoned ? "Abandoned" : "Completed");
}

// Of a section.
QString spokenCount(const TaskListRow &row)
{
    struct Texts {
        const char *one;
        const char *several;
    };
    const auto texts = [&row]() -> Texts {
        switch (row.holds) {
        case TaskListRow::Holds::Notes:
            return {"Section with 1 note", "Section with %1 notes"};
        case TaskListRow::Holds::Events:
            return {"Section with 1 event", "Section with %1 events"};
        case TaskListRow::Holds::Habits:
            return {"Section with 1 habit", "Section with %1 habits"};
        case TaskListRow::Holds::Several:
            return {"Section with 1 row", "Section with %1 rows"};
        case TaskListRow::Holds::Tasks:
            break;
        }
        return {"Section with 1 task", "Section with %1 tasks"};
    }();
    if (row.count == 1) return KWLocalizedString(texts.one);
    return KWLocalizedString(texts.several).arg(row.count);
}

} // namespace

TaskListModel::TaskListModel(CXClock &clock, QObject *parent) : QAbstractListModel(parent), m_clock(clock) {}

QList<KWTaskListItemModel> TaskListModel::tasks() const
{
    QList<KWTaskListItemModel> tasks;
    for (const TaskListRow &each : m_rows)
        if (each.isTask()) tasks.append(each.task);
    return tasks;
}

bool TaskListModel::isEntry(const QModelIndex &index) const
{
    return index.isValid() && rowAt(index).kind == TaskListRow::Kind::Task;
}

QModelIndex TaskListModel::indexOf(const QString &id) const
{
    for (int i = 0; i < m_rows.size(); ++i)
        if (m_rows.at(i).id == id) return index(i);
    return {};
}

void TaskListModel::setRows(QList<TaskListRow> rows, QList<SectionLook> looks)
{
    if (std::exchange(m_looks, looks) != looks) allChanged();
    const auto plan = planRows(m_rows, rows, mostSteps);
    if (plan && plan->stepCount() == 0) {
        announceChangedRows(rows);
        return;
    }
    Q_EMIT rowsAboutToChange();
    if (plan) {
        carryOut(*plan, rows);
    } else {
        beginResetModel();
        m_rows = std::move(rows);
        endResetModel();
    }
    Q_EMIT rowsDidChange();
}

void TaskListModel::carryOut(const RowPlan &plan, const QList<TaskListRow> &rows)
{
    // The new list is shared then, not copied, which counts for a long one.
    const bool isWhole = isOneRangeOnly(plan, rows);
    for (const auto &[first, count] : plan.removals) {
        beginRemoveRows({}, first, first + count - 1);
        if (isWhole)
            m_rows = rows;
        else
            m_rows.remove(first, count);
        endRemoveRows();
    }
    for (const auto &[from, to] : plan.moves) {
        beginMoveRows({}, from, from, {}, to > from ? to + 1 : to);
        m_rows.move(from, to);
        endMoveRows();
    }
    for (const auto &[first, count] : plan.insertions) {
        beginInsertRows({}, first, first + count - 1);
        if (isWhole) {
            m_rows = rows;
        } else {
            m_rows.insert(first, count, {});
            std::copy_n(rows.begin() + first, count, m_rows.begin() + first);
        }
        endInsertRows();
    }
    if (!isWhole) announceChangedRows(rows);
}

// Whether all that happens is that one range of rows comes or goes.
bool TaskListModel::isOneRangeOnly(const RowPlan &plan, const QList<TaskListRow> &rows) const
{
    if (plan.stepCount() != 1 || !plan.moves.empty()) return false;
    const bool grows = plan.removals.empty();
    const auto [first, count] = grows ? plan.insertions.front() : plan.removals.front();
    const auto &longer = grows ? rows : m_rows;
    const auto &shorter = grows ? m_rows : rows;
    return std::equal(longer.begin(), longer.begin() + first, shorter.begin()) &&
           std::equal(longer.begin() + first + count, longer.end(), shorter.begin() + first);
}

void TaskListModel::announceChangedRows(const QList<TaskListRow> &rows)
{
    const QList<TaskListRow> before = std::exchange(m_rows, rows);
    for (int i = 0; i < rows.size();) {
        int end = i;
        while (end < rows.size() && !(before.at(end) == rows.at(end)))
            ++end;
        if (end > i) Q_EMIT dataChanged(index(i), index(end - 1));
        i = end + 1;
    }
}

void TaskListModel::setListNames(QHash<QString, QString> names)
{
    if (names == m_listNames) return;
    m_listNames = std::move(names);
    allChanged();
}

void TaskListModel::setTagLabels(QHash<QString, QString> labels)
{
    if (labels == m_tagLabels) return;
    m_tagLabels = std::move(labels);
    allChanged();
}

void TaskListModel::setHasDueDates(bool hasDueDates)
{
    if (std::exchange(m_hasDueDates, hasDueDates) != hasDueDates) allChanged();
}

void TaskListModel::refreshDates() { allChanged(); }

void TaskListModel::allChanged()
{
    if (!m_rows.isEmpty()) Q_EMIT dataChanged(index(0), index(int(m_rows.size()) - 1));
}

TaskDateText TaskListModel::dateTextOf(const TaskListRow &row) const
{
    if (row.task.isEvent())
        return eventDateText(row.task, row.isUnderItsDay, m_clock.now(), m_clock.zone(), QLocale{});
    TaskDateText date = dateText(row.task, m_clock.now(), m_clock.zone(), QLocale{});
    if (!m_hasDueDates) date.tone = TaskDateText::Tone::Plain;
    return date;
}

QString TaskListModel::progressOf(const KWTaskListItemModel &habit) const
{
    return HabitPhrases::inRow(habit.habit, !habit.isClosed(), QLocale{});
}

int TaskListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_rows.size());
}

QVariant TaskListModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
    const TaskListRow &row = rowAt(index);
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return row.kind == TaskListRow::Kind::Task ? row.task.title : row.title;
    case Qt::AccessibleTextRole:
        return spokenText(row);
    case IdRole:
        return row.id;
    default:
        return {};
    }
}

Qt::ItemFlags TaskListModel::flags(const QModelIndex &index) const
{
    if (!index.isValid()) return Qt::ItemIsDropEnabled;
    const Qt::ItemFlags any = Qt::ItemIsEnabled | Qt::ItemNeverHasChildren | Qt::ItemIsDropEnabled;
    if (!isEntry(index)) return any;
    Qt::ItemFlags entry = any | Qt::ItemIsSelectable;
    if (rowAt(index).task.isTaskOrItem()) entry |= Qt::ItemIsEditable;
    return rowAt(index).isTask() ? entry | Qt::ItemIsDragEnabled : entry;
}

QStringList TaskListModel::mimeTypes() const { return {TaskMimeData::type}; }

QMimeData *TaskListModel::mimeData(const QModelIndexList &indexes) const
{
    QStringList ids, titles;
    for (const QModelIndex &each : indexes)
        if (rowAt(each).isTask()) {
            ids.append(rowAt(each).id);
            titles.append(displayTitle(rowAt(each).task.title));
        }
    return TaskMimeData::make(ids, titles);
}

QString TaskListModel::spokenText(const TaskListRow &row) const
{
    QStringList parts;
    switch (row.kind) {
    case TaskListRow::Kind::LoadMore:
        return row.title.isEmpty() ? KWLocalizedString("Show more completed tasks") : row.title;
    case TaskListRow::Kind::Section:
        parts = {row.title, spokenCount(row)};
        break;
    case TaskListRow::Kind::Task:
        parts = {row.task.isEvent()   ? spokenEvent(row)
                 : row.task.isHabit() ? spokenHabit(row.task)
                                      : spokenTask(row)};
        if (row.depth > 0) parts.append(KWLocalizedString("Level %1").arg(row.depth + 1));
        if (!row.hasChildren) return parts.join(u", "_s);
        break;
    }
    parts.append(row.isFolded ? KWLocalizedString("folded") : KWLocalizedString("unfolded"));
    return parts.join(u", "_s);
}

QString TaskListModel::spokenEvent(const TaskListRow &row) const
{
    QStringList parts{displayTitle(row.task.title), KWLocalizedString("Event"), dateTextOf(row).text};
    if (row.task.repeats) parts.append(KWLocalizedString("Repeats"));
    if (const QString calendar = listName(row.task); !calendar.isEmpty())
        parts.append(KWLocalizedString("Calendar: %1").arg(calendar));
    parts.append(KWLocalizedString("read only"));
    return parts.join(u", "_s);
}

QString TaskListModel::spokenHabit(const KWTaskListItemModel &habit) const
{
    QStringList parts{displayTitle(habit.title), KWLocalizedString("Habit")};
    if (habit.status == KWTaskStatusCompleted) parts.append(KWLocalizedString("Done"));
    if (habit.status == KWTaskStatusAbandoned) parts.append(KWLocalizedString("Not achieved"));
    if (const QString progress = progressOf(habit); !progress.isEmpty()) parts.append(progress);
    return parts.join(u", "_s);
}

QString TaskListModel::spokenTask(const TaskListRow &row) const
{
    const KWTaskListItemModel &task = row.task;
    QStringList parts{displayTitle(task.title)};
    if (task.isNote()) parts.append(KWLocalizedString("Note"));
    if (task.isChecklistItem())
        parts.append(KWLocalizedString("Checklist item of %1").arg(displayTitle(task.ownerTitle)));
    if (task.isClosed()) parts.append(statusName(task.status));
    if (task.priority != KWTaskPriorityNone && !task.isChecklistItem())
        parts.append(KWLocalizedString("Priority: %1").arg(displayName(task.priority)));
    if (const TaskDateText date = dateTextOf(row); !date.text.isEmpty()) {
        if (date.tone == TaskDateText::Tone::Overdue) parts.append(KWLocalizedString("Overdue"));
        parts.append(date.text);
    }
    if (task.isPinned()) parts.append(KWLocalizedString("Pinned"));
    if (task.repeats) parts.append(KWLocalizedString("Repeats"));
    if (task.checklistCount > 0)
        parts.append(
            KWLocalizedString("%1 of %2 items done").arg(task.checklistDoneCount).arg(task.checklistCount));
    if (task.attachmentCount > 0) parts.append(KWLocalizedString("%1 attachments").arg(task.attachmentCount));
    if (task.focusDuration > 0)
        parts.append(KWLocalizedString("Focused: %1")
                         .arg(FocusWording::spokenLength(std::chrono::seconds{task.focusDuration})));
    for (const QString &tag : task.tags)
        parts.append(u'#' + tagLabel(tag));
    if (const QString list = listName(task); !list.isEmpty())
        parts.append(KWLocalizedString("List: %1").arg(list));
    return parts.join(u", "_s);
}
