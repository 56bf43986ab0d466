#include "views/main/DetailColumn.h"

#include "app/KWDelayDeleteManager.h"
#include "views/focus/FocusPresenter.h"
#include "views/main/MainWindow.h"
#include "views/taskdetail/TaskDetailView.h"
#include "views/tasklist/TaskListPane.h"
#include "views/tasklist/TaskListView.h"
#include "views/web/KWWebViewController.h"

DetailColumn::DetailColumn(const MainWindowRooms &rooms, MainWindow &window, BatchActions &actions,
                           ToastPort &toasts)
    : m_window(window), m_task{window.detail(), rooms.kit, actions}
{
    connect(&window.listPane().list(), &TaskListView::currentTaskChanged, &m_task,
            &TaskDetailController::follow);
    window.sayFailuresOf(m_task, &TaskDetailController::failed, &TaskDetailController::saved);
    connect(&m_task, &TaskDetailController::changed, &window, &MainWindow::showUndo);
    connect(&m_task, &TaskDetailController::itemRemovalRequested, this,
            [&toasts, &deletes = rooms.deletes](const auto &remove, const auto &restore) {
                deletes.deleteChecklistItemsWithCount(1, toasts, remove, restore, [] {});
            });
    connect(&m_task, &TaskDetailController::focusRequested, &rooms.focus,
            [&focus = rooms.focus](const QString &taskID, KWFocusType mode) {
                focus.startOn(FocusTarget::task(taskID), mode);
            });
    connect(&m_task, &TaskDetailController::summaryRequested, this, [this, &rooms] {
        KWWebViewController::chooseSummary(
            rooms.kit, rooms.clock, rooms.web, m_window,
            [this](const QString &markdown) { m_window.detail().insertIntoContent(markdown); });
    });
    connect(&m_task, &TaskDetailController::linkRequested, this, &DetailColumn::linkRequested);
    connect(&m_task, &TaskDetailController::taskRequested, this, &DetailColumn::showOther);
}

void DetailColumn::showOther(const QString &taskID)
{
    m_window.listPane().list().selectTask(taskID); // where it has a row
    m_task.show(taskID);
    m_window.openDetail();
}

void DetailColumn::giveKeyboardBack()
{
    if (!m_window.detail().isAncestorOf(m_window.focusWidget())) return;
    m_window.middle().setFocus(Qt::OtherFocusReason);
}
