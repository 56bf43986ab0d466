#include "app/AppDelegate.h"

#include "app/RecordingPorts.h"
#include "app/RunningApplication.h"
#include "model/events/NotificationNames.h"
#include "model/settings/KWUserDefaults.h"
#include "support/LogRecorder.h"
#include "support/ManualClock.h"
#include "support/TestMain.h"

#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {

struct WaitingAlert final : CrashProtectionAlert {
    void runModal(const QString &, const QString &, std::function<void()> then) override
    {
        continuation = std::move(then);
    }
    std::function<void()> continuation;
};

struct DelegateScene {
    explicit DelegateScene(int crashes = 0) { defaults.set(Settings::crashCount, crashes); }

    QTemporaryDir folder;
    KWUserDefaults defaults{folder.path()};
    ManualClock clock{"2030-05-01 09:00"};
    KWNotificationCenter center;
    KWEventBus bus;
    RecordingPorts recording;
    WaitingAlert alert;
    RunningApplication application{clock, center, bus, recording.ports()};
    bool canBringUp = true;
    AppDelegate delegate{clock, defaults, alert, [this] { return canBringUp ? &application : nullptr; }};
};

const LaunchRequest aLink{.links = {u"orvane://task/1"_s, u"orvane://task/2"_s},
                          .activationToken = u"token"_s};
const QStringList callsOfALink{u"windows.bringToFront token"_s, u"links.open orvane://task/1"_s,
                               u"links.open orvane://task/2"_s};
const QStringList callsOfTheBadge{u"dock.refreshBadge"_s, u"statusItem.refresh"_s};

} // namespace

/// From the first event of the program to the links that later starts hand over.
class AppDelegate_test : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void startsSignedIn()
    {
        DelegateScene scene;
        scene.recording.signIn();
        scene.delegate.applicationDidFinishLaunching({});
        QCOMPARE(scene.recording.calls.names, RecordingPorts::callsOfSignIn() + callsOfTheBadge);
    }

    void startsSignedOutAndOpensItsLinksLast()
    {
        DelegateScene scene;
        scene.delegate.applicationDidFinishLaunching(aLink);
        QCOMPARE(scene.recording.calls.names, QStringList{u"welcomeWindow.showCentred"_s} +
                                                  callsOfALink.mid(0, 1) + callsOfTheBadge +
                                                  callsOfALink.mid(1));
    }

    void startsAsLoginItemWithoutAWindow()
    {
        DelegateScene scene;
        scene.recording.signIn();
        scene.delegate.applicationDidFinishLaunching({.cause = LaunchCause::LoginItem});
        QVERIFY(!scene.recording.calls.names.contains(u"mainWindow.show"_s));
        // The next sign-in is somebody's wish.
        scene.center.post(KWUserDidSignInNotification);
        QCOMPARE(scene.recording.calls.names.last(), u"mainWindow.show"_s);
    }

    void hearsWhatHappensWhileTheAccountIsRead()
    {
        DelegateScene scene;
        scene.recording.account.onRefresh = [&] {
            scene.center.post(KWSyncDidPullHabitSettingsNotification);
        };
        scene.delegate.applicationDidFinishLaunching({});
        QCOMPARE(scene.recording.calls.names.mid(0, 2), callsOfTheBadge);
    }

    void logsLinksWithoutTheirSecrets()
    {
        DelegateScene scene;
        LogRecorder log;
        scene.delegate.applicationDidFinishLaunching(
            {.cause = LaunchCause::LoginItem, .links = {u"orvane://sign-in/done?code=secret#token"_s}});
        QCOMPARE(log.lines(u"startup"_s), QStringList({u"cause = login item; link = orvane://sign-in/done"_s,
                                                       u"user not signed in."_s}));
    }

    void needsNoRoomButTheAccount()
    {
        ManualClock clock{"2030-05-01 09:00"};
        KWNotificationCenter center;
        KWEventBus bus;
        RecordingPorts recording;
        recording.signIn();
        RunningApplication application{clock, center, bus, {.account = recording.account}};
        application.handleFinishLaunching(aLink);
        QVERIFY(!clock.isIdle());
        center.post(KWUserDidSignOutNotification);
        QVERIFY(clock.isIdle());
    }

    void startsNothingUnderTheAlertAndKeepsLaterStarts()
    {
        DelegateScene scene{3};
        scene.recording.signIn();
        scene.delegate.applicationDidFinishLaunching({});
        scene.delegate.open(aLink);
        QCOMPARE(scene.recording.calls.names, QStringList{});
        scene.alert.continuation();
        QCOMPARE(scene.recording.calls.names, RecordingPorts::callsOfSignIn() + callsOfTheBadge +
                                                  QStringList{u"mainWindow.show"_s} + callsOfALink);
    }

    void aLaunchThatCannotBringUpTheRoomsStartsNothingAndCounts()
    {
        DelegateScene scene;
        scene.canBringUp = false;
        scene.delegate.applicationDidFinishLaunching(aLink);
        scene.delegate.open({});
        QCOMPARE(scene.recording.calls.names, QStringList{});
        QCOMPARE(scene.defaults.value(Settings::crashCount), 1);
        scene.delegate.applicationWillTerminate();
        QCOMPARE(scene.defaults.value(Settings::crashCount), 0);
    }

    void takesLaterStarts()
    {
        DelegateScene scene;
        scene.delegate.applicationDidFinishLaunching({});
        scene.recording.calls.take();
        scene.delegate.open(aLink);
        QCOMPARE(scene.recording.calls.take(), QStringList{u"welcomeWindow.showCentred"_s} + callsOfALink);
        scene.recording.signIn();
        scene.delegate.open({});
        QCOMPARE(scene.recording.calls.take(),
                 QStringList({u"mainWindow.show"_s, u"windows.bringToFront"_s}));
        scene.delegate.open({.cause = LaunchCause::LoginItem});
        QCOMPARE(scene.recording.calls.take(), QStringList{});
    }
};

ORVANE_TEST(AppDelegate_test)
#include "AppDelegate_test.moc"
