#include "views/main/MainWindowController.h"

#include "app/KWDelayDeleteManager.h"
#include "lists/KWProjectListPresenter.h"
#include "model/OrvaneKit.h"
#include "model/records/KWProject.h"
#include "model/records/KWSmartProject.h"
#include "model/records/KWTask.h"
#include "views/addfield/KWNewTaskTextField.h"
#include "views/calendar/CalendarPane.h"
#include "views/focus/FocusPane.h"
#include "views/main/CalendarColumn.h"
#include "views/main/DetailColumn.h"
#include "views/main/FirstPaint.h"
#include "views/main/FocusColumn.h"
#include "views/main/HabitColumn.h"
#include "views/main/ListColumn.h"
#include "views/main/MainWindow.h"
#include "views/main/MainWindowCommands.h"
#include "views/main/SelectedTasks.h"
#include "views/main/SidebarColumn.h"
#include "views/main/SummaryColumn.h"
#include "views/main/WindowSearch.h"
#include "views/sidebar/KWProjectListView.h"
#include "views/sidebar/SidebarView.h"
#include "views/tasklist/BatchActions.h"
#include "views/tasklist/TaskListPane.h"
#include "views/tasklist/TaskListView.h"

struct MainWindowController::Content {
    Content(const MainWindowRooms &rooms, ToastPort &toasts)
        : window{rooms.clock, rooms.kit.defaults()}
        , editor{rooms.kit.manager()}
        , actions{{rooms.kit.manager(), rooms.kit.center(), rooms.deletes, toasts, rooms.clock}}
        , sidebar{rooms, window}
        , list{rooms, window, actions, editor}
        , detail{rooms, window, actions, toasts}
        , calendar{rooms, window, actions, detail}
        , habits{rooms, window}
        , focus{rooms, window}
        , summary{rooms, window}
        , search{rooms, window, actions, detail.task()}
        , selected{window.listPane().list(), search.page(),      window.calendarPane(),
                   window.habitPane(),       window.focusPane(), detail.task()}
        , commands{{rooms.menu, window, actions, selected, detail.task(), rooms.sidebar, rooms.kit.account(),
                    rooms.focus, rooms.clock}}
    {
    }

    MainWindow window;
    KWTaskEditor editor;
    BatchActions actions;
    SidebarColumn sidebar;
    ListColumn list;
    DetailColumn detail;
    CalendarColumn calendar;
    HabitColumn habits;
    FocusColumn focus;
    SummaryColumn summary;
    WindowSearch search;
    SelectedTasks selected;
    MainWindowCommands commands;
};

MainWindowController::MainWindowController(const MainWindowRooms &rooms) : m_rooms(rooms) {}

MainWindowController::~MainWindowController() = default;

MainWindow *MainWindowController::window() const { return m_content ? &m_content->window : nullptr; }

void MainWindowController::show()
{
    if (!m_content) make();
    m_content->window.show();
}

void MainWindowController::close()
{
    m_rooms.deletes.commitPending(); // its toast goes with the window
    if (m_content) m_content->window.close();
    m_content.reset();
}

ToastPort::Offer MainWindowController::showUndo(const QString &message, std::function<void()> undo)
{
    return m_content ? m_content->window.showUndo(message, undo) : 0;
}

void MainWindowController::showFailure(const QString &sentence)
{
    if (m_content) m_content->window.showMessage(sentence);
}

void MainWindowController::endUndo(Offer offer, std::function<void()> later)
{
    if (m_content) m_content->window.endUndo(offer, std::move(later));
}

bool MainWindowController::isUndoHeld(Offer offer) const
{
    return m_content && m_content->window.isUndoHeld(offer);
}

void MainWindowController::editFilter(const QString &filterID) { m_content->sidebar.editFilter(filterID); }

void MainWindowController::select(const KWListIdentifier &list) { m_rooms.sidebar.select(list); }

void MainWindowController::showList(const KWListIdentifier &list)
{
    show();
    select(list);
    takeKeyboard();
}

void MainWindowController::showTask(const QString &taskID, const KWListIdentifier &list)
{
    show();
    m_content->list.showTask(taskID, list);
    m_content->window.openDetail();
    m_content->list.takeKeyboard();
}

void MainWindowController::showEvent(const QString &eventID, Instant start)
{
    show();
    select(KWListIdentifier::smartProject(KWSmartProject::calendar().identifier()));
    m_content->calendar.showEvent(eventID, start);
    takeKeyboard();
}

void MainWindowController::showHabit(const QString &habitID)
{
    show();
    m_content->habits.showHabit(habitID);
    select(KWListIdentifier::smartProject(KWSmartProject::habit().identifier()));
    takeKeyboard();
}

void MainWindowController::showSearch(const QString &text)
{
    show();
    m_content->search.openPage(text);
}

void MainWindowController::showMessage(const QString &sentence)
{
    show();
    m_content->window.showMessage(sentence);
}

void MainWindowController::make()
{
    m_content = std::make_unique<Content>(m_rooms, *this);
    m_content->window.setMenu(m_rooms.menu);
    connectColumns();
    m_rooms.sidebar.build();
    new FirstPaint{*m_content->window.sidebar().tree().viewport(), [this] { m_rooms.sidebar.recount(); }};
    KWNewTaskTextField &addField = m_content->window.listPane().addField();
    if (addField.isVisibleTo(&m_content->window))
        addField.setFocus();
    else
        takeKeyboard();
}

// What leads from one column to another; each does its own part by itself.
void MainWindowController::connectColumns()
{
    Content &content = *m_content;
    connect(&content.sidebar, &SidebarColumn::listSelected, &content.detail, &DetailColumn::giveKeyboardBack);
    connect(&content.sidebar, &SidebarColumn::listSelected, this, &MainWindowController::showSelected);
    connect(&content.sidebar, &SidebarColumn::contentsChanged, &content.list, &ListColumn::showNewNames);
    connect(&content.sidebar, &SidebarColumn::listSelected, &content.search, &WindowSearch::closePage);
    connect(&content.sidebar, &SidebarColumn::listOpened, this, &MainWindowController::takeKeyboard);
    connect(&content.sidebar, &SidebarColumn::filterMade, this, &MainWindowController::showList);
    connect(&content.detail, &DetailColumn::linkRequested, this, &MainWindowController::linkRequested);
    connect(&content.search, &WindowSearch::pageOpening, &content.calendar, &CalendarColumn::giveWayToSearch);
    connect(&content.search, &WindowSearch::pageClosed, &content.calendar,
            &CalendarColumn::comeBackFromSearch);
    const TaskListView &list = content.window.listPane().list();
    HabitCheckIns &checkIns = content.habits.checkIns();
    connect(&content.calendar, &CalendarColumn::habitOpened, &checkIns, &HabitCheckIns::clickDay);
    connect(&content.calendar, &CalendarColumn::habitChecked, &checkIns, &HabitCheckIns::check);
    connect(&content.calendar, &CalendarColumn::focusOpened, this,
            [this] { Q_EMIT linkRequested(QStringLiteral("orvane://list/focus")); });
    connect(&list, &TaskListView::habitChecked, &content.habits, &HabitColumn::check);
    connect(&list, &TaskListView::habitOpened, this, &MainWindowController::showHabit);
    connect(&content.search, &WindowSearch::pageOpening, &content.habits, &HabitColumn::giveWayToSearch);
    connect(&content.search, &WindowSearch::pageClosed, &content.habits, &HabitColumn::comeBackFromSearch);
    connect(&content.search, &WindowSearch::pageOpening, &content.focus, &FocusColumn::giveWayToSearch);
    connect(&content.search, &WindowSearch::pageClosed, &content.focus, &FocusColumn::comeBackFromSearch);
    connect(&content.search, &WindowSearch::pageOpening, &content.summary, &SummaryColumn::giveWayToSearch);
    connect(&content.search, &WindowSearch::pageClosed, &content.summary, &SummaryColumn::comeBackFromSearch);
    connect(&content.focus, &FocusColumn::preferencesRequested, this,
            [this] { Q_EMIT preferencesRequested(QStringLiteral("focus")); });
    connect(&content.focus, &FocusColumn::windowRequested, this, &MainWindowController::focusWindowRequested);
    connect(&content.focus, &FocusColumn::taskRequested, this, &MainWindowController::openTask);
    connect(&content.focus, &FocusColumn::habitRequested, this, &MainWindowController::showHabit);
    connect(&content.search, &WindowSearch::listChosen, this, &MainWindowController::showList);
    connect(&content.search, &WindowSearch::taskChosen, this, &MainWindowController::openTask);
}

void MainWindowController::showSelected(const KWListIdentifier &list)
{
    const auto is = [&list](const KWSmartProject &smart) {
        return list == KWListIdentifier::smartProject(smart.identifier());
    };
    if (!is(KWSmartProject::calendar())) m_content->calendar.hide();
    if (!is(KWSmartProject::habit())) m_content->habits.hide();
    if (!is(KWSmartProject::focus())) m_content->focus.hide();
    if (!is(KWSmartProject::summary())) m_content->summary.hide();
    if (is(KWSmartProject::summary())) return m_content->summary.show();
    if (is(KWSmartProject::focus())) return m_content->focus.show();
    if (is(KWSmartProject::calendar())) return m_content->calendar.show();
    if (is(KWSmartProject::habit())) return m_content->habits.show();
    m_content->list.show(list);
}

void MainWindowController::takeKeyboard()
{
    if (m_content->window.isCalendarShown())
        m_content->window.calendarPane().setFocus(Qt::OtherFocusReason);
    else if (m_content->window.isHabitsShown())
        m_content->habits.takeKeyboard();
    else if (m_content->window.isFocusShown())
        m_content->window.focusPane().setFocus(Qt::OtherFocusReason);
    else if (m_content->window.isSummaryShown())
        m_content->window.summaryPane().setFocus(Qt::OtherFocusReason);
    else
        m_content->list.takeKeyboard();
}

void MainWindowController::showCalendar(CalendarPage::Kind kind)
{
    select(KWListIdentifier::smartProject(KWSmartProject::calendar().identifier()));
    m_content->calendar.setKind(kind);
}

void MainWindowController::openTask(const QString &taskID)
{
    const KWTask *task = m_rooms.kit.context().find<KWTask>(taskID);
    if (!task) return;
    // Completed and the others leave out what is archived.
    const KWProject *project = task->project();
    const bool isArchived = project && project->isClosed();
    showTask(taskID, isArchived ? KWListIdentifier::project(project->sid()) : listShowing(task->model()));
}
