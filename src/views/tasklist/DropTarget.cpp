#include "views/tasklist/DropTarget.h"

namespace {

using Rows = QList<TaskListRow>;
using Kind = TaskListRow::Kind;

// The edges of a row, in shares of its height, that stand for the place between two rows.
constexpr double edge = 0.28;

bool isTaskOf(const Rows &rows, int row, int category)
{
    return row >= 0 && row < rows.size() && rows.at(row).kind == Kind::Task &&
           rows.at(row).category == category;
}

// Items of checklists and later occurrences stand where their dates say, and nothing is put below or behind
// them.
bool isAnchor(const TaskListRow &row, const QSet<QString> &moving)
{
    return row.task.isTask() && !moving.contains(row.id);
}

// The nearest row above with less depth: the task that it is below. -1 for none.
int parentOf(const Rows &rows, int row)
{
    int above = row - 1;
    while (isTaskOf(rows, above, rows.at(row).category) && rows.at(above).depth >= rows.at(row).depth)
        --above;
    return rows.at(row).depth > 0 && isTaskOf(rows, above, rows.at(row).category) ? above : -1;
}

// The task before it in the same parent that does not move itself. -1 for none.
int siblingAbove(const Rows &rows, int row, const QSet<QString> &moving)
{
    const TaskListRow &at = rows.at(row);
    for (int above = row - 1; isTaskOf(rows, above, at.category) && rows.at(above).depth >= at.depth; --above)
        if (rows.at(above).depth == at.depth && isAnchor(rows.at(above), moving)) return above;
    return -1;
}

int siblingBelow(const Rows &rows, int row, const QSet<QString> &moving)
{
    const TaskListRow &at = rows.at(row);
    for (int below = row + 1; isTaskOf(rows, below, at.category) && rows.at(below).depth >= at.depth; ++below)
        if (rows.at(below).depth == at.depth && isAnchor(rows.at(below), moving)) return below;
    return -1;
}

QString idAt(const Rows &rows, int row) { return row < 0 ? QString{} : rows.at(row).id; }

TaskDropPlace placeBefore(const Rows &rows, int row, const QSet<QString> &moving)
{
    return {rows.at(row).category, idAt(rows, siblingAbove(rows, row, moving)),
            idAt(rows, parentOf(rows, row))};
}

TaskDropPlace placeBehind(const Rows &rows, int row, const QSet<QString> &moving)
{
    const int anchor = isAnchor(rows.at(row), moving) ? row : siblingAbove(rows, row, moving);
    return {rows.at(row).category, idAt(rows, anchor), idAt(rows, parentOf(rows, row))};
}

// The last task of a section that stands below no other. -1 for none.
int lastTopTask(const Rows &rows, int category)
{
    int found = -1;
    for (int i = 0; i < rows.size(); ++i)
        if (isTaskOf(rows, i, category) && rows.at(i).depth == 0 && isAnchor(rows.at(i), {})) found = i;
    return found;
}

std::optional<TaskDropPlace> placeInSectionAbove(const Rows &rows, int category)
{
    for (int i = int(rows.size()) - 1; i >= 0; --i)
        if (rows.at(i).category < category && rows.at(i).takesTasks)
            return TaskDropPlace{rows.at(i).category, idAt(rows, lastTopTask(rows, rows.at(i).category)), {}};
    return std::nullopt;
}

std::optional<TaskDropPlace> placeInSectionBelow(const Rows &rows, int category)
{
    for (const TaskListRow &each : rows)
        if (each.category > category && each.takesTasks) return TaskDropPlace{each.category, {}, {}};
    return std::nullopt;
}

int rowOf(const Rows &rows, const QString &id)
{
    for (int i = 0; i < rows.size(); ++i)
        if (rows.at(i).id == id) return i;
    return -1;
}

} // namespace

std::optional<DropTarget> dropTargetAt(const QList<TaskListRow> &rows, int row, double share,
                                       const QSet<QString> &moving)
{
    if (row < 0 || row >= rows.size() || rows.at(row).kind == Kind::LoadMore) return std::nullopt;
    const TaskListRow &at = rows.at(row);
    if (at.kind == Kind::Section) return DropTarget{{at.category, {}, {}}, DropTarget::Mark::Onto, row};
    const bool takesTasks = isAnchor(at, {});
    if (share < (takesTasks ? edge : 0.5))
        return DropTarget{placeBefore(rows, row, moving), DropTarget::Mark::Above, row, at.depth};
    if (takesTasks && share <= 1 - edge)
        return DropTarget{{at.category, {}, at.id}, DropTarget::Mark::Onto, row, at.depth};
    if (at.hasChildren && !at.isFolded)
        return DropTarget{{at.category, {}, at.id}, DropTarget::Mark::Below, row, at.depth + 1};
    return DropTarget{placeBehind(rows, row, moving), DropTarget::Mark::Below, row, at.depth};
}

std::optional<TaskDropPlace> placeByKey(const QList<TaskListRow> &rows, const QStringList &moving,
                                        KeyMove move)
{
    const int first = moving.isEmpty() ? -1 : rowOf(rows, moving.first());
    const int last = moving.isEmpty() ? -1 : rowOf(rows, moving.last());
    if (first < 0 || last < 0) return std::nullopt;
    const QSet<QString> set{moving.begin(), moving.end()};
    const bool isBelowATask = parentOf(rows, first) >= 0;
    if (move == KeyMove::Up) {
        if (const int above = siblingAbove(rows, first, set); above >= 0)
            return placeBefore(rows, above, set);
        if (isBelowATask) return std::nullopt;
        const int category = rows.at(first).category;
        if (isTaskOf(rows, first - 1, category)) return TaskDropPlace{category, {}, {}}; // before the items
        return placeInSectionAbove(rows, category);
    }
    if (const int below = siblingBelow(rows, last, set); below >= 0) return placeBehind(rows, below, set);
    return isBelowATask ? std::nullopt : placeInSectionBelow(rows, rows.at(last).category);
}
