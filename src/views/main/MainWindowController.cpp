#include "views/main/MainWindowController.h"

#include "model/OrvaneKit.h"
#include "views/addfield/AddFieldController.h"
#include "views/addfield/KWNewTaskTextField.h"
#include "views/main/FirstPaint.h"
#include "views/main/MainWindow.h"
#include "views/sidebar/KWProjectListView.h"
#include "views/sidebar/SidebarController.h"
#include "views/sidebar/SidebarView.h"
#include "views/taskdetail/TaskDetailController.h"
#include "views/taskdetail/TaskDetailView.h"
#include "views/tasklist/TaskListController.h"
#include "views/tasklist/TaskListPane.h"
#include "views/tasklist/TaskListView.h"

struct MainWindowController::Content {
    explicit Content(const Rooms &rooms)
        : window{rooms.clock, rooms.kit.defaults()}
        , ticker{rooms.kit.manager()}
        , editor{rooms.kit.manager()}
        , sidebar{window.sidebar(), rooms.sidebar, rooms.kit.account()}
        , tasks{window.listPane(),  rooms.tasks, rooms.sidebar, ticker, editor,
                rooms.kit.center(), rooms.clock}
        , addField{window.listPane().addField(), rooms.newTasks, rooms.clock}
        , detail{window.detail(), rooms.kit}
    {
    }

    MainWindow window;
    KWTaskTicker ticker;
    KWTaskEditor editor;
    SidebarController sidebar;
    TaskListController tasks;
    AddFieldController addField;
    TaskDetailController detail;
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
    if (m_content) m_content->window.close();
    m_content.reset();
}

void MainWindowController::select(const KWListIdentifier &list) { m_rooms.sidebar.select(list); }

void MainWindowController::make()
{
    m_content = std::make_unique<Content>(m_rooms);
    connectColumns();
    m_rooms.sidebar.build();
    new FirstPaint{*m_content->window.sidebar().tree().viewport(), [this] { m_rooms.sidebar.recount(); }};
    m_content->window.listPane().addField().setFocus();
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
    connect(&list, &TaskListView::currentTaskChanged, &content.detail, &TaskDetailController::show);
    connect(&list, &TaskListView::opened, &window, &MainWindow::openDetail);
    connect(&content.addField, &AddFieldController::added, &list, &TaskListView::selectTask);
    connect(&content.detail, &TaskDetailController::completionToggled, &content.tasks,
            &TaskListController::tick);
    connect(&content.tasks, &TaskListController::statusChanged, &window, &MainWindow::showUndo);
    connect(&content.tasks, &TaskListController::failed, &window, &MainWindow::showMessage);
    connect(&content.addField, &AddFieldController::failed, &window, &MainWindow::showMessage);
    connect(&content.detail, &TaskDetailController::failed, &window, &MainWindow::showMessage);
    connect(&window, &MainWindow::closed, this, &MainWindowController::windowClosed);
}
