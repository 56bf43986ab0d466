#include "app/AppDelegate.h"

#include "app/NotedPorts.h"
#include "app/RunningApplication.h"
#include "model/events/NotificationNames.h"
#include "model/settings/KWUserDefaults.h"
#include "support/CaseTable.h"
#include "support/Files.h"
#include "support/LogRecorder.h"
#include "support/ManualClock.h"
#include "support/TestMain.h"

#include <QSettings>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;
using namespace std::chrono;

namespace {

struct WaitingAlert final : CrashProtectionAlert {
    void runModal(const QString &alertTitle, const QString &, std::function<void()> then) override
    {
        title = alertTitle;
        continuation = std::move(then);
    }
    QString title;
    std::function<void()> continuation;
};

const QString countKey = u"org.orvane.crash.cout"_s;

struct DelegateScene : NotedPorts {
    QTemporaryDir folder;
    KWUserDefaults defaults{folder.path()};
    ManualClock clock{"2030-05-01 09:00"};
    KWNotificationCenter center;
    KWEventBus bus;
    WaitingAlert alert;
    RunningApplication application{clock, center, bus, ports};
    bool canBringUp = true;
    int countAtLaunch = 0;
    AppDelegate delegate{clock, defaults, alert, [this] {
                             countAtLaunch = countOnDisk();
                             return canBringUp ? &application : nullptr;
                         }};

    QString settings() const { return folder.filePath(u"standard.ini"_s); }
    // As another process would read it: settings of one process share what they have not written yet.
    int countOnDisk() const
    {
        const QString text = QString::fromUtf8(bytesOf(settings()));
        return text.section(countKey + u'=', 1).section(u'\n', 0, 0).toInt();
    }
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
        QCOMPARE(scene.take(), QStringList{u"welcomeWindowController.showCentred"_s} + callsOfALink);
        scene.signIn();
        scene.delegate.open({});
        QCOMPARE(scene.take(), QStringList({u"mainWindowController.show"_s, u"windows.bringToFront"_s}));
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
        QVERIFY(!scene.calls.contains(u"mainWindowController.show"_s));
        QCOMPARE(log.lines(u"startup"_s).first(), u"cause = login item; link = orvane://sign-in/done"_s);
        // The next sign-in is somebody's wish.
        scene.center.post(KWUserDidSignInNotification);
        QCOMPARE(scene.calls.last(), u"mainWindowController.show"_s);
    }

    void opensNoMainWindowForATask()
    {
        const LaunchRequest task{
            .cause = LaunchCause::AddTask, .title = u"Pay rent"_s, .activationToken = u"token"_s};
        const QString quickAdd = u"quickAddWindow.show Pay rent token"_s;
        DelegateScene scene;
        LogRecorder log;
        scene.signIn();
        scene.delegate.applicationDidFinishLaunching(task);
        QVERIFY(!scene.calls.contains(u"mainWindowController.show"_s));
        QVERIFY(!scene.calls.contains(u"loginItemHelper.quitIfRunning"_s));
        QCOMPARE(scene.take().last(), quickAdd);
        QCOMPARE(log.lines(u"startup"_s).first(), u"cause = add task"_s);
        scene.delegate.open(task);
        QCOMPARE(scene.take(), QStringList{quickAdd});
        QVERIFY(scene.application.session().isInBackground());

        scene.user.reset(); // signed out there is nothing to add to
        scene.delegate.open(task);
        QCOMPARE(scene.take(), QStringList({u"welcomeWindowController.showCentred"_s,
                                            u"windows.bringToFront token"_s, quickAdd}));
    }

    void guardsOneLaunch_data() { addCaseRows("app/launch-guard.txt", 6); }

    void guardsOneLaunch()
    {
        QFETCH(QStringList, cells);
        DelegateScene scene;
        if (cells.at(0) != u'-')
            QSettings{scene.settings(), QSettings::IniFormat}.setValue(countKey, cells.at(0));
        scene.signIn();
        scene.delegate.applicationDidFinishLaunching({});
        if (cells.at(1) == u"alert") {
            scene.delegate.open(aLink); // kept for later
            QCOMPARE(scene.take(), QStringList{});
            QCOMPARE(scene.alert.title, u"Orvane closed unexpectedly several times"_s);
            scene.alert.continuation();
            QCOMPARE(scene.take().last(4), QStringList{u"mainWindowController.show"_s} + callsOfALink);
        }
        QCOMPARE(scene.countAtLaunch, cells.at(2).toInt());
        scene.clock.advance(milliseconds{cells.at(3).toInt()});
        if (cells.at(4) == u"terminate") scene.delegate.applicationWillTerminate();
        QCOMPARE(scene.countOnDisk(), cells.at(5).toInt());
    }

    void countsFiveSecondsOfTheComputerUntilItTerminates()
    {
        DelegateScene scene;
        scene.delegate.applicationDidFinishLaunching({});
        scene.clock.setNow(scene.clock.now() + 1h);
        QCOMPARE(scene.countOnDisk(), 1);
        scene.delegate.applicationWillTerminate();
        QCOMPARE(scene.countOnDisk(), 0);
        QVERIFY(scene.clock.isIdle()); // the count of the next launch is left alone
    }

    void aLaunchThatCannotBringUpTheRoomsStartsNothingAndCounts()
    {
        DelegateScene scene;
        scene.canBringUp = false;
        scene.delegate.applicationDidFinishLaunching(aLink);
        scene.delegate.open({});
        QCOMPARE(scene.calls, QStringList{});
        QCOMPARE(scene.countOnDisk(), 1);
    }
};

ORVANE_TEST(AppDelegate_test)
#include "AppDelegate_test.moc"
