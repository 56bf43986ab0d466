#include "app/StartupSequence.h"

#include "app/Session.h"
#include "corvexkit/log/CXLog.h"

using namespace Qt::StringLiterals;

namespace {
constexpr CXLogger startupLog{u"startup"};
}

StartupSequence::StartupSequence(AppPorts ports, Session &session) : m_ports(ports), m_session(session) {}

void StartupSequence::handleFinishLaunching(const LaunchRequest &launch)
{
    startupLog.info(launch.userInfo());

    m_ports.appManager.recordDateWhenLaunching();
    m_ports.usageTimer.start();
    setUpShortcuts();

    m_ports.themeFiles.migrateIfNeeded();
    m_ports.focusCoordinator.applicationDidFinishLaunching();
    m_ports.theme.setUp();
    m_ports.searchIndex.createContentProvider();

    m_ports.links.registerForOpenEvents();
    m_session.observe();
    startSoftwareUpdate();

    m_ports.account.refreshCurrentUser();
    m_ports.teamLoader.update();
    m_ports.analytics.start();

    handleLaunchHelperIfNeeded(launch);
    enterSession(launch);

    m_ports.userNotifications.applicationDidFinishLaunching();
    m_ports.significantTimeChange.applicationDidFinishLaunching();
    m_session.refreshBadge();
}

void StartupSequence::setUpShortcuts()
{
    m_ports.shortcuts.setUp();
    for (int slot = int(MenuCommand::AddTask); slot <= int(MenuCommand::OpenHabit); ++slot)
        m_ports.shortcuts.bindMenuItem(MenuCommand(slot), slot);
    // Until a task is selected.
    m_ports.mainMenu.updateTaskMenuItemsWithEnabled(false);
}

void StartupSequence::startSoftwareUpdate()
{
    m_ports.softwareUpdate.startCheck();
    if (m_ports.softwareUpdate.comesFromAppStore()) m_ports.mainMenu.hideUpdateItem();
}

void StartupSequence::handleLaunchHelperIfNeeded(const LaunchRequest &launch)
{
    const bool isLoginItem = launch.cause == LaunchCause::LoginItem;
    m_session.setLaunchedAsLoginItem(isLoginItem || launch.cause == LaunchCause::AddTask);
    if (isLoginItem) m_ports.loginItemHelper.quitIfRunning();
}

void StartupSequence::enterSession(const LaunchRequest &launch)
{
    if (m_ports.account.currentUser()) {
        startupLog.info(u"user has signed in."_s);
        m_session.notifyUserSignIn();
    } else {
        startupLog.info(u"user not signed in."_s);
        m_ports.welcomeWindowController.showCentred();
        m_ports.windows.bringToFront(launch.activationToken);
    }
    // Whoever signs in later does so by hand, and wants a window.
    m_session.setLaunchedAsLoginItem(false);
}
