#include "app/StartupSequence.h"

#include "app/Session.h"
#include "model/events/NotificationNames.h"
#include "support/CaseTable.h"
#include "support/ManualClock.h"
#include "support/TestMain.h"

using namespace Qt::StringLiterals;

namespace {

/// A port that notes what it is asked for, as "port.operation".
template <class Port>
struct Noting : Port {
    Noting(const char *portName, QStringList &noted) : name{portName}, calls{noted} {}
    void note(const char *operation)
    {
        calls << QString::fromLatin1(name) + u'.' + QString::fromLatin1(operation);
    }
    const char *name;
    QStringList &calls;
};

#define NOTES(operation, ...)                                                                                \
    void operation(__VA_ARGS__) override { note(#operation); }
#define NOTING_PORT(Port, ...)                                                                               \
    struct Noted##Port final : Noting<Port> {                                                                \
        using Noting::Noting;                                                                                \
        __VA_ARGS__                                                                                          \
    }

NOTING_PORT(AppManagerPort, NOTES(recordDateWhenLaunching));
NOTING_PORT(UsageTimerPort, NOTES(start));
NOTING_PORT(KeyboardShortcutsPort, NOTES(setUp) NOTES(refreshConfiguration));
NOTING_PORT(MainMenuPort, NOTES(updateTaskMenuItemsWithEnabled, bool) NOTES(hideUpdateItem)
                              NOTES(setApplicationTitles, const ApplicationMenuTitles &));
NOTING_PORT(ThemeFilesPort, NOTES(migrateIfNeeded));
NOTING_PORT(FocusCoordinatorPort, NOTES(applicationDidFinishLaunching));
NOTING_PORT(ThemePort, NOTES(setUp));
NOTING_PORT(SearchIndexPort, NOTES(createContentProvider));
NOTING_PORT(LinksPort, NOTES(registerForOpenEvents));
NOTING_PORT(SoftwareUpdatePort, NOTES(startCheck));
NOTING_PORT(UserNotificationsPort, NOTES(applicationDidFinishLaunching));
NOTING_PORT(SignificantTimeChangePort, NOTES(applicationDidFinishLaunching));
NOTING_PORT(AnalyticsPort, NOTES(start) NOTES(setUser, const QString &, const QString &));
NOTING_PORT(TeamLoaderPort, NOTES(update));
NOTING_PORT(AccountDetailsPort, NOTES(fetchProfile) NOTES(fetchAvatar) NOTES(fetchStatus));
NOTING_PORT(AttachmentsPort, NOTES(processLeftFromLastRun));
NOTING_PORT(HabitsPort, NOTES(batchSync) NOTES(runDailyCheck));
NOTING_PORT(HolidaysPort, NOTES(userDidSignIn));
NOTING_PORT(RemotePushPort, NOTES(registerIfNeeded));
NOTING_PORT(TaskTemplatesPort, NOTES(sync));
NOTING_PORT(MainWindowPort, NOTES(show) NOTES(close));
NOTING_PORT(WelcomeWindowPort, NOTES(showCentred) NOTES(switchToLastPage) NOTES(close));
NOTING_PORT(WindowsPort, NOTES(closePreferences) NOTES(closeAllOthers) NOTES(bringToFront, const QString &));
NOTING_PORT(StatusItemPort, NOTES(create) NOTES(remove) NOTES(refresh) NOTES(resetPopover));
NOTING_PORT(ListCountsPort, NOTES(clear));
NOTING_PORT(WidgetTimelinesPort, NOTES(reloadAll));
NOTING_PORT(KWSyncManager, NOTES(batchSyncIfNeeded) NOTES(manualSync)
                               NOTES(syncImmediatelyWithPushCompletionHandler, PushCompletionHandler));

struct NotedDock final : Noting<DockPort> {
    using Noting::Noting;
    NOTES(applyIconPreference)
    NOTES(clearBadge)
    void refreshBadge(std::function<void()> whenShown) override
    {
        note("refreshBadge");
        whenShown();
    }
};

struct NotedAccount final : Noting<AccountPort> {
    using Noting::Noting;
    NOTES(refreshCurrentUser)
    const std::optional<KWUserModel> &currentUser() const override { return user; }
    std::optional<KWUserModel> user;
};

// In the order of AppPorts.
#define EVERY_PORT(X)                                                                                        \
    X(NotedAccount, account)                                                                                 \
    X(NotedKWSyncManager, sync)                                                                              \
    X(NotedAppManagerPort, appManager)                                                                       \
    X(NotedUsageTimerPort, usageTimer)                                                                       \
    X(NotedKeyboardShortcutsPort, shortcuts)                                                                 \
    X(NotedMainMenuPort, mainMenu)                                                                           \
    X(NotedThemeFilesPort, themeFiles)                                                                       \
    X(NotedFocusCoordinatorPort, focusCoordinator)                                                           \
    X(NotedThemePort, theme)                                                                                 \
    X(NotedSearchIndexPort, searchIndex)                                                                     \
    X(NotedLinksPort, links)                                                                                 \
    X(NotedSoftwareUpdatePort, softwareUpdate)                                                               \
    X(NotedUserNotificationsPort, userNotifications)                                                         \
    X(NotedSignificantTimeChangePort, significantTimeChange)                                                 \
    X(NotedAnalyticsPort, analytics)                                                                         \
    X(NotedTeamLoaderPort, teamLoader)                                                                       \
    X(NotedAccountDetailsPort, accountDetails)                                                               \
    X(NotedAttachmentsPort, attachments)                                                                     \
    X(NotedHabitsPort, habits)                                                                               \
    X(NotedHolidaysPort, holidays)                                                                           \
    X(NotedRemotePushPort, remotePush)                                                                       \
    X(NotedTaskTemplatesPort, taskTemplates)                                                                 \
    X(NotedMainWindowPort, mainWindow)                                                                       \
    X(NotedWelcomeWindowPort, welcomeWindow)                                                                 \
    X(NotedWindowsPort, windows)                                                                             \
    X(NotedStatusItemPort, statusItem)                                                                       \
    X(NotedDock, dock)                                                                                       \
    X(NotedListCountsPort, listCounts)                                                                       \
    X(NotedWidgetTimelinesPort, widgetTimelines)

/// A program whose ports all note into one list.
struct NotedProgram {
#define DECLARE(Type, name) Type name{#name, calls};
#define FILL(Type, name) .name = name,

    QStringList calls;
    EVERY_PORT(DECLARE)
    AppPorts ports{EVERY_PORT(FILL)};
    ManualClock clock{"2030-05-01 09:00"};
    KWNotificationCenter center;
    KWEventBus bus;
    Session session{clock, center, bus, ports};

    void start() { StartupSequence{ports, session}.handleFinishLaunching({}); }
};

QStringList sequence(const QString &name)
{
    QStringList calls;
    for (const CaseRow &row : readCases("app/orders.txt", 2))
        if (row.cells.at(0) == name) calls << row.cells.at(1);
    return calls;
}

/// A start that leads into the sequence `session`.
QStringList startInto(const QString &session)
{
    QStringList calls = sequence(u"start"_s);
    const qsizetype place = calls.indexOf(u"session"_s);
    return calls.mid(0, place) + sequence(session) + calls.mid(place + 1);
}

} // namespace

/// Rooms rely on the order in which they are called.
class LaunchOrder_test : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ofAStartSignedInAndOfASignOut()
    {
        NotedProgram program;
        program.account.user.emplace().sid = u"user1"_s;
        program.start();
        QCOMPARE(program.calls, startInto(u"sign-in"_s));
        program.calls.clear();
        program.center.post(KWUserDidSignOutNotification);
        QCOMPARE(program.calls, sequence(u"sign-out"_s));
    }

    void ofAStartSignedOut()
    {
        NotedProgram program;
        program.start();
        QCOMPARE(program.calls, startInto(u"welcome"_s));
    }
};

ORVANE_TEST(LaunchOrder_test)
#include "LaunchOrder_test.moc"
