#pragma once

#include <QString>

class TaskListModel;

/// The shown list as Markdown (CommonMark with the task lists of GitHub's flavour): a heading, one for each
/// section, and an item for each task, below its parent. Tasks in what is folded are left out, as on the
/// screen.
QString listMarkdown(const QString &title, const TaskListModel &list);
