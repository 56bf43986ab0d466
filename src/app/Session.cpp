#include "app/Session.h"

#include "app/ApplicationName.h"
#include "corvexkit/log/CXLog.h"
#include "model/events/NotificationNames.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {
constexpr CXLogger sessionLog{u"session"};
}

Session::Session(CXClock &clock, KWNotificationCenter &center, KWEventBus &bus, AppPorts ports)
    : m_center(center), m_bus(bus), m_ports(ports), m_dayClock(clock, center, [this] { refreshBadge(); })
{
}

void Session::observe()
{
    const auto on = [this](const QString &name, void (Session::*reaction)()) {
        m_observations.push_back(
            m_center.addObserver(name, [this, reaction](const auto &) { (this->*reaction)(); }));
    };
    on(KWUserDidSignInNotification, &Session::userDidSignIn);
    on(KWUserDidSignOutNotification, &Session::userDidSignOut);
    on(KWSyncDidBatchPullNotification, &Session::syncDidBatchPull);
    on(KWDataDidChangeOutsideMainAppNotification, &Session::refreshBadgeAndMenus);
    on(KWListDisplayConfigurationDidChangeNotification, &Session::refreshBadgeAndMenus);
    on(KWSyncDidPullHabitSettingsNotification, &Session::refreshBadge);
    on(KWHabitSettingsChangedNotification, &Session::refreshBadge);
    on(WorkspaceDidWakeNotification, &Session::computerDidAwake);
    on(SystemTimeZoneDidChangeNotification, &Session::systemTimeZoneDidChange);
    m_registration = m_bus.registerEventBus([this](const StoreChange &change) { recordsDidChange(change); });
}

void Session::notifyUserSignIn() { m_center.post(KWUserDidSignInNotification); }

void Session::userDidSignIn()
{
    const std::optional<KWUserModel> user = m_ports.account.currentUser();
    if (!user) return sessionLog.warning(u"A sign-in was announced, but nobody is signed in."_s);

    bringUpAccount(*user);
    bringUpSurfaces();
    startSecondLevelTimer();
    m_dayClock.start();
}

void Session::bringUpAccount(const KWUserModel &user)
{
    m_ports.analytics.setUser(user.sid, user.name);
    m_ports.accountDetails.fetchProfile();
    m_ports.accountDetails.fetchAvatar();
    m_ports.accountDetails.fetchStatus();
    m_ports.attachments.processLeftFromLastRun();
    m_ports.sync.syncImmediatelyWithPushCompletionHandler([](const Result<void> &pushed) {
        if (!pushed) sessionLog.warning(pushed.error().sentence);
    });
    m_ports.habitSync.batchSync();
    m_ports.dailyCheck.run();
    m_ports.holidays.userDidSignIn();
    m_ports.remotePush.registerIfNeeded();
    m_ports.taskTemplateSync.batchSync();
    m_ports.shortcuts.refreshConfiguration();
}

void Session::bringUpSurfaces()
{
    m_ports.statusBarItem.create();
    m_ports.dock.applyIconPreference();
    m_ports.mainMenu.setApplicationTitles({.about = textWithApplicationName("About %@"),
                                           .hide = textWithApplicationName("Hide %@"),
                                           .quit = textWithApplicationName("Quit %@")});
    m_ports.welcomeWindowController.close();
    m_isInBackground = m_isLaunchedAsLoginItem;
    if (!m_isInBackground) m_ports.mainWindowController.show();
}

void Session::userDidSignOut()
{
    m_isInBackground = false;
    m_ports.statusBarItem.remove();
    m_ports.dock.applyIconPreference();
    m_ports.dock.clearBadge();
    stopSecondLevelTimer();
    m_dayClock.stop();
    m_ports.listCounts.clear();
    m_ports.mainWindowController.close();
    m_ports.preferencesWindowController.close();
    m_ports.windows.closeAllOthers();
    m_ports.welcomeWindowController.switchToLastPage();
    m_ports.welcomeWindowController.showCentred();
    m_ports.statusBarItem.resetPopover();
    m_ports.windows.bringToFront({});
    m_ports.widgetTimelines.reloadAll();
}

void Session::computerDidAwake()
{
    m_dayClock.minuteLevelTimerAction();
    m_ports.theme.autoSwitchDarkIfNeeded();
}

void Session::systemTimeZoneDidChange() { m_dayClock.minuteLevelTimerAction(); }

void Session::showWindow(const QString &activationToken)
{
    m_isInBackground = false;
    if (isSignedIn())
        m_ports.mainWindowController.show();
    else
        m_ports.welcomeWindowController.showCentred();
    m_ports.windows.bringToFront(activationToken);
}

void Session::startSecondLevelTimer()
{
    stopSecondLevelTimer();
    for (const QString &each :
         {KWFocusRunningCountDownChanged, KWFocusRunningStateChanged, KWFocusRunningTaskChanged})
        m_secondLevelTimer.push_back(
            m_center.addObserver(each, [this](const auto &) { refreshStatusItem(); }));
}

void Session::refreshBadge()
{
    m_ports.dock.refreshBadge([&item = m_ports.statusBarItem] { item.refresh(); });
}

void Session::recordsDidChange(const StoreChange &change)
{
    // A list that is archived or deleted takes its tasks out of the count.
    for (const RecordKind kind : {RecordKind::Task, RecordKind::ChecklistItem, RecordKind::Project,
                                  RecordKind::Habit, RecordKind::HabitCheckin, RecordKind::HabitSkip})
        if (change.touches(kind)) return refreshBadge();
}

void Session::refreshBadgeAndMenus()
{
    refreshBadge();
    m_ports.mainMenu.refresh();
}
