#pragma once

#include "lists/ShownList.h"
#include "lists/TaskListRows.h"

/// Rows and sections as the tables in tests/data/lists write them. The day is 2030-05-01, in UTC.
namespace RowText {

/// "a 05-01 14:00 !5 #errand, b ..05-03 ^a": a name, then what the row has. "05-01" a date, "..05-03" the
/// last day, "14:00" a time of day, "!5" a priority, "#errand" tags, "@home" the list, "/doing" the column,
/// "=7" whom it is assigned to, "^a" its parent, "+04-30" the day it was made, "*" pinned, "%" a note, "&" a
/// habit, ">a" an item of the checklist of a, "$" an event, "~" completed. Each row was made and completed
/// after those before it.
QList<KWTaskListItemModel> rows(const QString &text);

/// "date", "custom board", "tag tomorrow": by what it is sorted, and in which list. With the lists home and
/// work, the tags errand and food, the columns next and doing, the members 7, whose list it is, and 8.
ShownList shown(const QString &text);

/// "[Overdue 1] b [Today 2] a .c": headers with their numbers, children with a dot for each level, folded
/// rows with "+".
QString textOf(const QList<TaskListRow> &rows);

} // namespace RowText
