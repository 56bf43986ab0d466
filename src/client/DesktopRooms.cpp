#include "client/DesktopRooms.h"

#include "model/OrvaneKit.h"
#include "views/theme/ThemeConfigurator.h"

#include <QApplication>
#include <QWidget>

DesktopRooms::DesktopRooms(OrvaneKit &kit, CXClock &clock)
    : m_countFetcher(kit.manager(), kit.center())
    , m_sidebar(kit.manager(), kit.account(), m_countFetcher, kit.defaults(), kit.center(), kit.bus())
    , m_tasks(kit.manager(), kit.account(), kit.center(), kit.bus())
    , m_newTasks(kit)
    , m_account(kit.account())
    , m_counts(m_sidebar)
    , m_mainWindow({kit, clock, m_sidebar, m_tasks, m_newTasks})
    , m_welcomeWindow(kit.account())
    , m_application(clock, kit.center(), kit.bus(), ports())
{
}

// A port that is not named here belongs to a room that does not exist yet.
AppPorts DesktopRooms::ports()
{
    return {.account = m_account,
            .theme = m_theme,
            .mainWindow = m_mainWindow,
            .welcomeWindow = m_welcomeWindow,
            .windows = m_windows,
            .listCounts = m_counts};
}

void DesktopRooms::ThemeSchedule::autoSwitchDarkIfNeeded()
{
    ThemeConfigurator::shared().autoSwitchDarkIfNeeded();
}

void DesktopRooms::TopWindows::bringToFront(const QString &activationToken)
{
    if (!activationToken.isEmpty()) qputenv("XDG_ACTIVATION_TOKEN", activationToken.toUtf8());
    for (QWidget *each : QApplication::topLevelWidgets())
        if (each->isVisible() && each->isWindow()) {
            each->raise();
            each->activateWindow();
        }
}
