#pragma once

#include "app/AppPorts.h"

#include <QStringList>

/// What the ports were asked for, in order, as "port.operation".
struct PortCalls {
    QStringList names;
    std::function<void(const QString &)> onCall = [](const QString &) {};

    void operator()(const char *name, const QString &details = {})
    {
        const QString call =
            QString::fromLatin1(name) + (details.isEmpty() ? QString{} : QLatin1Char(' ') + details);
        names << call;
        onCall(call);
    }
    QStringList take() { return std::exchange(names, {}); }
};

template <class Port>
struct RecordingPort : Port {
    explicit RecordingPort(PortCalls &portCalls) : called{portCalls} {}
    PortCalls &called;
};

struct RecordingAppManager final : RecordingPort<AppManagerPort> {
    using RecordingPort::RecordingPort;
    void recordDateWhenLaunching() override { called("appManager.recordDateWhenLaunching"); }
};

struct RecordingUsageTimer final : RecordingPort<UsageTimerPort> {
    using RecordingPort::RecordingPort;
    void start() override { called("usageTimer.start"); }
};

struct RecordingThemeFiles final : RecordingPort<ThemeFilesPort> {
    using RecordingPort::RecordingPort;
    void migrateIfNeeded() override { called("themeFiles.migrateIfNeeded"); }
};

struct RecordingTheme final : RecordingPort<ThemePort> {
    using RecordingPort::RecordingPort;
    void setUp() override { called("theme.setUp"); }
    void autoSwitchDarkIfNeeded() override { called("theme.autoSwitchDarkIfNeeded"); }
};

struct RecordingFocusCoordinator final : RecordingPort<FocusCoordinatorPort> {
    using RecordingPort::RecordingPort;
    void applicationDidFinishLaunching() override
    {
        called("focusCoordinator.applicationDidFinishLaunching");
    }
};

struct RecordingSearchIndex final : RecordingPort<SearchIndexPort> {
    using RecordingPort::RecordingPort;
    void createContentProvider() override { called("searchIndex.createContentProvider"); }
};

struct RecordingLinks final : RecordingPort<LinksPort> {
    using RecordingPort::RecordingPort;
    void registerForOpenEvents() override { called("links.registerForOpenEvents"); }
    void open(const QString &link) override { called("links.open", link); }
};

struct RecordingSoftwareUpdate final : RecordingPort<SoftwareUpdatePort> {
    using RecordingPort::RecordingPort;
    void startCheck() override { called("softwareUpdate.startCheck"); }
    bool comesFromAppStore() const override { return fromAppStore; }
    bool fromAppStore = true;
};

struct RecordingLoginItemHelper final : RecordingPort<LoginItemHelperPort> {
    using RecordingPort::RecordingPort;
    void quitIfRunning() override { called("loginItemHelper.quitIfRunning"); }
};

struct RecordingUserNotifications final : RecordingPort<UserNotificationsPort> {
    using RecordingPort::RecordingPort;
    void applicationDidFinishLaunching() override
    {
        called("userNotifications.applicationDidFinishLaunching");
    }
};

struct RecordingSignificantTimeChange final : RecordingPort<SignificantTimeChangePort> {
    using RecordingPort::RecordingPort;
    void applicationDidFinishLaunching() override
    {
        called("significantTimeChange.applicationDidFinishLaunching");
    }
};

struct RecordingAccount final : RecordingPort<AccountPort> {
    using RecordingPort::RecordingPort;
    void refreshCurrentUser() override { called("account.refreshCurrentUser"); }
    const std::optional<KWUserModel> &currentUser() const override { return user; }
    std::optional<KWUserModel> user;
};

struct RecordingAccountDetails final : RecordingPort<AccountDetailsPort> {
    using RecordingPort::RecordingPort;
    void fetchProfile() override { called("accountDetails.fetchProfile"); }
    void fetchAvatar() override { called("accountDetails.fetchAvatar"); }
    void fetchStatus() override { called("accountDetails.fetchStatus"); }
};

struct RecordingAnalytics final : RecordingPort<AnalyticsPort> {
    using RecordingPort::RecordingPort;
    void start() override { called("analytics.start"); }
    void setUser(const QString &userID, const QString &nickName) override
    {
        called("analytics.setUser", userID + QLatin1Char(' ') + nickName);
    }
};

struct RecordingTeamLoader final : RecordingPort<TeamLoaderPort> {
    using RecordingPort::RecordingPort;
    void update() override { called("teamLoader.update"); }
};

struct RecordingAttachments final : RecordingPort<AttachmentsPort> {
    using RecordingPort::RecordingPort;
    void processLeftFromLastRun() override { called("attachments.processLeftFromLastRun"); }
};

struct RecordingSync final : RecordingPort<KWSyncManager> {
    using RecordingPort::RecordingPort;
    void batchSyncIfNeeded() override { called("sync.batchSyncIfNeeded"); }
    void syncImmediatelyWithPushCompletionHandler(PushCompletionHandler handler) override
    {
        called("sync.syncImmediately");
        handler(pushed);
    }
    void manualSync() override { called("sync.manualSync"); }
    Result<void> pushed;
};

struct RecordingHabits final : RecordingPort<HabitsPort> {
    using RecordingPort::RecordingPort;
    void batchSync() override { called("habits.batchSync"); }
    void runDailyCheck() override { called("habits.runDailyCheck"); }
};

struct RecordingHolidays final : RecordingPort<HolidaysPort> {
    using RecordingPort::RecordingPort;
    void userDidSignIn() override { called("holidays.userDidSignIn"); }
};

struct RecordingRemotePush final : RecordingPort<RemotePushPort> {
    using RecordingPort::RecordingPort;
    void registerIfNeeded() override { called("remotePush.registerIfNeeded"); }
};

struct RecordingTaskTemplates final : RecordingPort<TaskTemplatesPort> {
    using RecordingPort::RecordingPort;
    void sync() override { called("taskTemplates.sync"); }
};

struct RecordingMainWindow final : RecordingPort<MainWindowPort> {
    using RecordingPort::RecordingPort;
    void show() override { called("mainWindow.show"); }
    void close() override { called("mainWindow.close"); }
};

struct RecordingWelcomeWindow final : RecordingPort<WelcomeWindowPort> {
    using RecordingPort::RecordingPort;
    void showCentred() override { called("welcomeWindow.showCentred"); }
    void switchToLastPage() override { called("welcomeWindow.switchToLastPage"); }
    void close() override { called("welcomeWindow.close"); }
};

struct RecordingWindows final : RecordingPort<WindowsPort> {
    using RecordingPort::RecordingPort;
    void closePreferences() override { called("windows.closePreferences"); }
    void closeAllOthers() override { called("windows.closeAllOthers"); }
    void bringToFront(const QString &activationToken) override
    {
        called("windows.bringToFront", activationToken);
    }
};

struct RecordingMainMenu final : RecordingPort<MainMenuPort> {
    using RecordingPort::RecordingPort;
    void updateTaskMenuItemsWithEnabled(bool enabled) override
    {
        called(enabled ? "mainMenu.enableTaskItems" : "mainMenu.disableTaskItems");
    }
    void hideUpdateItem() override { called("mainMenu.hideUpdateItem"); }
    void setApplicationTitles(const ApplicationMenuTitles &titles) override
    {
        called("mainMenu.setApplicationTitles",
               QStringList{titles.about, titles.hide, titles.quit}.join(QStringLiteral(", ")));
    }
    void refresh() override { called("mainMenu.refresh"); }
};

struct RecordingShortcuts final : RecordingPort<KeyboardShortcutsPort> {
    using RecordingPort::RecordingPort;
    void setUp() override { called("shortcuts.setUp"); }
    void bindMenuItem(MenuCommand command, int slot) override { bound << std::pair{command, slot}; }
    void refreshConfiguration() override { called("shortcuts.refreshConfiguration"); }
    QList<std::pair<MenuCommand, int>> bound;
};

struct RecordingStatusItem final : RecordingPort<StatusItemPort> {
    using RecordingPort::RecordingPort;
    void create() override { called("statusItem.create"); }
    void remove() override { called("statusItem.remove"); }
    void refresh() override { called("statusItem.refresh"); }
    void resetPopover() override { called("statusItem.resetPopover"); }
};

/// Counts at once, or keeps the caller waiting.
struct RecordingDock final : RecordingPort<DockPort> {
    using RecordingPort::RecordingPort;
    void applyIconPreference() override { called("dock.applyIconPreference"); }
    void refreshBadge(std::function<void()> whenShown) override
    {
        called("dock.refreshBadge");
        if (isCounting)
            waiting = std::move(whenShown);
        else
            whenShown();
    }
    void clearBadge() override { called("dock.clearBadge"); }
    bool isCounting = false;
    std::function<void()> waiting;
};

struct RecordingListCounts final : RecordingPort<ListCountsPort> {
    using RecordingPort::RecordingPort;
    void clear() override { called("listCounts.clear"); }
};

struct RecordingWidgetTimelines final : RecordingPort<WidgetTimelinesPort> {
    using RecordingPort::RecordingPort;
    void reloadAll() override { called("widgetTimelines.reloadAll"); }
};

/// Every port, each noting what it is asked for.
struct RecordingPorts {
    PortCalls calls;
    RecordingAccount account{calls};
    RecordingSync sync{calls};
    RecordingAppManager appManager{calls};
    RecordingUsageTimer usageTimer{calls};
    RecordingShortcuts shortcuts{calls};
    RecordingMainMenu mainMenu{calls};
    RecordingThemeFiles themeFiles{calls};
    RecordingFocusCoordinator focusCoordinator{calls};
    RecordingTheme theme{calls};
    RecordingSearchIndex searchIndex{calls};
    RecordingLinks links{calls};
    RecordingSoftwareUpdate softwareUpdate{calls};
    RecordingLoginItemHelper loginItemHelper{calls};
    RecordingUserNotifications userNotifications{calls};
    RecordingSignificantTimeChange significantTimeChange{calls};
    RecordingAnalytics analytics{calls};
    RecordingTeamLoader teamLoader{calls};
    RecordingAccountDetails accountDetails{calls};
    RecordingAttachments attachments{calls};
    RecordingHabits habits{calls};
    RecordingHolidays holidays{calls};
    RecordingRemotePush remotePush{calls};
    RecordingTaskTemplates taskTemplates{calls};
    RecordingMainWindow mainWindow{calls};
    RecordingWelcomeWindow welcomeWindow{calls};
    RecordingWindows windows{calls};
    RecordingStatusItem statusItem{calls};
    RecordingDock dock{calls};
    RecordingListCounts listCounts{calls};
    RecordingWidgetTimelines widgetTimelines{calls};

    AppPorts ports()
    {
        return {account,
                sync,
                appManager,
                usageTimer,
                shortcuts,
                mainMenu,
                themeFiles,
                focusCoordinator,
                theme,
                searchIndex,
                links,
                softwareUpdate,
                loginItemHelper,
                userNotifications,
                significantTimeChange,
                analytics,
                teamLoader,
                accountDetails,
                attachments,
                habits,
                holidays,
                remotePush,
                taskTemplates,
                mainWindow,
                welcomeWindow,
                windows,
                statusItem,
                dock,
                listCounts,
                widgetTimelines};
    }
    void signIn()
    {
        KWUserModel user;
        user.sid = QStringLiteral("user1");
        user.name = QStringLiteral("Nick");
        account.user = user;
    }
};
