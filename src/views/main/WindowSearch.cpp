#include "views/main/WindowSearch.h"

#include "app/KWDelayDeleteManager.h"
#include "model/OrvaneKit.h"
#include "views/main/MainWindow.h"
#include "views/menu/MainMenu.h"
#include "views/search/SearchPage.h"
#include "views/taskdetail/TaskDetailController.h"

WindowSearch::WindowSearch(const MainWindowRooms &rooms, MainWindow &window, TaskDetailController &detail)
    : m_hits{rooms.kit, rooms.sidebar,
             [&deletes = rooms.deletes](const QString &taskID) { return deletes.containsTask(taskID); }}
    , m_palette{{rooms.kit, rooms.sidebar, rooms.menu, window, m_hits}}
    , m_page{window.listPane(), m_hits, rooms.kit.bus()}
{
    rooms.menu.handle(MenuCommand::OpenPalette, *this, [this] { m_palette.open(); });
    rooms.menu.handle(MenuCommand::Find, *this, [this] { m_page.open(m_page.page().text()); });
    connect(&m_palette, &PaletteController::listChosen, this, &WindowSearch::listChosen);
    connect(&m_palette, &PaletteController::taskChosen, this, &WindowSearch::taskChosen);
    connect(&m_palette, &PaletteController::searchChosen, &m_page, &SearchController::open);
    connect(&m_page.page(), &SearchPage::currentTaskChanged, &detail, &TaskDetailController::show);
    connect(&m_page.page(), &SearchPage::opened, &window, &MainWindow::openDetail);
}
