#pragma once

#include "app/ports/AccountPorts.h"
#include "app/ports/LaunchPorts.h"
#include "app/ports/WindowPorts.h"
#include "model/sync/KWSyncManager.h"
#include "model/sync/RecordSyncManagers.h"

/// The one object of a port that does nothing.
template <class Port>
Port &absent()
{
    static Port port;
    return port;
}

/// Everything that starting, signing in and signing out reach for in other rooms. Whoever composes the
/// program names the ports it fills; the others stay absent:
/// `AppPorts ports{.account = account, .mainWindowController = window};`
/// The objects must outlive the AppDelegate.
struct AppPorts {
    AccountPort &account;
    KWSyncManager &sync = absent<KWSyncManager>();
    KWHabitSyncManager &habitSync = absent<KWHabitSyncManager>();
    KWTaskTemplateSyncManager &taskTemplateSync = absent<KWTaskTemplateSyncManager>();

    AppManagerPort &appManager = absent<AppManagerPort>();
    UsageTimerPort &usageTimer = absent<UsageTimerPort>();
    KeyboardShortcutsPort &shortcuts = absent<KeyboardShortcutsPort>();
    MainMenuPort &mainMenu = absent<MainMenuPort>();
    ThemeFilesPort &themeFiles = absent<ThemeFilesPort>();
    FocusCoordinatorPort &focusCoordinator = absent<FocusCoordinatorPort>();
    ThemePort &theme = absent<ThemePort>();
    SearchIndexPort &searchIndex = absent<SearchIndexPort>();
    LinksPort &links = absent<LinksPort>();
    SoftwareUpdatePort &softwareUpdate = absent<SoftwareUpdatePort>();
    LoginItemHelperPort &loginItemHelper = absent<LoginItemHelperPort>();
    UserNotificationsPort &userNotifications = absent<UserNotificationsPort>();
    SignificantTimeChangePort &significantTimeChange = absent<SignificantTimeChangePort>();

    AnalyticsPort &analytics = absent<AnalyticsPort>();
    TeamLoaderPort &teamLoader = absent<TeamLoaderPort>();
    AccountDetailsPort &accountDetails = absent<AccountDetailsPort>();
    AttachmentsPort &attachments = absent<AttachmentsPort>();
    DailyCheckPort &dailyCheck = absent<DailyCheckPort>();
    HolidaysPort &holidays = absent<HolidaysPort>();
    RemotePushPort &remotePush = absent<RemotePushPort>();

    MainWindowPort &mainWindowController = absent<MainWindowPort>();
    WelcomeWindowPort &welcomeWindowController = absent<WelcomeWindowPort>();
    PreferencesWindowPort &preferencesWindowController = absent<PreferencesWindowPort>();
    QuickAddPort &quickAddWindow = absent<QuickAddPort>();
    WindowsPort &windows = absent<WindowsPort>();
    StatusItemPort &statusBarItem = absent<StatusItemPort>();
    DockPort &dock = absent<DockPort>();
    ListCountsPort &listCounts = absent<ListCountsPort>();
    WidgetTimelinesPort &widgetTimelines = absent<WidgetTimelinesPort>();
};
