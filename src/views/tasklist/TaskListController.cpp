#include "views/tasklist/TaskListController.h"

#include "capture/NewTaskContextOfList.h"
#include "model/events/NotificationNames.h"
#include "model/records/KWSmartProject.h"
#include "views/addfield/KWNewTaskTextField.h"
#include "views/sidebar/CalendarState.h"
#include "views/tasklist/PageHeader.h"
#include "views/tasklist/TaskListPane.h"
#include "views/tasklist/TaskListView.h"
#include "views/wording/DateWording.h"

#include <QLocale>

namespace {

bool mixesLists(const KWListIdentifier &list)
{
    return list.type != KWListIdentifierType::Project && list.type != KWListIdentifierType::Calendar;
}

} // namespace

TaskListController::TaskListController(TaskListPane &pane, KWTaskListService &service,
                                       KWProjectListPresenter &sidebar, KWTaskEditor &editor,
                                       KWNotificationCenter &center, CXClock &clock)
    : m_pane(pane)
    , m_service(service)
    , m_rows(pane, service, clock)
    , m_sidebar(sidebar)
    , m_editor(editor)
    , m_clock(clock)
{
    m_service.onRowsChanged = [this] { showRows(); };
    m_service.onFailure = [this](const QString &sentence) { Q_EMIT failed(sentence); };
    const auto keep = [this](const Result<void> &saved, const QString &id, const QString &title) {
        if (saved) return;
        m_pane.list().editAgain(id, title);
        Q_EMIT failed(saved.error().sentence);
    };
    connect(&m_pane.list(), &TaskListView::titleEdited, this,
            [this, keep](const QString &taskID, const QString &title) {
                keep(m_editor.setTitle(taskID, title), taskID, title);
            });
    connect(&m_pane.list(), &TaskListView::itemTitleEdited, this,
            [this, keep](const QString &itemID, const QString &title) {
                keep(m_editor.setItemTitle(itemID, title), itemID, title);
            });
    connect(&m_pane.list(), &TaskListView::currentTaskChanged, this, [this] { m_wantedTask.clear(); });
    for (const QString &name : {KWNewMinuteComesNotification, KWUserSettingsDidChangeNotification})
        m_observations.push_back(
            center.addObserver(name, [this](const KWNotification &) { m_pane.model().refreshDates(); }));
    m_observations.push_back(center.addObserver(KWNewDayComesNotification, [this](const KWNotification &) {
        showHead();
        m_rows.show();
    }));
}

// The service outlives the window: the next one asks it afresh.
TaskListController::~TaskListController()
{
    m_service.onRowsChanged = {};
    m_service.onFailure = {};
    m_service.clear();
}

void TaskListController::show(const KWListIdentifier &list)
{
    m_wantedTask.clear();
    m_isAnotherListComing |= list != m_service.list();
    m_service.select(list);
    showHead();
    Q_EMIT shown();
}

void TaskListController::showNewNames()
{
    showHead();
    showNames();
    Q_EMIT shown();
}

void TaskListController::showTask(const QString &taskID, const KWListIdentifier &list)
{
    m_sidebar.select(list);
    m_wantedTask = taskID;
    selectWantedTask();
}

void TaskListController::selectWantedTask()
{
    if (!m_wantedTask.isEmpty()) m_pane.list().selectTask(QString{m_wantedTask});
    if (m_pane.list().currentTask() == m_wantedTask) m_wantedTask.clear();
}

void TaskListController::showRows()
{
    showNames();
    if (std::exchange(m_isAnotherListComing, false)) m_pane.list().expectAnotherList();
    m_rows.show();
    selectWantedTask();
    Q_EMIT shown();
}

void TaskListController::showNames()
{
    QHash<QString, QString> lists;
    QHash<QString, QString> tags;
    if (const auto &contents = m_sidebar.contents()) {
        if (mixesLists(m_service.list())) {
            for (const KWProjectModel &each : contents->projects)
                if (!each.isInbox) lists.insert(each.sid, each.name);
            for (const KWCalSubscriptionModel &each : contents->calendars)
                lists.insert(each.sid, each.name);
        }
        for (const KWTagModel &each : contents->tags)
            tags.insert(each.name, each.label);
    }
    m_pane.model().setListNames(std::move(lists));
    m_pane.model().setTagLabels(std::move(tags));
}

void TaskListController::showHead()
{
    const QString title = m_sidebar.titleOfSelectedList();
    m_pane.header().setTitle(title);
    const auto calendar = m_sidebar.selectedCalendar();
    m_pane.header().setDot(calendar ? std::optional{calendar->color} : std::nullopt);

    const KWSmartProject *smart = KWSmartProject::withIdentifier(m_service.list().entityID);
    m_pane.model().setHasDueDates(!smart || !smart->isTrash());
    const bool isDateList = KWSmartProject::isDateSensetiveSmartProjectID(m_service.list().entityID);
    const bool isTomorrow = m_service.list().entityID == KWSmartProject::tomorrow().identifier();
    const Day today = m_clock.today();
    m_pane.header().setNote(
        isDateList ? DateWording::weekdayAndDay(today + std::chrono::days{isTomorrow}, today, QLocale{})
                   : QString{});

    const bool takesTasks = takesNewTasks(m_service.list()) && !m_sidebar.isSelectedListReadOnly();
    m_rows.setTakesTasks(takesTasks);
    // The keyboard stays in the pane when the field goes.
    if (!takesTasks && m_pane.window()->focusWidget() == &m_pane.addField()) m_pane.list().setFocus();
    m_pane.addField().setVisible(takesTasks);
    m_pane.addField().setPlaceholder(tr("Add a task to “%1”").arg(title));
    showEmptyText(title);
}

void TaskListController::showEmptyText(const QString &title)
{
    const KWSmartProject *smart = KWSmartProject::withIdentifier(m_service.list().entityID);
    TaskListView &list = m_pane.list();
    if (const auto calendar = m_sidebar.selectedCalendar())
        list.setEmptyText(tr("“%1” has no events from today on").arg(title),
                          calendarState(*calendar, m_clock));
    else if (m_sidebar.isSelectedListClosed())
        list.setEmptyText(tr("Nothing to do in “%1”").arg(title), tr("This list is archived."));
    else if (m_sidebar.isSelectedListReadOnly())
        list.setEmptyText(tr("Nothing to do in “%1”").arg(title), tr("You can read this list."));
    else if (takesNewTasks(m_service.list()))
        list.setEmptyText(tr("Nothing to do in “%1”").arg(title), tr("Press Ctrl+N and type to add a task."));
    else if (smart && smart->isTrash())
        list.setEmptyText(tr("The trash is empty"), tr("Tasks you delete are kept here."));
    else if (smart && smart->isAbandoned())
        list.setEmptyText(tr("Nothing abandoned"), tr("Tasks you abandon are kept here."));
    else if (smart && smart->isAssigneedToMe())
        list.setEmptyText(tr("Nothing is assigned to you"),
                          tr("Tasks of shared lists that are given to you are shown here."));
    else
        list.setEmptyText(tr("Nothing completed yet"), tr("Tasks you complete are kept here."));
}
