#pragma once

#include "app/AppPorts.h"
#include "support/CaseTable.h"

/// A port that notes what it is asked for, as "port.operation" or "port.operation details".
template <class Port>
struct Noting : Port {
    Noting(const char *portName, QStringList &noted) : name{portName}, calls{noted} {}
    void note(const char *operation, const QString &details = {})
    {
        calls << QStringLiteral("%1.%2 %3")
                     .arg(QLatin1String{name}, QLatin1String{operation}, details)
                     .trimmed();
    }
    const char *name;
    QStringList &calls;
};

#define NOTES(operation, ...)                                                                                \
    void operation(__VA_ARGS__) override { note(#operation); }
#define NOTES_TEXT(operation)                                                                                \
    void operation(const QString &text) override { note(#operation, text); }
#define NOTED_PORT(Port, name, ...)                                                                          \
    struct Noted##Port final : Noting<Port> {                                                                \
        using Noting::Noting;                                                                                \
        __VA_ARGS__                                                                                          \
    } name { #name, calls }

/// Every port of the program, all noting into one list.
struct NotedPorts {
    QStringList calls;
    std::optional<KWUserModel> user;

    struct Account final : AccountPort {
        explicit Account(NotedPorts &all) : ports{all} {}
        void refreshCurrentUser() override { ports.calls << QStringLiteral("account.refreshCurrentUser"); }
        const std::optional<KWUserModel> &currentUser() const override { return ports.user; }
        NotedPorts &ports;
    } account{*this};
    NOTED_PORT(KWSyncManager, sync,
               NOTES(batchSyncIfNeeded) NOTES(manualSync)
                   NOTES(syncImmediatelyWithPushCompletionHandler, CompletionHandler));
    NOTED_PORT(AppManagerPort, appManager, NOTES(recordDateWhenLaunching));
    NOTED_PORT(UsageTimerPort, usageTimer, NOTES(start));
    NOTED_PORT(KeyboardShortcutsPort, shortcuts, NOTES(setUp) NOTES(refreshConfiguration));
    NOTED_PORT(MainMenuPort, mainMenu,
               NOTES(updateTaskMenuItemsWithEnabled, bool) NOTES(hideUpdateItem) NOTES(refresh)
                   NOTES(setApplicationTitles, const ApplicationMenuTitles &));
    NOTED_PORT(ThemeFilesPort, themeFiles, NOTES(migrateIfNeeded));
    NOTED_PORT(FocusCoordinatorPort, focusCoordinator, NOTES(applicationDidFinishLaunching));
    NOTED_PORT(ThemePort, theme, NOTES(setUp) NOTES(autoSwitchDarkIfNeeded));
    NOTED_PORT(SearchIndexPort, searchIndex, NOTES(createContentProvider));
    NOTED_PORT(LinksPort, links, NOTES(registerForOpenEvents) NOTES_TEXT(open));
    NOTED_PORT(SoftwareUpdatePort, softwareUpdate, NOTES(startCheck));
    NOTED_PORT(LoginItemHelperPort, loginItemHelper, NOTES(quitIfRunning));
    NOTED_PORT(UserNotificationsPort, userNotifications, NOTES(applicationDidFinishLaunching));
    NOTED_PORT(SignificantTimeChangePort, significantTimeChange, NOTES(applicationDidFinishLaunching));
    NOTED_PORT(AnalyticsPort, analytics, NOTES(start) NOTES(setUser, const QString &, const QString &));
    NOTED_PORT(TeamLoaderPort, teamLoader, NOTES(update));
    NOTED_PORT(AccountDetailsPort, accountDetails, NOTES(fetchProfile) NOTES(fetchAvatar) NOTES(fetchStatus));
    NOTED_PORT(AttachmentsPort, attachments, NOTES(processLeftFromLastRun));
    NOTED_PORT(KWHabitSyncManager, habitSync, NOTES(batchSync));
    NOTED_PORT(KWTaskTemplateSyncManager, taskTemplateSync, NOTES(batchSync));
    NOTED_PORT(DailyCheckPort, dailyCheck, NOTES(run));
    NOTED_PORT(HolidaysPort, holidays, NOTES(userDidSignIn));
    NOTED_PORT(RemotePushPort, remotePush, NOTES(registerIfNeeded));
    NOTED_PORT(MainWindowPort, mainWindowController, NOTES(show) NOTES(close));
    NOTED_PORT(WelcomeWindowPort, welcomeWindowController,
               NOTES(showCentred) NOTES(switchToLastPage) NOTES(close));
    NOTED_PORT(PreferencesWindowPort, preferencesWindowController, NOTES(close));
    struct QuickAdd final : Noting<QuickAddPort> {
        using Noting::Noting;
        void show(const QString &title, const QString &activationToken) override
        {
            note("show", title + QLatin1Char{' '} + activationToken);
        }
    } quickAddWindow{"quickAddWindow", calls};
    NOTED_PORT(WindowsPort, windows, NOTES(closeAllOthers) NOTES_TEXT(bringToFront));
    NOTED_PORT(StatusItemPort, statusBarItem, NOTES(create) NOTES(remove) NOTES(refresh) NOTES(resetPopover));
    struct Dock final : Noting<DockPort> {
        using Noting::Noting;
        NOTES(applyIconPreference)
        NOTES(clearBadge)
        void refreshBadge(std::function<void()> whenShown) override
        {
            note("refreshBadge");
            whenShown();
        }
    } dock{"dock", calls};
    NOTED_PORT(ListCountsPort, listCounts, NOTES(clear));
    NOTED_PORT(WidgetTimelinesPort, widgetTimelines, NOTES(reloadAll));

    // In the order of AppPorts.
    AppPorts ports = AppPorts(
        account, sync, habitSync, taskTemplateSync, appManager, usageTimer, shortcuts, mainMenu, themeFiles,
        focusCoordinator, theme, searchIndex, links, softwareUpdate, loginItemHelper, userNotifications,
        significantTimeChange, analytics, teamLoader, accountDetails, attachments, dailyCheck, holidays,
        remotePush, mainWindowController, welcomeWindowController, preferencesWindowController,
        quickAddWindow, windows, statusBarItem, dock, listCounts, widgetTimelines);

    void signIn() { user.emplace().sid = QStringLiteral("user1"); }
    QStringList take() { return std::exchange(calls, {}); }
};

/// The calls of one sequence in tests/data/app/orders.txt.
inline QStringList orderOf(const QString &sequence)
{
    QStringList order;
    for (const CaseRow &row : readCases("app/orders.txt", 2))
        if (row.cells.at(0) == sequence) order << row.cells.at(1);
    return order;
}
