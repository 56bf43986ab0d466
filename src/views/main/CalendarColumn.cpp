#include "views/main/CalendarColumn.h"

#include "model/OrvaneKit.h"
#include "views/calendar/CalendarPane.h"
#include "views/calendar/CalendarTray.h"
#include "views/main/DetailColumn.h"
#include "views/main/MainWindow.h"
#include "views/tasklist/BatchActions.h"
#include "views/tasklist/TaskListPane.h"
#include "views/tasklist/TaskListView.h"

CalendarColumn::CalendarColumn(const MainWindowRooms &rooms, MainWindow &window, BatchActions &actions,
                               DetailColumn &detail)
    : m_clock(rooms.clock)
    , m_window(window)
    , m_detail(detail)
    , m_editor(rooms.kit.manager())
    , m_navigator{window.calendarPane(), rooms.kit, rooms.repeats, rooms.clock}
    , m_controller{window.calendarPane(), {rooms.kit, rooms.clock, rooms.newTasks, actions}}
    , m_tray{window.calendarPane().tray(), rooms.kit}
{
    m_window.sayFailuresOf(m_navigator, &CalendarNavigator::failed, &CalendarNavigator::succeeded);
    connect(&m_controller, &CalendarController::changed, &m_window, &MainWindow::showUndo);
    connect(&m_controller, &CalendarController::failed, &m_window, &MainWindow::showMessage);
    connect(&m_tray, &CalendarTrayReader::failed, &m_window, &MainWindow::showMessage);
    connect(&m_controller, &CalendarController::habitOpened, this, &CalendarColumn::habitOpened);
    connect(&m_controller, &CalendarController::focusOpened, this, &CalendarColumn::focusOpened);
    connect(&m_controller, &CalendarController::habitChecked, this, &CalendarColumn::habitChecked);
    connect(&m_controller, &CalendarController::opened, this, [this](const QString &taskID) {
        m_detail.task().show(taskID);
        m_window.openDetail();
    });
    connect(&m_window.calendarPane(), &CalendarPane::selectionChanged, this, &CalendarColumn::showSelected);
    connectTray(actions);
}

void CalendarColumn::connectTray(BatchActions &actions)
{
    CalendarPane &pane = m_window.calendarPane();
    TaskListView &list = pane.tray().list();
    connect(&list, &TaskListView::opened, &pane, [&pane](const QString &taskID) {
        Q_EMIT pane.edits().scheduleRequested({taskID}, pane.view().spot());
    });
    connect(&list, &TaskListView::completionToggled, &actions, &BatchActions::tick);
    connect(&list, &TaskListView::deletionRequested, &actions, &BatchActions::remove);
    connect(&list, &TaskListView::titleEdited, this,
            [this, &list](const QString &taskID, const QString &title) {
                const Result<void> saved = m_editor.setTitle(taskID, title);
                if (saved) return;
                list.editAgain(taskID, title);
                m_window.showMessage(saved.error().sentence);
            });
}

void CalendarColumn::show()
{
    m_isChosen = true;
    m_window.setCalendarShown(true);
    m_navigator.open();
    showSelected();
}

void CalendarColumn::showEvent(const QString &eventID, Instant start)
{
    m_navigator.show(m_clock.zone().dayOf(start));
    for (CalendarView *each : m_window.calendarPane().views())
        each->selectOnceThere(eventID, m_clock.zone().toLocal(start));
}

void CalendarColumn::hide()
{
    if (!std::exchange(m_isChosen, false)) return;
    m_navigator.close();
    m_window.setCalendarShown(false);
    m_detail.task().show(m_window.listPane().list().currentTask());
}

void CalendarColumn::giveWayToSearch()
{
    if (m_isChosen) m_window.setCalendarShown(false);
}

void CalendarColumn::comeBackFromSearch()
{
    if (!m_isChosen) return;
    m_window.setCalendarShown(true);
    showSelected();
}

void CalendarColumn::showSelected()
{
    if (m_window.isCalendarShown()) m_detail.task().follow(m_window.calendarPane().selectedTask());
}
