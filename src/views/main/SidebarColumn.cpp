#include "views/main/SidebarColumn.h"

#include "calendar/subscriptions/CalSubscriptionService.h"
#include "model/OrvaneKit.h"
#include "views/main/MainWindow.h"
#include "views/menu/MainMenu.h"
#include "views/sidebar/SidebarView.h"

SidebarColumn::SidebarColumn(const MainWindowRooms &rooms, MainWindow &window)
    : m_tree{window.sidebar(), rooms.sidebar, rooms.kit.account()}
    , m_commands{{window.sidebar().tree(),
                  {rooms.sidebar, rooms.kit.manager(), rooms.kit.account(), rooms.kit.center()},
                  rooms.deletes}}
    , m_filters{rooms.kit, window}
    , m_calendars{rooms.calendars, window}
{
    connect(&m_tree, &SidebarController::listSelected, this, &SidebarColumn::listSelected);
    connect(&m_tree, &SidebarController::contentsChanged, this, &SidebarColumn::contentsChanged);
    connect(&m_tree, &SidebarController::listOpened, this, &SidebarColumn::listOpened);
    connect(&m_commands, &SidebarCommands::changed, &window, &MainWindow::showUndo);
    connect(&m_commands, &SidebarCommands::failed, &window, &MainWindow::showMessage);
    connect(&m_commands, &SidebarCommands::filterEditRequested, this, &SidebarColumn::editFilter);
    connect(&m_commands, &SidebarCommands::calendarRequested, &m_calendars, &SubscribeController::open);
    connect(&m_commands, &SidebarCommands::calendarReadingRequested, &m_calendars,
            [&calendars = rooms.calendars](const QString &id) { calendars.refresh(id); });
    connect(&m_filters, &FilterEditorController::made, this, &SidebarColumn::filterMade);
    connect(&m_filters, &FilterEditorController::failed, &window, &MainWindow::showMessage);
    rooms.menu.handle(MenuCommand::NewList, *this, [this] { m_commands.addList(); });
    rooms.menu.handle(MenuCommand::NewFilter, *this, [this] { editFilter({}); });
    rooms.menu.handle(MenuCommand::NewCalendar, *this, [this] { m_calendars.open(); });
}
