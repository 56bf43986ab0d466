#include "app/Session.h"

#include "app/RecordingPorts.h"
#include "model/events/NotificationNames.h"
#include "support/LogRecorder.h"
#include "support/ManualClock.h"
#include "support/TestMain.h"

using namespace Qt::StringLiterals;
using namespace std::chrono;

namespace {

struct SessionScene {
    SessionScene() { session.observe(); }

    void signIn()
    {
        recording.signIn();
        session.notifyUserSignIn();
    }

    ManualClock clock{"2030-05-01 09:00:30"};
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

const QStringList callsOfTheBadge{u"dock.refreshBadge"_s, u"statusItem.refresh"_s};

} // namespace

class Session_test : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void signsInThoughThePushFails()
    {
        SessionScene scene;
        LogRecorder log;
        scene.recording.sync.pushed = Error{u"The service does not answer."_s};
        scene.signIn();
        QCOMPARE(scene.recording.calls.names, RecordingPorts::callsOfSignIn());
        QCOMPARE(log.lines(u"session"_s), QStringList{u"The service does not answer."_s});
        QVERIFY(scene.session.dayClock().isRunning());
        QCOMPARE(scene.session.dayClock().dateForNewDayChecking(), scene.clock.now());
    }

    void ignoresASignInOfNobody()
    {
        SessionScene scene;
        scene.session.notifyUserSignIn();
        QCOMPARE(scene.recording.calls.names, QStringList{});
        QVERIFY(scene.clock.isIdle());
    }

    void signsOutLeavesNoTimerAndSignsInAgain()
    {
        SessionScene scene;
        scene.signIn();
        scene.session.startSecondLevelTimer();
        scene.recording.calls.take();
        scene.center.post(KWUserDidSignOutNotification);
        QCOMPARE(scene.recording.calls.take(),
                 QStringList({u"statusItem.remove"_s, u"dock.clearBadge"_s, u"mainWindow.close"_s,
                              u"windows.closeAllOthers"_s, u"welcomeWindow.showCentred"_s,
                              u"windows.bringToFront"_s}));
        QVERIFY(scene.clock.isIdle());
        scene.signIn();
        QCOMPARE(scene.recording.calls.names, RecordingPorts::callsOfSignIn());
        QVERIFY(scene.session.dayClock().isRunning());
    }

    void refreshesTheBadgeEachMinuteAndOnWake()
    {
        SessionScene scene;
        scene.signIn();
        scene.recording.calls.take();
        scene.clock.advance(29s);
        QCOMPARE(scene.recording.calls.names, QStringList{});
        scene.clock.advance(1s);
        QCOMPARE(scene.recording.calls.take(), callsOfTheBadge);
        scene.clock.sleep(10s);
        scene.center.post(WorkspaceDidWakeNotification);
        QCOMPARE(scene.recording.calls.take(),
                 callsOfTheBadge + QStringList{u"theme.autoSwitchDarkIfNeeded"_s});
        scene.clock.setZone("Asia/Tokyo");
        scene.center.post(SystemTimeZoneDidChangeNotification);
        QCOMPARE(scene.recording.calls.take(), callsOfTheBadge);
    }

    void reactsToNotifications()
    {
        SessionScene scene;
        const auto callsAfter = [&scene](const QString &notification) {
            scene.center.post(notification);
            return scene.recording.calls.take();
        };
        for (const QString &each : {KWSyncDidBatchPullNotification, KWDataDidChangeOutsideMainAppNotification,
                                    KWListDisplayConfigurationDidChangeNotification})
            QCOMPARE(callsAfter(each), callsOfTheBadge + QStringList{u"mainMenu.refresh"_s});
        QCOMPARE(callsAfter(KWSyncDidPullHabitSettingsNotification), callsOfTheBadge);
        // Signed out, the theme follows the time of day too.
        QCOMPARE(callsAfter(WorkspaceDidWakeNotification), QStringList{u"theme.autoSwitchDarkIfNeeded"_s});
        QCOMPARE(callsAfter(KWSyncDidBatchPushNotification), QStringList{});
        QVERIFY(scene.clock.isIdle());
    }

    void refreshesTheBadgeForWhatItCounts()
    {
        SessionScene scene;
        for (const RecordKind kind : {RecordKind::Task, RecordKind::ChecklistItem, RecordKind::Project}) {
            scene.bus.post(changeOf(kind));
            QCOMPARE(scene.recording.calls.take(), callsOfTheBadge);
        }
        scene.bus.post(changeOf(RecordKind::Tag));
        QCOMPARE(scene.recording.calls.take(), QStringList{});
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
