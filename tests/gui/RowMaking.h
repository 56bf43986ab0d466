#pragma once

#include "lists/TaskListRows.h"

/// A row of the middle pane that is a task.
inline TaskListRow taskRow(const QString &sid, const QString &title = {}, int depth = 0, int category = 0)
{
    TaskListRow row{TaskListRow::Kind::Task, sid, category};
    row.task.sid = sid;
    row.task.title = title;
    row.depth = depth;
    return row;
}

/// A row of the middle pane that is an item of a checklist.
inline TaskListRow itemRow(const QString &sid, const QString &title = {}, const QString &ownerTitle = {},
                           int category = 0)
{
    TaskListRow row = taskRow(sid, title, 0, category);
    row.task.kind = KWTaskListItemModel::Kind::ChecklistItem;
    row.task.ownerTitle = ownerTitle;
    return row;
}

/// The header of a section.
inline TaskListRow sectionRow(const QString &title, int category, int count = 0)
{
    return {TaskListRow::Kind::Section, QStringLiteral("section:") + title, category, title, count};
}
