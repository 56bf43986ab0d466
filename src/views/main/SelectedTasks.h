#pragma once

#include <QObject>
#include <QStringList>

class CalendarPane;
class FocusPane;
class HabitPane;
class QPoint;
class SearchController;
class TaskDetailController;
class TaskListView;

/// What the commands for tasks act on: the task with which the detail stays while one types in it, else,
/// while the search page is shown, the hit that is selected, while the calendar is, what is selected there,
/// else what is selected in the list; nothing while the habits
/// or the page of focus are shown. Main thread.
class SelectedTasks : public QObject {
    Q_OBJECT

public:
    /// All outlive it.
    SelectedTasks(TaskListView &list, SearchController &search, CalendarPane &calendar,
                  const HabitPane &habits, const FocusPane &focus, const TaskDetailController &detail);

    /// Of tasks and checklist items, from top to bottom.
    QStringList ids() const;
    /// Of the tasks among them, and whether there is one.
    QStringList taskIDs() const;
    bool haveTask() const;
    /// The one that the detail shows, empty for none.
    QString current() const;
    /// On the screen, below the row of that one: where what asks about it opens.
    QPoint place() const;
    bool haveFocus() const;

Q_SIGNALS:
    void changed();

private:
    bool isInList() const;
    bool isNothingSelectable() const;

    TaskListView &m_list;
    SearchController &m_search;
    CalendarPane &m_calendar;
    const HabitPane &m_habits;
    const FocusPane &m_focus;
    const TaskDetailController &m_detail;
};
