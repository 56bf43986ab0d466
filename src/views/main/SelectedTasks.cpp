#include "views/main/SelectedTasks.h"

#include "views/calendar/CalendarPane.h"
#include "views/focus/FocusPane.h"
#include "views/habits/HabitPane.h"
#include "views/search/SearchController.h"
#include "views/taskdetail/TaskDetailController.h"
#include "views/tasklist/TaskListView.h"

SelectedTasks::SelectedTasks(TaskListView &list, SearchController &search, CalendarPane &calendar,
                             const HabitPane &habits, const FocusPane &focus,
                             const TaskDetailController &detail)
    : m_list(list), m_search(search), m_calendar(calendar), m_habits(habits), m_focus(focus), m_detail(detail)
{
    connect(&m_list, &TaskListView::currentTaskChanged, this, &SelectedTasks::changed);
    connect(m_list.selectionModel(), &QItemSelectionModel::selectionChanged, this, &SelectedTasks::changed);
    connect(&m_search.page(), &SearchPage::currentTaskChanged, this, &SelectedTasks::changed);
    connect(&m_search, &SearchController::closed, this, &SelectedTasks::changed);
    connect(&m_calendar, &CalendarPane::selectionChanged, this, &SelectedTasks::changed);
    connect(&m_habits, &HabitPane::shownChanged, this, &SelectedTasks::changed);
    connect(&m_focus, &FocusPane::shownChanged, this, &SelectedTasks::changed);
}

bool SelectedTasks::isNothingSelectable() const { return m_habits.isVisible() || m_focus.isVisible(); }

bool SelectedTasks::isInList() const
{
    return !m_search.isShown() && !m_calendar.isVisible() && !isNothingSelectable() && !m_detail.heldTask();
}

QStringList SelectedTasks::ids() const
{
    if (isInList()) return m_list.selectedIDs();
    const bool isInCalendar = m_calendar.isVisible() && !m_detail.heldTask();
    const QString id = isInCalendar ? m_calendar.selectedID() : current();
    return id.isEmpty() ? QStringList{} : QStringList{id};
}

QStringList SelectedTasks::taskIDs() const
{
    if (isInList()) return m_list.selectedTasks();
    return ids() == QStringList{current()} ? ids() : QStringList{};
}

bool SelectedTasks::haveTask() const { return isInList() ? m_list.hasSelectedTask() : !taskIDs().isEmpty(); }

QString SelectedTasks::current() const
{
    if (const auto held = m_detail.heldTask()) return *held;
    if (m_search.isShown()) return m_search.page().currentTask();
    if (isNothingSelectable()) return {};
    return m_calendar.isVisible() ? m_calendar.selectedTask() : m_list.currentTask();
}

QPoint SelectedTasks::place() const
{
    if (m_calendar.isVisible()) return m_calendar.placeOfSelected();
    const QListView &view = m_search.isShown() ? static_cast<QListView &>(m_search.page().rows()) : m_list;
    const QRect row = view.visualRect(view.currentIndex());
    return view.viewport()->mapToGlobal(QPoint{row.center().x(), row.bottom()});
}

bool SelectedTasks::haveFocus() const
{
    if (m_calendar.isVisible()) return m_calendar.view().hasFocus();
    if (isNothingSelectable()) return false;
    return m_search.isShown() ? m_search.page().rows().hasFocus() : m_list.hasFocus();
}
