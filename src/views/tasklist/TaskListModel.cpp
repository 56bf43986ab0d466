#include "views/tasklist/TaskListModel.h"

#include "model/records/PriorityNames.h"
#include "model/settings/KWLocalizedString.h"
#include "model/text/DisplayTitle.h"
#include "views/tasklist/RowPlan.h"

using namespace Qt::StringLiterals;

namespace {

// Above this many steps a view redraws faster from scratch than step by step.
constexpr std::size_t mostSteps = 32;

QString statusName(KWTaskStatus status)
{
    return KWLocalizedString(status == KWTaskStatusAbandoned ? "Abandoned" : "Completed");
}

} // namespace

TaskListModel::TaskListModel(CXClock &clock, QObject *parent) : QAbstractListModel(parent), m_clock(clock) {}

QModelIndex TaskListModel::indexOf(const QString &sid) const
{
    for (int i = 0; i < m_rows.size(); ++i)
        if (m_rows.at(i).sid == sid) return index(i);
    return {};
}

void TaskListModel::setRows(QList<KWTaskListItemModel> rows)
{
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

void TaskListModel::carryOut(const RowPlan &plan, const QList<KWTaskListItemModel> &rows)
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
bool TaskListModel::isOneRangeOnly(const RowPlan &plan, const QList<KWTaskListItemModel> &rows) const
{
    if (plan.stepCount() != 1 || !plan.moves.empty()) return false;
    const bool grows = plan.removals.empty();
    const auto [first, count] = grows ? plan.insertions.front() : plan.removals.front();
    const auto &longer = grows ? rows : m_rows;
    const auto &shorter = grows ? m_rows : rows;
    return std::equal(longer.begin(), longer.begin() + first, shorter.begin()) &&
           std::equal(longer.begin() + first + count, longer.end(), shorter.begin() + first);
}

void TaskListModel::announceChangedRows(const QList<KWTaskListItemModel> &rows)
{
    const QList<KWTaskListItemModel> before = std::exchange(m_rows, rows);
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

void TaskListModel::refreshDates() { allChanged(); }

void TaskListModel::allChanged()
{
    if (!m_rows.isEmpty()) Q_EMIT dataChanged(index(0), index(int(m_rows.size()) - 1));
}

TaskDateText TaskListModel::dateTextOf(const KWTaskListItemModel &row) const
{
    return dateText(row, m_clock.now(), m_clock.zone(), QLocale{});
}

int TaskListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_rows.size());
}

QVariant TaskListModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
    const KWTaskListItemModel &row = rowAt(index);
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return row.title;
    case Qt::AccessibleTextRole:
        return spokenText(row);
    case SidRole:
        return row.sid;
    default:
        return {};
    }
}

Qt::ItemFlags TaskListModel::flags(const QModelIndex &index) const
{
    if (!index.isValid()) return Qt::NoItemFlags;
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsEditable | Qt::ItemNeverHasChildren;
}

QString TaskListModel::spokenText(const KWTaskListItemModel &row) const
{
    QStringList parts{displayTitle(row.title)};
    if (row.isClosed()) parts.append(statusName(row.status));
    if (row.priority != KWTaskPriorityNone)
        parts.append(KWLocalizedString("Priority: %1").arg(displayName(row.priority)));
    if (const TaskDateText date = dateTextOf(row); !date.text.isEmpty()) {
        if (date.tone == TaskDateText::Tone::Overdue) parts.append(KWLocalizedString("Overdue"));
        parts.append(date.text);
    }
    if (row.repeats) parts.append(KWLocalizedString("Repeats"));
    if (row.checklistCount > 0)
        parts.append(
            KWLocalizedString("%1 of %2 items done").arg(row.checklistDoneCount).arg(row.checklistCount));
    for (const QString &tag : row.tags)
        parts.append(u'#' + tagLabel(tag));
    if (const QString list = listName(row); !list.isEmpty())
        parts.append(KWLocalizedString("List: %1").arg(list));
    return parts.join(u", "_s);
}
