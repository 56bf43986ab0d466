#pragma once

#include "lists/KWTaskCategory.h"

#include <QSet>

/// What is folded in a list.
struct FoldedRows {
    QSet<QString> collapsedCategories; ///< the names of sections
    QSet<QString> tasks;               ///< the ids of those whose children are hidden

    bool operator==(const FoldedRows &) const = default;
};

/// A row of the middle pane.
struct TaskListRow {
    enum class Kind : std::uint8_t {
        Section,
        Task,
        LoadMore
    }; ///< items, later occurrences and events stand as tasks do
    enum class Holds : std::uint8_t { Tasks, Notes, Events, Habits, Several };

    Kind kind = Kind::Task;
    QString id;       ///< unique in the list: that of `task`, "section:" and its name, or "loadMore"
    int category = 0; ///< the index of its section
    QString title{};  ///< of a section; of the row that loads more, what that is
    int count = 0;    ///< of a section: its tasks, folded ones included
    bool isFolded = false;
    Holds holds = Holds::Tasks; ///< of a section: what its rows are
    KWTaskListItemModel task{}; ///< of a task, a checklist item, a later occurrence or an event
    int depth = 0;              ///< below how many of the tasks above it
    bool hasChildren = false;   ///< among the rows of its section
    bool isUnderItsDay = false; ///< its section says the day
    bool takesTasks = true;     ///< its section does: not that of events or habits

    bool isTask() const { return kind == Kind::Task && task.isTask(); }
    bool operator==(const TaskListRow &) const = default;
};

/// The rows to be seen of the sections: headers, and tasks and items that are in nothing that is folded.
QList<TaskListRow> flatRows(const QList<KWTaskCategory> &categories, const FoldedRows &folded);
