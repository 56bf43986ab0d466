#include "app/Session.h"

#include "app/Orders.h"
#include "app/RecordingPorts.h"
#include "model/events/NotificationNames.h"
#include "support/LogRecorder.h"
#include "support/ManualClock.h"
#include "support/TestMain.h"

using namespace Qt::StringLiterals;
using namespace std::chrono;

namespace {

struct SessionScene {
    explicit SessionScene(const char *now = "2030-05-01 09:00:30") : clock{now} { session.observe(); }

    void signIn()
    {
        recording.signIn();
        center.post(KWUserDidSignInNotification);
        recording.calls.take();
    }

    ManualClock clock;
    KWNotificationCenter center;
    KWEventBus bus;
    RecordingPorts recording;
    Session session{clock, center, bus, recording.ports()};
};

StoreChange changeOf(RecordKind kind)
{
    StoreChange change;
    change.of(kind).updated << u"id"_s;
    return change;
}

} // namespace

class Session_test : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void signsInInOrder()
    {
        SessionScene scene;
        scene.recording.signIn();
        scene.session.notifyUserSignIn();
        QCOMPARE(scene.recording.calls.names, callsOf(u"sign-in"_s));
        QVERIFY(scene.session.dayClock().isRunning());
        QCOMPARE(scene.session.dayClock().dateForNewDayChecking(), scene.clock.now());
        QCOMPARE(scene.session.dayClock().dateForNewHourChecking(), scene.clock.now());
    }

    void opensNoWindowAsLoginItem()
    {
        SessionScene scene;
        scene.recording.signIn();
        scene.session.setLaunchedAsLoginItem(true);
        scene.session.userDidSignIn();
        QVERIFY(!scene.recording.calls.names.contains(u"mainWindow.show"_s));
        QCOMPARE(scene.recording.calls.names, callsOf(u"sign-in"_s).mid(0, callsOf(u"sign-in"_s).size() - 1));
    }

    void ignoresASignInOfNobody()
    {
        SessionScene scene;
        scene.session.notifyUserSignIn();
        QCOMPARE(scene.recording.calls.names, QStringList{});
        QVERIFY(scene.clock.isIdle());
    }

    void signsInThoughThePushFails()
    {
        SessionScene scene;
        LogRecorder log;
        scene.recording.sync.pushed = Error{u"The service does not answer."_s};
        scene.recording.signIn();
        scene.session.notifyUserSignIn();
        QCOMPARE(scene.recording.calls.names, callsOf(u"sign-in"_s));
        QCOMPARE(log.lines(u"session"_s), QStringList{u"The service does not answer."_s});
    }

    void signsOutInOrderAndLeavesNoTimer()
    {
        SessionScene scene;
        scene.signIn();
        scene.session.startSecondLevelTimer();
        scene.recording.account.user.reset();
        scene.center.post(KWUserDidSignOutNotification);
        QCOMPARE(scene.recording.calls.names, callsOf(u"sign-out"_s));
        QVERIFY(scene.clock.isIdle());
    }

    void signsInAgain()
    {
        SessionScene scene;
        scene.signIn();
        scene.center.post(KWUserDidSignOutNotification);
        scene.recording.calls.take();
        scene.session.notifyUserSignIn();
        QCOMPARE(scene.recording.calls.names, callsOf(u"sign-in"_s));
        QVERIFY(scene.session.dayClock().isRunning());
    }

    void refreshesTheBadgeEachMinute()
    {
        SessionScene scene;
        scene.signIn();
        scene.clock.advance(29s);
        QCOMPARE(scene.recording.calls.names, QStringList{});
        scene.clock.advance(1s);
        QCOMPARE(scene.recording.calls.take(),
                 QStringList({u"dock.refreshBadge"_s, u"statusItem.refresh"_s}));
    }

    void showsTheStatusAfterTheBadge()
    {
        SessionScene scene;
        scene.recording.dock.isCounting = true;
        scene.session.refreshBadge();
        QCOMPARE(scene.recording.calls.take(), QStringList{u"dock.refreshBadge"_s});
        scene.recording.dock.waiting();
        QCOMPARE(scene.recording.calls.take(), QStringList{u"statusItem.refresh"_s});
    }

    void refreshesTheStatusEachSecondOfFocus()
    {
        SessionScene scene;
        scene.session.startSecondLevelTimer();
        scene.clock.advance(3s);
        QCOMPARE(scene.recording.calls.take(), QStringList(3, u"statusItem.refresh"_s));
        scene.session.stopSecondLevelTimer();
        scene.clock.advance(3s);
        QCOMPARE(scene.recording.calls.take(), QStringList{});
    }

    void reactsTo_data()
    {
        QTest::addColumn<QString>("notification");
        QTest::addColumn<QStringList>("calls");
        const QStringList badge{u"dock.refreshBadge"_s, u"statusItem.refresh"_s};
        const QStringList badgeAndMenus = badge + QStringList{u"mainMenu.refresh"_s};
        QTest::newRow("pull") << KWSyncDidBatchPullNotification << badgeAndMenus;
        QTest::newRow("outside change") << KWDataDidChangeOutsideMainAppNotification << badgeAndMenus;
        QTest::newRow("list display") << KWListDisplayConfigurationDidChangeNotification << badgeAndMenus;
        QTest::newRow("habit settings") << KWSyncDidPullHabitSettingsNotification << badge;
        QTest::newRow("wake, signed out")
            << WorkspaceDidWakeNotification << QStringList{u"theme.autoSwitchDarkIfNeeded"_s};
        QTest::newRow("another") << KWSyncDidBatchPushNotification << QStringList{};
    }

    void reactsTo()
    {
        QFETCH(QString, notification);
        SessionScene scene;
        scene.center.post(notification);
        QTEST(scene.recording.calls.names, "calls");
        QVERIFY(scene.clock.isIdle());
    }

    void refreshesTheBadgeForTasksAndItems_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<bool>("refreshes");
        QTest::newRow("task") << int(RecordKind::Task) << true;
        QTest::newRow("checklist item") << int(RecordKind::ChecklistItem) << true;
        QTest::newRow("tag") << int(RecordKind::Tag) << false;
        QTest::newRow("settings") << int(RecordKind::UserSettings) << false;
    }

    void refreshesTheBadgeForTasksAndItems()
    {
        QFETCH(int, kind);
        SessionScene scene;
        scene.bus.post(changeOf(RecordKind(kind)));
        QTEST(scene.recording.calls.names.contains(u"dock.refreshBadge"_s), "refreshes");
    }

    void announcesOnWakeTheDayThatCameDuringSleep()
    {
        SessionScene scene{"2030-05-01 22:30:10"};
        scene.signIn();
        // As where the clock tells nothing of the sleep by itself.
        QStringList days;
        const auto observation = scene.center.addObserver(
            KWNewDayComesNotification, [&](const KWNotification &each) { days << each.name; });
        scene.clock.sleep(9h);
        scene.recording.calls.take();
        scene.center.post(WorkspaceDidWakeNotification);
        QCOMPARE(days.size(), 1);
        QCOMPARE(scene.recording.calls.names.last(), u"theme.autoSwitchDarkIfNeeded"_s);
        scene.center.post(WorkspaceDidWakeNotification);
        QCOMPARE(days.size(), 1);
    }

    void looksAtOnceOnWake()
    {
        SessionScene scene;
        scene.signIn();
        scene.clock.sleep(10s);
        scene.center.post(WorkspaceDidWakeNotification);
        QCOMPARE(scene.recording.calls.take(), QStringList({u"dock.refreshBadge"_s, u"statusItem.refresh"_s,
                                                            u"theme.autoSwitchDarkIfNeeded"_s}));
    }

    void showsTheWindowOfItsState()
    {
        SessionScene scene;
        scene.session.showWindow(u"token"_s);
        QCOMPARE(scene.recording.calls.take(),
                 QStringList({u"welcomeWindow.showCentred"_s, u"windows.bringToFront token"_s}));
        scene.signIn();
        scene.session.showWindow({});
        QCOMPARE(scene.recording.calls.take(),
                 QStringList({u"mainWindow.show"_s, u"windows.bringToFront"_s}));
    }

    void hearsNothingOnceGone()
    {
        ManualClock clock{"2030-05-01 09:00"};
        KWNotificationCenter center;
        KWEventBus bus;
        RecordingPorts recording;
        {
            Session session{clock, center, bus, recording.ports()};
            session.observe();
            recording.signIn();
            session.notifyUserSignIn();
        }
        recording.calls.take();
        center.post(KWSyncDidBatchPullNotification);
        bus.post(changeOf(RecordKind::Task));
        clock.advance(1h);
        QCOMPARE(recording.calls.names, QStringList{});
    }
};

ORVANE_TEST(Session_test)
#include "Session_test.moc"
