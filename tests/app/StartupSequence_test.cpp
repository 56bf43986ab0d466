#include "app/StartupSequence.h"

#include "app/Orders.h"
#include "app/RecordingPorts.h"
#include "app/Session.h"
#include "model/events/NotificationNames.h"
#include "support/LogRecorder.h"
#include "support/ManualClock.h"
#include "support/TestMain.h"

using namespace Qt::StringLiterals;

namespace {

struct StartScene {
    void start(const LaunchRequest &launch = {})
    {
        StartupSequence{recording.ports(), session}.handleFinishLaunching(launch);
    }

    ManualClock clock{"2030-05-01 09:00"};
    KWNotificationCenter center;
    KWEventBus bus;
    RecordingPorts recording;
    Session session{clock, center, bus, recording.ports()};
};

} // namespace

class StartupSequence_test : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void startsSignedIn()
    {
        StartScene scene;
        LogRecorder log;
        scene.recording.signIn();
        scene.start();
        QCOMPARE(scene.recording.calls.names, startInto(u"sign-in"_s));
        QCOMPARE(log.lines(u"startup"_s), QStringList({u"cause = person"_s, u"user has signed in."_s}));
    }

    void startsSignedOut()
    {
        StartScene scene;
        LogRecorder log;
        scene.start();
        QCOMPARE(scene.recording.calls.names, startInto(u"welcome"_s));
        QCOMPARE(log.lines(u"startup"_s), QStringList({u"cause = person"_s, u"user not signed in."_s}));
        QVERIFY(scene.clock.isIdle());
    }

    void bindsEveryShortcutToItsSlot()
    {
        StartScene scene;
        scene.start();
        const auto &bound = scene.recording.shortcuts.bound;
        QCOMPARE(bound.size(), 23);
        for (const auto &[command, slot] : bound)
            QCOMPARE(int(command), slot);
        QCOMPARE(bound.first().second, 6);
        // The ends of the runs of commands, by the numbers under which people's shortcuts are kept.
        QCOMPARE(int(MenuCommand::PriorityNone), 13);
        QCOMPARE(int(MenuCommand::Print), 17);
        QCOMPARE(int(MenuCommand::OpenCalendar), 22);
        QCOMPARE(int(MenuCommand::OpenTrash), 27);
    }

    void observesBeforeTheAccountIsRead()
    {
        StartScene scene;
        QStringList heardDuring;
        bool isAsking = false;
        scene.recording.calls.onCall = [&](const QString &call) {
            if (std::exchange(isAsking, true)) return;
            const auto before = scene.recording.calls.names.size();
            scene.center.post(KWSyncDidPullHabitSettingsNotification);
            if (scene.recording.calls.names.size() > before) heardDuring << call;
            isAsking = false;
        };
        scene.start();
        QVERIFY(!heardDuring.contains(u"links.registerForOpenEvents"_s));
        QCOMPARE(heardDuring.value(0), u"softwareUpdate.startCheck"_s);
    }

    void startsAsLoginItemWithoutAWindow()
    {
        StartScene scene;
        scene.recording.signIn();
        scene.start({.cause = LaunchCause::LoginItem});
        const QStringList &calls = scene.recording.calls.names;
        QVERIFY(!calls.contains(u"mainWindow.show"_s));
        QCOMPARE(calls.indexOf(u"loginItemHelper.quitIfRunning"_s), calls.indexOf(u"analytics.start"_s) + 1);
        // The next sign-in is somebody's wish.
        QVERIFY(!scene.session.isLaunchedAsLoginItem());
        scene.session.notifyUserSignIn();
        QCOMPARE(scene.recording.calls.names.last(), u"mainWindow.show"_s);
    }

    void offersUpdatesWhereNoStoreBringsThem()
    {
        StartScene scene;
        scene.recording.softwareUpdate.fromAppStore = false;
        scene.start();
        QVERIFY(!scene.recording.calls.names.contains(u"mainMenu.hideUpdateItem"_s));
    }

    void logsLinksWithoutTheirSecrets()
    {
        StartScene scene;
        LogRecorder log;
        scene.start(
            {.cause = LaunchCause::LoginItem, .links = {u"orvane://sign-in/done?code=secret#token"_s}});
        QCOMPARE(log.lines(u"startup"_s).value(0), u"cause = login item; link = orvane://sign-in/done"_s);
    }

    void needsNoRoomButTheAccount()
    {
        ManualClock clock{"2030-05-01 09:00"};
        KWNotificationCenter center;
        KWEventBus bus;
        RecordingPorts recording;
        recording.signIn();
        const AppPorts ports{.account = recording.account};
        Session session{clock, center, bus, ports};
        StartupSequence{ports, session}.handleFinishLaunching({});
        QVERIFY(session.dayClock().isRunning());
        center.post(KWUserDidSignOutNotification);
        QVERIFY(clock.isIdle());
    }
};

ORVANE_TEST(StartupSequence_test)
#include "StartupSequence_test.moc"
