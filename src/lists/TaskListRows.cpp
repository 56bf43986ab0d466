#include "lists/TaskListRows.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

using Holds = TaskListRow::Holds;

Holds kindOf(const KWTaskListItemModel &row)
{
    if (row.isEvent()) return Holds::Events;
    return row.isHabit() ? Holds::Habits : Holds::Tasks;
}

Holds heldBy(const KWTaskCategory &section)
{
    const KWTaskCategory::Rows &rows = section.models();
    if (section.isNoteKind()) return Holds::Notes;
    if (rows.isEmpty()) return Holds::Tasks;
    const Holds held = kindOf(rows.first());
    return std::ranges::all_of(rows, [held](const auto &each) { return kindOf(each) == held; })
               ? held
               : Holds::Several;
}

bool takesTasks(const KWTaskCategory &section) { return section.isTaskKind() || section.isNoteKind(); }

void appendTasks(const KWTaskCategory &section, int index, const FoldedRows &folded, QList<TaskListRow> &rows)
{
    const KWTaskCategory::Rows &models = section.models();
    QStringList above; // the tasks in which the present one stands
    int hiddenBelow = -1;
    for (qsizetype i = 0; i < models.size(); ++i) {
        const KWTaskListItemModel &task = models.at(i);
        while (!above.isEmpty() && above.last() != task.parentId)
            above.removeLast();
        const int depth = int(above.size());
        above.append(task.sid);
        if (hiddenBelow >= 0 && depth > hiddenBelow) continue;
        hiddenBelow = -1;

        TaskListRow row{TaskListRow::Kind::Task, task.sid, index};
        row.task = task;
        row.depth = depth;
        row.isUnderItsDay = section.isSingleDate();
        row.takesTasks = takesTasks(section);
        row.hasChildren = i + 1 < models.size() && models.at(i + 1).parentId == task.sid;
        row.isFolded = row.hasChildren && folded.tasks.contains(task.sid);
        if (row.isFolded) hiddenBelow = depth;
        rows.append(std::move(row));
    }
}

} // namespace

QList<TaskListRow> flatRows(const QList<KWTaskCategory> &categories, const FoldedRows &folded)
{
    QList<TaskListRow> rows;
    bool isFolded = false; // the section, and the row that loads more of it
    for (int i = 0; i < categories.size(); ++i) {
        const KWTaskCategory &section = categories.at(i);
        if (section.isLoadMore()) {
            if (isFolded) continue;
            rows.append({TaskListRow::Kind::LoadMore, u"loadMore"_s, i, section.title()});
            rows.last().takesTasks = false;
            continue;
        }
        isFolded = !section.hidesHeader() && folded.collapsedCategories.contains(section.name());
        if (!section.hidesHeader()) {
            rows.append({TaskListRow::Kind::Section, u"section:"_s + section.name(), i, section.title(),
                         section.count(), isFolded, heldBy(section)});
            rows.last().takesTasks = takesTasks(section);
        }
        if (!isFolded) appendTasks(section, i, folded, rows);
    }
    return rows;
}
