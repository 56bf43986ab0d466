#pragma once

#include <QSet>
#include <QString>

class TaskListModel;
struct KWTaskListItemModel;
struct TaskListRow;

/// The ids of the sections that are folded on the screen. They stay so on paper and in files: the title and
/// the count stand there without the tasks.
QSet<QString> collapsedSectionNames(const TaskListModel &list);

/// What is written above a section: "Today", and "Today (3)" where it is among those.
QString printedTitle(const TaskListRow &section, const QSet<QString> &collapsedSectionNames);

/// What is written for a row: "Pack", and of an item of a checklist "Passport (Travel)".
QString printedName(const KWTaskListItemModel &row);
