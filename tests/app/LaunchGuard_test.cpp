#include "app/LaunchGuard.h"

#include "model/settings/KWUserDefaults.h"
#include "support/CaseTable.h"
#include "support/ManualClock.h"
#include "support/TestMain.h"

#include <QSettings>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;
using namespace std::chrono;

namespace {

struct RecordingAlert final : CrashProtectionAlert {
    void runModal(const QString &alertTitle, const QString &alertMessage, std::function<void()> then) override
    {
        title = alertTitle;
        message = alertMessage;
        continuation = std::move(then);
    }
    QString title, message;
    std::function<void()> continuation;
};

QSettings onDisk(const QString &folder) { return {folder + u"/standard.ini"_s, QSettings::IniFormat}; }

// As another process would read it.
int countOnDisk(const QString &folder) { return onDisk(folder).value("org.orvane.crash.cout").toInt(); }

// One process: what it knows goes with it, what is on disk stays.
struct Launch {
    explicit Launch(const QString &folder) : defaults{folder}
    {
        guard.applicationDidFinishLaunching([this, folder] { countAtLaunch = countOnDisk(folder); });
    }
    KWUserDefaults defaults;
    ManualClock clock{"2030-05-01 09:00"};
    RecordingAlert alert;
    LaunchGuard guard{defaults, clock, alert};
    std::optional<int> countAtLaunch;
};

} // namespace

class LaunchGuard_test : public QObject {
    Q_OBJECT

    std::optional<QTemporaryDir> m_folder;
    int countOnDisk() const { return ::countOnDisk(m_folder->path()); }

private Q_SLOTS:
    void init() { m_folder.emplace(); }

    void guardsOneLaunch_data() { addCaseRows("app/launch-guard.txt", 6); }

    void guardsOneLaunch()
    {
        QFETCH(QStringList, cells);
        if (cells.at(0) != u'-') onDisk(m_folder->path()).setValue("org.orvane.crash.cout", cells.at(0));
        const int countDuring = cells.at(2).toInt();
        {
            Launch launch{m_folder->path()};
            QCOMPARE(launch.countAtLaunch.value_or(-1), cells.at(1) == u"launch"_s ? countDuring : -1);
            QCOMPARE(bool(launch.alert.continuation), cells.at(1) == u"alert"_s);
            QCOMPARE(countOnDisk(), countDuring);
            launch.clock.advance(milliseconds{cells.at(3).toInt()});
            if (cells.at(4) == u"terminate"_s) launch.guard.applicationWillTerminate();
        }
        QCOMPARE(countOnDisk(), cells.at(5).toInt());
    }

    void alertsAfterThreeCrashes()
    {
        for (int crash = 0; crash < 3; ++crash)
            QVERIFY(Launch{m_folder->path()}.countAtLaunch);
        Launch fourth{m_folder->path()};
        QVERIFY(!fourth.countAtLaunch);
        QVERIFY(!fourth.alert.title.isEmpty() && fourth.alert.title != u"Crash Protection Title"_s);
        QVERIFY(!fourth.alert.message.isEmpty() && fourth.alert.message != u"Crash Protection Message"_s);
        fourth.alert.continuation();
        QCOMPARE(fourth.countAtLaunch, 4);
    }

    void countsFiveSecondsOfTheComputerNotOfTheWall()
    {
        Launch launch{m_folder->path()};
        launch.clock.setNow(launch.clock.now() + 1h);
        QCOMPARE(countOnDisk(), 1);
        launch.clock.advance(LaunchGuard::healthyAfter);
        QCOMPARE(countOnDisk(), 0);
    }

    void leavesTheCountAloneOnceTerminated()
    {
        Launch first{m_folder->path()};
        first.guard.applicationWillTerminate();
        Launch second{m_folder->path()};
        first.clock.advance(LaunchGuard::healthyAfter);
        QCOMPARE(countOnDisk(), 1);
    }
};

ORVANE_TEST(LaunchGuard_test)
#include "LaunchGuard_test.moc"
