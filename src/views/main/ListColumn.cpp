#include "views/main/ListColumn.h"

#include "lists/KWProjectListPresenter.h"
#include "lists/KWTaskListService.h"
#include "model/OrvaneKit.h"
#include "model/records/KWTask.h"
#include "views/addfield/KWNewTaskTextField.h"
#include "views/addfield/TaskPlace.h"
#include "views/calendar/EventPopover.h"
#include "views/main/MainWindow.h"
#include "views/menu/MainMenu.h"
#include "views/tasklist/BatchActions.h"
#include "views/tasklist/TaskListPane.h"
#include "views/tasklist/TaskListView.h"
#include "views/theme/Fonts.h"
#include "views/theme/Metrics.h"

#include <QFontMetrics>

namespace {

constexpr int nameWidth = 260;

// As far as a message has room for it.
QString shortened(const QString &name)
{
    return QFontMetrics{Fonts::font(Fonts::Role::Body)}.elidedText(name, Qt::ElideRight,
                                                                   Metrics::scaled(nameWidth));
}

} // namespace

ListColumn::ListColumn(const MainWindowRooms &rooms, MainWindow &window, BatchActions &actions,
                       KWTaskEditor &editor)
    : m_window(window)
    , m_manager(rooms.kit.manager())
    , m_clock(rooms.clock)
    , m_service(rooms.tasks)
    , m_actions(actions)
    , m_tasks{window.listPane(), rooms.tasks, rooms.sidebar, editor, rooms.kit.center(), rooms.clock}
    , m_taskMenu{{window.listPane().list(), actions, rooms.menu, rooms.sidebar, rooms.kit.manager()}}
    , m_sortMenu{window.listPane().header(), rooms.tasks, rooms.kit.manager()}
    , m_pageMenu{window.listPane().header(), rooms.tasks, rooms.menu}
    , m_addField{window.listPane().addField(),
                 {rooms.kit, rooms.clock, rooms.newTasks, rooms.alerts, rooms.menu.shortcuts()}}
    , m_arrange{{window.listPane().list(), rooms.tasks, actions, rooms.kit.manager()}}
    , m_sections{{window.listPane(), rooms.tasks, m_addField, actions, rooms.clock}}
    , m_trash{{window.listPane(), rooms.tasks, rooms.kit.manager(), rooms.kit.account()}}
    , m_whereabouts{rooms.kit.manager(), rooms.kit.account(), rooms.sidebar}
{
    connectRows();
    connectActions();
    connectMessages();
    connect(&m_tasks, &TaskListController::shown, &m_trash, &TrashController::showOffer);
    connect(&m_tasks, &TaskListController::shown, &m_sortMenu, &SortMenu::show);
}

void ListColumn::show(const KWListIdentifier &list)
{
    m_addField.setList(list);
    m_tasks.show(list);
}

void ListColumn::takeKeyboard() { m_window.listPane().list().takeKeyboard(); }

void ListColumn::connectRows()
{
    const TaskListView &list = m_window.listPane().list();
    connect(&list, &TaskListView::opened, &m_window, &MainWindow::openDetail);
    connect(&list, &TaskListView::eventOpened, this,
            [this](const KWTaskListItemModel &event, const QRect &row) {
                EventPopover::popUp(event, m_clock.zone(), row, m_window.listPane().list());
            });
    connect(&list, &TaskListView::completionToggled, &m_actions, &BatchActions::tick);
    connect(&list, &TaskListView::deletionRequested, this, &ListColumn::remove);
    connect(&list, &TaskListView::menuAboutToShow, this, &ListColumn::fillRowMenu);
    connect(&list, &TaskListView::occurrenceMenuAboutToShow, &m_taskMenu, &TaskMenu::fillOfOccurrence);
    connect(&list, &TaskListView::occurrenceCompleted, this, [this](const TaskOccurrence &each) {
        m_taskMenu.occurrences().close(each, KWTaskStatusCompleted);
    });
    connect(&m_window.listPane().addField(), &KWNewTaskTextField::left, this, &ListColumn::takeKeyboard);
    connect(&m_addField, &AddFieldController::added, this, &ListColumn::showAdded);
}

void ListColumn::connectActions()
{
    connect(&m_actions, &BatchActions::changed, &m_window, &MainWindow::showUndo);
    connect(&m_actions, &BatchActions::duplicated, &m_window.listPane().list(), &TaskListView::selectTasks);
    connect(&m_actions, &BatchActions::failed, this, [this](const QString &sentence) {
        m_window.showMessage(sentence);
        m_service.reload(); // what was ticked on the screen is as it is stored again
    });
}

void ListColumn::connectMessages()
{
    m_window.sayFailuresOf(m_addField, &AddFieldController::failed, &AddFieldController::added);
    connect(&m_addField, &AddFieldController::addedSeveral, this, &ListColumn::showAddedSeveral);
    connect(&m_tasks, &TaskListController::failed, &m_window, &MainWindow::showMessage);
    connect(&m_sortMenu, &SortMenu::changed, &m_window, &MainWindow::showUndo);
    connect(&m_sortMenu, &SortMenu::failed, &m_window, &MainWindow::showMessage);
    connect(&m_pageMenu, &PageMenu::failed, &m_window, &MainWindow::showMessage);
    connect(&m_trash, &TrashController::failed, &m_window, &MainWindow::showMessage);
    connect(&m_trash, &TrashController::restored, &m_window, &MainWindow::showUndo);
}

void ListColumn::fillRowMenu(QMenu &menu, const QStringList &taskIDs)
{
    if (m_trash.isShown())
        m_trash.fillMenu(menu, taskIDs);
    else
        m_taskMenu.fill(menu, taskIDs);
}

void ListColumn::remove(const QStringList &taskIDs)
{
    if (m_trash.isShown())
        m_trash.deleteForever(taskIDs);
    else
        m_actions.remove(taskIDs);
}

std::function<void()> ListColumn::takingBack(const UndoToken &done)
{
    return [this, done] {
        if (const Result<void> undone = done.undo(m_manager); !undone)
            m_window.showMessage(undone.error().sentence);
    };
}

void ListColumn::showAdded(const QString &taskID, const UndoToken &undo)
{
    if (const KWTask *task = m_manager.MR_defaultContext().find<KWTask>(taskID))
        m_window.addUndo(tr("%1 added").arg(shortened((*task)->title)), takingBack(undo));
    const KWProjectListNode *place = m_whereabouts.nodeElsewhere(taskID);
    const auto list = place ? place->listIdentifier() : std::nullopt;
    if (!list) return m_window.listPane().list().selectTask(taskID);

    m_window.showAction(tr("Added to %1").arg(shortened(place->title())), tr("Open"), [this, list, taskID] {
        showTask(taskID, *list);
        takeKeyboard();
    });
}

void ListColumn::showAddedSeveral(const QStringList &taskIDs, const UndoToken &undo)
{
    m_window.listPane().list().selectTasks(taskIDs);
    m_window.showUndo(tasksAddedText(taskIDs.size()), takingBack(undo));
}
