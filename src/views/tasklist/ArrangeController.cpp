#include "views/tasklist/ArrangeController.h"

#include "lists/KWTaskListService.h"
#include "views/tasklist/BatchActions.h"
#include "views/tasklist/TaskListView.h"

ArrangeController::ArrangeController(const Parts &parts) : m_parts(parts), m_arranger(parts.manager)
{
    TaskListView &list = m_parts.list;
    list.setDropHindrance([this](const QStringList &taskIDs, const TaskDropPlace &place) {
        return TaskArranger::hindrance(taskIDs, place, m_parts.service);
    });
    connect(&list, &TaskListView::dropped, this, &ArrangeController::drop);
    connect(&list, &TaskListView::nestRequested, this, [this](const QStringList &taskIDs) {
        m_parts.actions.report(m_arranger.nest(taskIDs, m_parts.service), taskIDs, tr("Put below a task"));
    });
    connect(&list, &TaskListView::unnestRequested, this, [this](const QStringList &taskIDs) {
        m_parts.actions.report(m_arranger.unnest(taskIDs), taskIDs, tr("Taken out of its task"));
    });
}

void ArrangeController::drop(const QStringList &taskIDs, const TaskDropPlace &place)
{
    const Result<UndoToken> done = m_arranger.drop(taskIDs, place, m_parts.service);
    // What was put below a folded task is to be seen.
    if (done && !place.parentTaskID.isEmpty()) m_parts.service.setTaskFolded(place.parentTaskID, false);
    m_parts.actions.report(done, taskIDs, tr("Moved"));
}
