#include "views/main/MainWindowController.h"

#include "lists/TaskWhereabouts.h"
#include "model/OrvaneKit.h"
#include "model/records/KWProject.h"
#include "model/records/KWTask.h"
#include "views/addfield/AddFieldController.h"
#include "views/addfield/KWNewTaskTextField.h"
#include "views/filtereditor/FilterEditorController.h"
#include "views/main/FirstPaint.h"
#include "views/main/MainWindow.h"
#include "views/main/MainWindowCommands.h"
#include "views/menu/MainMenu.h"
#include "views/palette/PaletteController.h"
#include "views/search/SearchController.h"
#include "views/sidebar/KWProjectListView.h"
#include "views/sidebar/SidebarCommands.h"
#include "views/sidebar/SidebarController.h"
#include "views/sidebar/SidebarView.h"
#include "views/taskdetail/TaskDetailController.h"
#include "views/taskdetail/TaskDetailView.h"
#include "views/tasklist/ArrangeController.h"
#include "views/tasklist/BatchActions.h"
#include "views/tasklist/SectionController.h"
#include "views/tasklist/SortMenu.h"
#include "views/tasklist/TaskListController.h"
#include "views/tasklist/TaskListPane.h"
#include "views/tasklist/TaskListView.h"
#include "views/tasklist/TaskMenu.h"
#include "views/theme/Fonts.h"
#include "views/theme/Metrics.h"
#include "views/trash/TrashController.h"

#include <QFontMetrics>
#include <QMenu>

namespace {

constexpr int placeNameWidth = 260;

} // namespace

struct MainWindowController::Content {
    explicit Content(const Rooms &rooms)
        : window{rooms.clock, rooms.kit.defaults()}
        , editor{rooms.kit.manager()}
        , actions{{rooms.kit.manager(), rooms.kit.center(), rooms.deletes, rooms.clock}}
        , sidebar{window.sidebar(), rooms.sidebar, rooms.kit.account()}
        , sidebarCommands{{window.sidebar().tree(),
                           {rooms.sidebar, rooms.kit.manager(), rooms.kit.account(), rooms.kit.center()},
                           rooms.deletes}}
        , tasks{window.listPane(), rooms.tasks, rooms.sidebar, editor, rooms.kit.center(), rooms.clock}
        , taskMenu{{window.listPane().list(), actions, rooms.menu, rooms.sidebar, rooms.kit.manager()}}
        , sortMenu{window.listPane().header(), rooms.tasks}
        , addField{window.listPane().addField(), rooms.newTasks, rooms.clock}
        , arrange{{window.listPane().list(), rooms.tasks, actions, rooms.kit.manager()}}
        , sections{{window.listPane(), rooms.tasks, addField, actions, rooms.clock}}
        , trash{{window.listPane(), rooms.tasks, rooms.kit.manager(), rooms.kit.account()}}
        , detail{window.detail(), rooms.kit, actions}
        , filters{rooms.kit, window}
        , hits{rooms.kit, rooms.sidebar,
               [&deletes = rooms.deletes](const QString &taskID) { return deletes.containsTask(taskID); }}
        , palette{{rooms.kit, rooms.sidebar, rooms.menu, window, hits}}
        , search{window.listPane(), hits, rooms.kit.bus()}
        , whereabouts{rooms.kit.manager(), rooms.kit.account(), rooms.sidebar}
        , commands{
              {rooms.menu, window, actions, detail, rooms.sidebar, editor, rooms.kit.account(), rooms.clock}}
    {
    }

    MainWindow window;
    KWTaskEditor editor;
    BatchActions actions;
    SidebarController sidebar;
    SidebarCommands sidebarCommands;
    TaskListController tasks;
    TaskMenu taskMenu;
    SortMenu sortMenu;
    AddFieldController addField;
    ArrangeController arrange;
    SectionController sections;
    TrashController trash;
    TaskDetailController detail;
    FilterEditorController filters;
    TaskHits hits;
    PaletteController palette;
    SearchController search;
    TaskWhereabouts whereabouts;
    MainWindowCommands commands;
};

MainWindowController::MainWindowController(Rooms rooms) : m_rooms(rooms) {}

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

void MainWindowController::endUndo(Offer offer)
{
    if (m_content) m_content->window.endUndo(offer);
}

bool MainWindowController::isUndoHeld(Offer offer) const
{
    return m_content && m_content->window.isUndoHeld(offer);
}

void MainWindowController::editFilter(const QString &filterID) { m_content->filters.edit(filterID); }

void MainWindowController::select(const KWListIdentifier &list) { m_rooms.sidebar.select(list); }

void MainWindowController::showList(const KWListIdentifier &list)
{
    show();
    select(list);
    m_content->window.listPane().list().setFocus(Qt::OtherFocusReason);
}

void MainWindowController::showTask(const QString &taskID, const KWListIdentifier &list)
{
    show();
    m_content->tasks.showTask(taskID, list);
    m_content->window.openDetail();
    m_content->window.listPane().list().setFocus(Qt::OtherFocusReason);
}

void MainWindowController::showMessage(const QString &sentence)
{
    show();
    m_content->window.showMessage(sentence);
}

void MainWindowController::make()
{
    m_content = std::make_unique<Content>(m_rooms);
    m_content->window.setMenu(m_rooms.menu);
    connectColumns();
    connectSidebar();
    connectFilters();
    connectSearch();
    m_rooms.sidebar.build();
    new FirstPaint{*m_content->window.sidebar().tree().viewport(), [this] { m_rooms.sidebar.recount(); }};
    m_content->window.listPane().addField().setFocus();
}

void MainWindowController::connectSidebar()
{
    SidebarCommands &sidebar = m_content->sidebarCommands;
    m_rooms.menu.handle(MenuCommand::NewList, sidebar, [&sidebar] { sidebar.addList(); });
    connect(&sidebar, &SidebarCommands::filterEditRequested, this, &MainWindowController::editFilter);
    connect(&sidebar, &SidebarCommands::changed, &m_content->window, &MainWindow::showUndo);
    connect(&sidebar, &SidebarCommands::failed, &m_content->window, &MainWindow::showMessage);
}

void MainWindowController::connectSearch()
{
    Content &content = *m_content;
    SearchController &search = content.search;
    m_rooms.menu.handle(MenuCommand::OpenPalette, content.palette, [&content] { content.palette.open(); });
    m_rooms.menu.handle(MenuCommand::Find, search, [&search] { search.open(search.page().text()); });
    connect(&content.palette, &PaletteController::listChosen, this, &MainWindowController::showList);
    connect(&content.palette, &PaletteController::taskChosen, this, &MainWindowController::openTask);
    connect(&content.palette, &PaletteController::searchChosen, &search, &SearchController::open);
    connect(&content.sidebar, &SidebarController::listSelected, &search, &SearchController::close);
    connect(&search.page(), &SearchPage::currentTaskChanged, &content.detail, &TaskDetailController::show);
    connect(&search.page(), &SearchPage::opened, &content.window, &MainWindow::openDetail);
}

void MainWindowController::openTask(const QString &taskID)
{
    const KWTask *task = m_rooms.kit.context().find<KWTask>(taskID);
    if (!task) return;
    const KWProject *project = task->project();
    if (!project || project->isClosed()) return showMessage(tr("The task is in a list that is archived."));
    showTask(taskID, listShowing(task->model()));
}

void MainWindowController::connectFilters()
{
    FilterEditorController &filters = m_content->filters;
    m_rooms.menu.handle(MenuCommand::NewFilter, filters, [this] { editFilter({}); });
    connect(&filters, &FilterEditorController::made, this, &MainWindowController::showList);
    connect(&filters, &FilterEditorController::failed, &m_content->window, &MainWindow::showMessage);
}

void MainWindowController::connectColumns()
{
    Content &content = *m_content;
    MainWindow &window = content.window;
    TaskListView &list = window.listPane().list();

    connect(&content.sidebar, &SidebarController::listSelected, this,
            [&content](const KWListIdentifier &selected) {
                content.addField.setList(selected);
                content.tasks.show(selected);
            });
    connect(&content.sidebar, &SidebarController::listOpened, &list,
            [&list] { list.setFocus(Qt::OtherFocusReason); });
    connect(&window.listPane().addField(), &KWNewTaskTextField::left, &list,
            [&list] { list.setFocus(Qt::OtherFocusReason); });
    connect(&list, &TaskListView::currentTaskChanged, &content.detail, &TaskDetailController::show);
    connect(&list, &TaskListView::opened, &window, &MainWindow::openDetail);
    connect(&content.addField, &AddFieldController::added, this, &MainWindowController::showAdded);
    connect(&list, &TaskListView::completionToggled, &content.actions, &BatchActions::tick);
    connect(&list, &TaskListView::deletionRequested, this, [&content](const QStringList &taskIDs) {
        if (content.trash.isShown())
            content.trash.deleteForever(taskIDs);
        else
            content.actions.remove(taskIDs);
    });
    connect(&content.actions, &BatchActions::changed, &window, &MainWindow::showUndo);
    connect(&content.actions, &BatchActions::duplicated, &list, &TaskListView::selectTasks);
    connect(&content.actions, &BatchActions::failed, this, [this](const QString &sentence) {
        m_content->window.showMessage(sentence);
        m_rooms.tasks.reload(); // what was ticked on the screen is as it is stored again
    });
    connect(&list, &TaskListView::menuAboutToShow, this, &MainWindowController::fillRowMenu);
    connect(&content.tasks, &TaskListController::shown, &content.trash, &TrashController::showOffer);
    connect(&content.tasks, &TaskListController::shown, &content.sortMenu, &SortMenu::show);
    connect(&content.sortMenu, &SortMenu::failed, &window, &MainWindow::showMessage);
    connect(&content.trash, &TrashController::restored, &window, &MainWindow::showUndo);
    connect(&content.trash, &TrashController::failed, &window, &MainWindow::showMessage);
    connect(&content.tasks, &TaskListController::failed, &window, &MainWindow::showMessage);
    connectFailures(content.addField, &AddFieldController::failed, &AddFieldController::added);
    connectDetail();
}

template <class Work, class Failed, class Done>
void MainWindowController::connectFailures(Work &work, Failed failed, Done done)
{
    MainWindow &window = m_content->window;
    connect(&work, failed, &window,
            [&window, &work](const QString &sentence) { window.showFailure(sentence, work); });
    connect(&work, done, &window, [&window, &work] { window.endFailure(work); });
}

void MainWindowController::connectDetail()
{
    TaskDetailController &detail = m_content->detail;
    connectFailures(detail, &TaskDetailController::failed, &TaskDetailController::saved);
    connect(&detail, &TaskDetailController::changed, &m_content->window, &MainWindow::showUndo);
    connect(&detail, &TaskDetailController::itemRemovalRequested, this,
            [this](const auto &remove, const auto &restore) {
                m_rooms.deletes.deleteChecklistItemsWithCount(1, *this, remove, restore, [] {});
            });
    connect(&detail, &TaskDetailController::linkRequested, this, &MainWindowController::linkRequested);
    connect(&detail, &TaskDetailController::taskRequested, this, [this](const QString &taskID) {
        m_content->window.listPane().list().selectTask(taskID); // where it has a row
        m_content->detail.show(taskID);
        m_content->window.openDetail();
    });
}

void MainWindowController::fillRowMenu(QMenu &menu, const QStringList &taskIDs)
{
    if (m_content->trash.isShown())
        m_content->trash.fillMenu(menu, taskIDs);
    else
        m_content->taskMenu.fill(menu, taskIDs);
}

void MainWindowController::showAdded(const QString &taskID)
{
    const KWProjectListNode *place = m_content->whereabouts.nodeElsewhere(taskID);
    const auto list = place ? place->listIdentifier() : std::nullopt;
    if (!list) return m_content->window.listPane().list().selectTask(taskID);

    const QFontMetrics metrics{Fonts::font(Fonts::Role::Body)};
    const QString name = metrics.elidedText(place->title(), Qt::ElideRight, Metrics::scaled(placeNameWidth));
    m_content->window.showAction(tr("Added to %1").arg(name), tr("Open"), [this, list, taskID] {
        m_content->tasks.showTask(taskID, *list);
        m_content->window.listPane().list().setFocus(Qt::OtherFocusReason);
    });
}
