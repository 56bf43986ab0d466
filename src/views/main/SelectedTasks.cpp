#include "views/main/SelectedTasks.h"

#include "views/search/SearchController.h"
#include "views/taskdetail/TaskDetailController.h"
#include "views/tasklist/TaskListView.h"

SelectedTasks::SelectedTasks(TaskListView &list, SearchController &search, const TaskDetailController &detail)
    : m_list(list), m_search(search), m_detail(detail)
{
    connect(&m_list, &TaskListView::currentTaskChanged, this, &SelectedTasks::changed);
    connect(m_list.selectionModel(), &QItemSelectionModel::selectionChanged, this, &SelectedTasks::changed);
    connect(&m_search.page(), &SearchPage::currentTaskChanged, this, &SelectedTasks::changed);
    connect(&m_search, &SearchController::closed, this, &SelectedTasks::changed);
}

QStringList SelectedTasks::ids() const
{
    if (!m_search.isShown() && !m_detail.heldTask()) return m_list.selectedIDs();
    return current().isEmpty() ? QStringList{} : QStringList{current()};
}

QStringList SelectedTasks::taskIDs() const
{
    return !m_search.isShown() && !m_detail.heldTask() ? m_list.selectedTasks() : ids();
}

bool SelectedTasks::haveTask() const
{
    return !m_search.isShown() && !m_detail.heldTask() ? m_list.hasSelectedTask() : !current().isEmpty();
}

QString SelectedTasks::current() const
{
    if (const auto held = m_detail.heldTask()) return *held;
    return m_search.isShown() ? m_search.page().currentTask() : m_list.currentTask();
}

QPoint SelectedTasks::place() const
{
    const QListView &view = m_search.isShown() ? static_cast<QListView &>(m_search.page().rows()) : m_list;
    const QRect row = view.visualRect(view.currentIndex());
    return view.viewport()->mapToGlobal(QPoint{row.center().x(), row.bottom()});
}

bool SelectedTasks::haveFocus() const
{
    return m_search.isShown() ? m_search.page().rows().hasFocus() : m_list.hasFocus();
}
