#include "client/DesktopRooms.h"

#include "model/OrvaneKit.h"
#include "model/events/NotificationNames.h"
#include "model/settings/KWLocalizedString.h"
#include "views/theme/ThemeConfigurator.h"
#include "views/welcome/WelcomeWindow.h"

#include <QApplication>
#include <QWidget>

DesktopRooms::DesktopRooms(OrvaneKit &kit, CXClock &clock, DesktopServices services)
    : m_repeats(kit.manager(), kit.account(), kit.center(), clock)
    , m_occurrencesAhead(m_repeats, kit.center(), clock)
    , m_countFetcher(kit.manager(), kit.center())
    , m_sidebar(kit.manager(), kit.account(), m_countFetcher, kit.defaults(), kit.center(), kit.bus())
    , m_tasks(kit.manager(), kit.account(), kit.center(), kit.bus())
    , m_newTasks(kit)
    , m_calendars({kit.manager(), kit.account(), kit.center(), clock, services.feeds})
    , m_account(kit.account())
    , m_attachments(kit)
    , m_habitDays(kit)
    , m_counts(m_sidebar)
    , m_menu(kit.defaults())
    , m_preferences({kit, m_menu, services.loginItem, services.relaunch,
                     [this] { m_application.session().refreshBadge(); }})
    , m_deletes({clock, kit.manager(), kit.center(), kit.bus(), absent<KWSyncManager>(), m_mainWindow})
    , m_notificationShares(services.notifications)
    , m_focus(kit, clock,
              {.alerts = m_alerts,
               .popover = m_statusItem,
               .notifications = m_notificationShares.makeShare(),
               .sound = services.focusSound,
               .window = [this]() -> QWidget * { return m_mainWindow.window(); },
               .openWindow = [this](const QString &token) { m_application.session().showWindow(token); },
               .tellFailure = [this](const QString &sentence) { m_mainWindow.showFailure(sentence); }})
    , m_focusWindow({m_focus.presenter(), m_menu, kit.defaults()})
    , m_web{services.webPages, services.mail, [this] { return m_deletes.delayDeletedTaskSet(); },
            [this](const QString &link) { m_links.open(link); }}
    , m_mainWindow({kit, clock, m_sidebar, m_tasks, m_newTasks, m_menu, m_deletes, m_alerts, m_repeats,
                    m_calendars, m_focus.presenter(), m_web})
    , m_welcomeWindow(kit.account())
    , m_timeChanges({clock, kit.manager(), kit.account(), kit.defaults(), kit.center(),
                     absent<KWSyncManager>(), m_alerts, services.relaunch})
    , m_significantTimeChange(services.followsSystemZone ? m_timeChanges
                                                         : absent<SignificantTimeChangePort>())
    , m_reminders({clock, kit.manager(), kit.account(), kit.defaults(), kit.center(), kit.bus(),
                   m_notificationShares.makeShare(),
                   [this](const LaunchRequest &request) { m_application.open(request); },
                   [this](const QString &taskID) { return m_deletes.containsTask(taskID); },
                   [this] { return m_timeChanges.isAdapting(); }})
    , m_dock(services.dock)
    , m_commands(m_menu, kit.account())
    , m_statusItem(
          {kit, clock, m_newTasks, m_menu, m_deletes, services.statusArea, m_alerts, m_focus.presenter()})
    , m_quickAdd({kit, clock, m_newTasks, m_alerts, m_menu.shortcuts()})
    , m_links(kit.manager(), kit.account(), kit.center(), m_mainWindow)
    , m_application(clock, kit.center(), kit.bus(), ports())
{
    m_tasks.onOccurrencesNeeded = [this](Instant from, Instant to) { m_repeats.generateInstances(from, to); };
    m_timeChanges.onDidAdapt = [this] { m_reminders.checkReminders(); };
    m_menu.handle(MenuCommand::ReportProblem, m_mainWindow, [this, &kit, &clock] {
        KWWebViewController::showTickets(kit, clock, m_web, m_mainWindow.window());
    });
    connectStatusItem();
    connectFocus();
    decideAtTheLastWindow();
    QObject::connect(&m_mainWindow, &MainWindowController::linkRequested, &m_mainWindow,
                     [this](const QString &link) { m_links.open(link); });
    QObject::connect(&ThemeConfigurator::shared(), &ThemeConfigurator::themeChanged, &m_mainWindow,
                     [&kit] { kit.center().post(KWThemeDidChangeNotification); });
}

DesktopRooms::~DesktopRooms()
{
    m_deletes.commitPending();
    m_reminders.applicationWillTerminate();
}

// A port that is not named here has nobody behind it on this desktop.
AppPorts DesktopRooms::ports()
{
    return {.account = m_account,
            .shortcuts = m_menu,
            .mainMenu = m_menu,
            .focusCoordinator = m_focus,
            .theme = m_theme,
            .links = m_links,
            .userNotifications = m_reminders,
            .significantTimeChange = m_significantTimeChange,
            .attachments = m_attachments,
            .dailyCheck = m_habitDays,
            .mainWindowController = m_mainWindow,
            .welcomeWindowController = m_welcomeWindow,
            .preferencesWindowController = m_preferences,
            .quickAddWindow = m_quickAdd,
            .windows = m_windows,
            .statusBarItem = m_statusItem,
            .dock = m_dock,
            .listCounts = m_counts};
}

void DesktopRooms::connectStatusItem()
{
    m_commands.hasStatusItem = [this] { return m_statusItem.isShown(); };
    QObject::connect(&m_commands, &ApplicationCommands::failed, &m_mainWindow,
                     &MainWindowController::showMessage);
    QObject::connect(&m_statusItem, &StatusItem::windowRequested, &m_mainWindow,
                     [this] { m_application.session().showWindow({}); });
    QObject::connect(&m_statusItem, &StatusItem::addRequested, &m_mainWindow,
                     [this] { m_application.open({.cause = LaunchCause::AddTask}); });
    QObject::connect(&m_statusItem, &StatusItem::taskRequested, &m_mainWindow, [this](const QString &taskID) {
        m_application.session().showWindow({});
        m_mainWindow.showTask(taskID, KWListIdentifier::todayProject());
    });
}

void DesktopRooms::connectFocus()
{
    m_menu.handle(MenuCommand::StartOrAbandonPomo, m_focusWindow,
                  [this] { m_focus.manager().startOrAbandonPomo(); });
    m_menu.setHindrance(MenuCommand::StartOrAbandonPomo, [this] {
        if (!m_focus.presenter().isEnabled())
            return KWLocalizedString("Focus is switched off in the preferences.");
        return m_focus.manager().isStopwatchBusy() ? KWLocalizedString("The stopwatch is on.") : QString{};
    });
    QObject::connect(&m_focus.presenter(), &FocusPresenter::changed, &m_mainWindow,
                     [this] { m_menu.refresh(); });
    QObject::connect(&m_mainWindow, &MainWindowController::preferencesRequested, &m_mainWindow,
                     [this](const QString &page) { m_preferences.show(page); });
    QObject::connect(&m_mainWindow, &MainWindowController::focusWindowRequested, &m_mainWindow,
                     [this] { m_focusWindow.show(); });
    QObject::connect(&m_statusItem, &StatusItem::focusStarted, &m_mainWindow,
                     [this](const QString &sentence) { m_mainWindow.showFailure(sentence); });
}

void DesktopRooms::decideAtTheLastWindow()
{
    // Heard before Qt makes up its mind.
    QObject::connect(qApp, &QGuiApplication::lastWindowClosed, &m_lastWindow, [this] {
        const bool staysWithoutWindow = m_statusItem.isShown() || m_application.session().isInBackground();
        QApplication::setQuitOnLastWindowClosed(!staysWithoutWindow);
    });
}

DesktopRooms::Attachments::Attachments(OrvaneKit &kit) : m_service(kit.manager(), kit.folders().data) {}

void DesktopRooms::ThemeSchedule::autoSwitchDarkIfNeeded()
{
    ThemeConfigurator::shared().autoSwitchDarkIfNeeded();
}

// All but the welcome window, which stays for who signs in again.
void DesktopRooms::TopWindows::closeAllOthers()
{
    for (QWidget *each : QApplication::topLevelWidgets())
        if (each->isVisible() && each->isWindow() && !qobject_cast<WelcomeWindow *>(each)) each->close();
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
