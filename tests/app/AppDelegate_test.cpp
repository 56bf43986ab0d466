#include "app/AppDelegate.h"

#include "app/Orders.h"
#include "app/RecordingPorts.h"
#include "app/RunningApplication.h"
#include "model/settings/KWUserDefaults.h"
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

} // namespace

class AppDelegate_test : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void opensItsOwnLinksAfterTheStart()
    {
        DelegateScene scene;
        scene.delegate.applicationDidFinishLaunching(aLink);
        const QStringList &calls = scene.recording.calls.names;
        QCOMPARE(calls.mid(calls.size() - 2),
                 QStringList({u"links.open orvane://task/1"_s, u"links.open orvane://task/2"_s}));
        QVERIFY(calls.contains(u"windows.bringToFront token"_s));
    }

    void startsNothingUnderTheAlert()
    {
        DelegateScene scene{3};
        scene.recording.signIn();
        scene.delegate.applicationDidFinishLaunching({});
        QCOMPARE(scene.recording.calls.names, QStringList{});
        scene.alert.continuation();
        QCOMPARE(scene.recording.calls.names, startInto(u"sign-in"_s));
    }

    void keepsLaterStartsUntilLaunched()
    {
        DelegateScene scene{3};
        scene.recording.signIn();
        scene.delegate.applicationDidFinishLaunching({});
        scene.delegate.open(aLink);
        QCOMPARE(scene.recording.calls.names, QStringList{});
        scene.alert.continuation();
        const QStringList &calls = scene.recording.calls.names;
        QCOMPARE(calls.mid(calls.size() - 4),
                 QStringList({u"mainWindow.show"_s, u"windows.bringToFront token"_s,
                              u"links.open orvane://task/1"_s, u"links.open orvane://task/2"_s}));
    }

    void aLaunchThatCannotBringUpTheRoomsStartsNothingAndCounts()
    {
        DelegateScene scene;
        scene.canBringUp = false;
        scene.delegate.applicationDidFinishLaunching(aLink);
        scene.delegate.open({});
        QCOMPARE(scene.recording.calls.names, QStringList{});
        QCOMPARE(scene.defaults.value(Settings::crashCount), 1);
    }

    void takesLaterStarts_data()
    {
        QTest::addColumn<int>("cause");
        QTest::addColumn<QStringList>("calls");
        QTest::newRow("person") << int(LaunchCause::Person)
                                << QStringList{u"mainWindow.show"_s, u"windows.bringToFront"_s};
        QTest::newRow("login item") << int(LaunchCause::LoginItem) << QStringList{};
    }

    void takesLaterStarts()
    {
        QFETCH(int, cause);
        DelegateScene scene;
        scene.recording.signIn();
        scene.delegate.applicationDidFinishLaunching({});
        scene.recording.calls.take();
        scene.delegate.open({.cause = LaunchCause(cause)});
        QTEST(scene.recording.calls.names, "calls");
    }

    void terminatesAsHealthy()
    {
        DelegateScene scene{2};
        scene.delegate.applicationDidFinishLaunching({});
        QCOMPARE(scene.defaults.value(Settings::crashCount), 3);
        scene.delegate.applicationWillTerminate();
        QCOMPARE(scene.defaults.value(Settings::crashCount), 0);
    }
};

ORVANE_TEST(AppDelegate_test)
#include "AppDelegate_test.moc"
