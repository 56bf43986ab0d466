#include "app/AppDelegate.h"

#include "app/NotedPorts.h"
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

struct DelegateScene : NotedPorts {
    QTemporaryDir folder;
    KWUserDefaults defaults{folder.path()};
    ManualClock clock{"2030-05-01 09:00"};
    KWNotificationCenter center;
    KWEventBus bus;
    WaitingAlert alert;
    RunningApplication application{clock, center, bus, ports};
    bool canBringUp = true;
    AppDelegate delegate{clock, defaults, alert, [this] { return canBringUp ? &application : nullptr; }};
};

const LaunchRequest aLink{.links = {u"orvane://task/1"_s, u"orvane://task/2"_s},
                          .activationToken = u"token"_s};
const QStringList callsOfALink{u"windows.bringToFront token"_s, u"links.open orvane://task/1"_s,
                               u"links.open orvane://task/2"_s};

} // namespace

/// From the first event of the program to the links that later starts hand over.
class AppDelegate_test : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void opensItsLinksLastAndTakesLaterStarts()
    {
        DelegateScene scene;
        scene.delegate.applicationDidFinishLaunching(aLink);
        QVERIFY(scene.calls.contains(callsOfALink.first()));
        QCOMPARE(scene.take().last(2), callsOfALink.last(2));
        scene.delegate.open(aLink);
        QCOMPARE(scene.take(), QStringList{u"welcomeWindow.showCentred"_s} + callsOfALink);
        scene.signIn();
        scene.delegate.open({});
        QCOMPARE(scene.take(), QStringList({u"mainWindow.show"_s, u"windows.bringToFront"_s}));
        scene.delegate.open({.cause = LaunchCause::LoginItem});
        QCOMPARE(scene.take(), QStringList{});
    }

    void startsAsLoginItemWithoutAWindowAndLogsNoSecrets()
    {
        DelegateScene scene;
        LogRecorder log;
        scene.signIn();
        scene.delegate.applicationDidFinishLaunching(
            {.cause = LaunchCause::LoginItem, .links = {u"orvane://sign-in/done?code=secret#token"_s}});
        QVERIFY(!scene.calls.contains(u"mainWindow.show"_s));
        QCOMPARE(log.lines(u"startup"_s).first(), u"cause = login item; link = orvane://sign-in/done"_s);
        // The next sign-in is somebody's wish.
        scene.center.post(KWUserDidSignInNotification);
        QCOMPARE(scene.calls.last(), u"mainWindow.show"_s);
    }

    void startsNothingUnderTheAlertAndKeepsLaterStarts()
    {
        DelegateScene scene;
        scene.defaults.set(Settings::crashCount, 3);
        scene.signIn();
        scene.delegate.applicationDidFinishLaunching({});
        scene.delegate.open(aLink);
        QCOMPARE(scene.take(), QStringList{});
        scene.alert.continuation();
        QCOMPARE(scene.take().last(4), QStringList{u"mainWindow.show"_s} + callsOfALink);
    }

    void aLaunchThatCannotBringUpTheRoomsStartsNothingAndCounts()
    {
        DelegateScene scene;
        scene.canBringUp = false;
        scene.delegate.applicationDidFinishLaunching(aLink);
        scene.delegate.open({});
        QCOMPARE(scene.calls, QStringList{});
        QCOMPARE(scene.defaults.value(Settings::crashCount), 1);
        scene.delegate.applicationWillTerminate();
        QCOMPARE(scene.defaults.value(Settings::crashCount), 0);
    }
};

ORVANE_TEST(AppDelegate_test)
#include "AppDelegate_test.moc"
