#include "views/main/WindowSearch.h"

#include "app/KWDelayDeleteManager.h"
#include "model/OrvaneKit.h"
#include "views/main/MainWindow.h"
#include "views/menu/MainMenu.h"
#include "views/search/SearchPage.h"
#include "views/sidebar/KWProjectListView.h"
#include "views/sidebar/SidebarView.h"
#include "views/taskdetail/TaskDetailController.h"
#include "views/tasklist/BatchActions.h"
#include "views/tasklist/TaskListPane.h"
#include "views/tasklist/TaskListView.h"

WindowSearch::WindowSearch(const MainWindowRooms &rooms, MainWindow &window, BatchActions &actions,
                           TaskDetailController &detail)
    : m_hits{rooms.kit, rooms.sidebar,
             [&deletes = rooms.deletes](const QString &taskID) { return deletes.containsTask(taskID); }}
    , m_palette{{rooms.kit, rooms.sidebar, rooms.menu, window, m_hits}}
    , m_page{window.listPane(), m_hits, rooms.kit.center(), rooms.kit.bus()}
    , m_taskMenu{{m_page.page().rows(), actions, rooms.menu, rooms.sidebar, rooms.kit.manager()}}
{
    rooms.menu.handle(MenuCommand::OpenPalette, *this, [this] { m_palette.open(); });
    rooms.menu.handle(MenuCommand::Find, *this, [this] { openPage(m_page.page().text()); });
    connect(&m_palette, &PaletteController::listChosen, this, &WindowSearch::listChosen);
    connect(&m_palette, &PaletteController::taskChosen, this, &WindowSearch::taskChosen);
    connect(&m_palette, &PaletteController::searchChosen, this, &WindowSearch::openPage);
    connect(&m_page, &SearchController::closed, &detail,
            [&detail, &list = window.listPane().list()] { detail.show(list.currentTask()); });
    connect(&m_page, &SearchController::closed, this, &WindowSearch::pageClosed);
    // A click on the list below the page selects nothing new.
    connect(&window.sidebar().tree(), &QAbstractItemView::clicked, this, [this](const QModelIndex &row) {
        if (row.flags() & Qt::ItemIsSelectable) m_page.close();
    });
    const SearchPage &page = m_page.page();
    connect(&page, &SearchPage::currentTaskChanged, &detail, &TaskDetailController::follow);
    connect(&page, &SearchPage::opened, &window, &MainWindow::openDetail);
    connect(&page, &SearchPage::completionToggled, &actions,
            [&actions](const QString &taskID) { actions.tick({taskID}); });
    connect(&page, &SearchPage::deletionRequested, &actions,
            [&actions](const QString &taskID) { actions.remove({taskID}); });
    connect(&page, &SearchPage::menuAboutToShow, this,
            [this](QMenu &menu, const QString &taskID) { m_taskMenu.fill(menu, {taskID}); });
}

void WindowSearch::openPage(const QString &text)
{
    Q_EMIT pageOpening();
    m_page.open(text);
}

void WindowSearch::closePage(const KWListIdentifier &list)
{
    // The sidebar tells of the list again when it was built anew.
    if (std::exchange(m_listBelow, list) != list) m_page.close();
}
