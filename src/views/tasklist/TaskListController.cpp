#include "views/tasklist/TaskListController.h"

#include "model/events/NotificationNames.h"
#include "model/records/KWSmartProject.h"
#include "views/addfield/KWNewTaskTextField.h"
#include "views/tasklist/PageHeader.h"
#include "views/tasklist/TaskListPane.h"
#include "views/tasklist/TaskListView.h"
#include "views/wording/DateWording.h"

#include <QLocale>

namespace {

bool mixesLists(const KWListIdentifier &list) { return list.type != KWListIdentifierType::Project; }

} // namespace

TaskListController::TaskListController(TaskListPane &pane, KWTaskListService &service,
                                       KWProjectListPresenter &sidebar, KWTaskTicker &ticker,
                                       KWTaskEditor &editor, KWNotificationCenter &center, CXClock &clock)
    : m_pane(pane), m_service(service), m_sidebar(sidebar), m_ticker(ticker), m_editor(editor), m_clock(clock)
{
    m_service.onRowsChanged = [this] { showRows(); };
    m_service.onFailure = [this](const QString &sentence) { Q_EMIT failed(sentence); };
    connect(&m_pane.list(), &TaskListView::completionToggled, this, &TaskListController::tick);
    connect(&m_pane.list(), &TaskListView::titleEdited, this,
            [this](const QString &taskID, const QString &title) {
                if (const Result<void> saved = m_editor.setTitle(taskID, title); !saved)
                    Q_EMIT failed(saved.error().sentence);
            });
    m_observations.push_back(center.addObserver(
        KWNewMinuteComesNotification, [this](const KWNotification &) { m_pane.model().refreshDates(); }));
    m_observations.push_back(
        center.addObserver(KWNewDayComesNotification, [this](const KWNotification &) { showHead(); }));
}

void TaskListController::show(const KWListIdentifier &list)
{
    m_service.select(list);
    showHead();
}

void TaskListController::showRows()
{
    showNames();
    m_pane.list().setRows(m_service.rows());
}

void TaskListController::showNames()
{
    QHash<QString, QString> lists;
    QHash<QString, QString> tags;
    if (const auto &contents = m_sidebar.contents()) {
        if (mixesLists(m_service.list()))
            for (const KWProjectModel &each : contents->projects)
                if (!each.isInbox) lists.insert(each.sid, each.name);
        for (const KWTagModel &each : contents->tags)
            tags.insert(each.name, each.label);
    }
    m_pane.model().setListNames(std::move(lists));
    m_pane.model().setTagLabels(std::move(tags));
}

void TaskListController::showHead()
{
    const KWProjectListNode *node = m_sidebar.selectedNode();
    const QString title = node ? node->title() : QString{};
    m_pane.header().setTitle(title);

    const bool isDateList = KWSmartProject::isDateSensetiveSmartProjectID(m_service.list().entityID);
    const bool isTomorrow = m_service.list().entityID == KWSmartProject::tomorrow().identifier();
    const Day today = m_clock.today();
    m_pane.header().setNote(
        isDateList ? DateWording::weekdayAndDay(today + std::chrono::days{isTomorrow}, today, QLocale{})
                   : QString{});

    const bool showsClosed = KWSmartProject::isCompletedSmartProjectID(m_service.list().entityID);
    m_pane.addField().setVisible(!showsClosed);
    m_pane.addField().setPlaceholder(tr("Add a task to “%1”").arg(title));
    if (showsClosed)
        m_pane.list().setEmptyText(tr("Nothing completed yet"), tr("Tasks you complete are kept here."));
    else
        m_pane.list().setEmptyText(tr("Nothing to do in “%1”").arg(title),
                                   tr("Press Ctrl+N and type to add a task."));
}

void TaskListController::tick(const QString &taskID)
{
    const auto before = m_editor.read(taskID);
    const Result<KWTaskStatus> status = m_ticker.tick(taskID);
    if (!status || !before) {
        Q_EMIT failed(status ? QString{} : status.error().sentence);
        m_service.reload();
        return;
    }
    const QString message = *status == KWTaskStatusOpen ? tr("Reopened") : tr("Completed");
    Q_EMIT statusChanged(message, [this, taskID, earlier = before->task.status] {
        if (const auto undone = m_ticker.updateStatus(earlier, taskID); !undone)
            Q_EMIT failed(undone.error().sentence);
    });
}
