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

QString fileIn(const QString &folder) { return folder + u"/standard.ini"_s; }

// As another process would read it: settings of one process share what they have not written yet.
int countOnDisk(const QString &folder)
{
    QFile file{fileIn(folder)};
    if (!file.open(QIODevice::ReadOnly)) return 0;
    return QString::fromUtf8(file.readAll()).section(countKey + u'=', 1).section(u'\n', 0, 0).toInt();
}

// One process: what it knows goes with it, what is on disk stays.
struct Launch {
    explicit Launch(const QString &folder) : defaults{folder}
    {
        guard.applicationDidFinishLaunching([this, folder] { countAtLaunch = countOnDisk(folder); });
    }
    KWUserDefaults defaults;
    ManualClock clock{"2030-05-01 09:00"};
    WaitingAlert alert;
    LaunchGuard guard{defaults, clock, alert};
    std::optional<int> countAtLaunch;
};

} // namespace

class LaunchGuard_test : public QObject {
    Q_OBJECT

    std::optional<QTemporaryDir> m_folder;

private Q_SLOTS:
    void init() { m_folder.emplace(); }

    void guardsOneLaunch_data() { addCaseRows("app/launch-guard.txt", 6); }

    void guardsOneLaunch()
    {
        QFETCH(QStringList, cells);
        const QString folder = m_folder->path();
        if (cells.at(0) != u'-')
            QSettings{fileIn(folder), QSettings::IniFormat}.setValue(countKey, cells.at(0));
        const int countDuring = cells.at(2).toInt();
        {
            Launch launch{folder};
            if (cells.at(1) == u"alert"_s) {
                QVERIFY(!launch.countAtLaunch);
                QCOMPARE(launch.alert.title, u"Orvane closed unexpectedly several times"_s);
                launch.alert.continuation();
            }
            QCOMPARE(launch.countAtLaunch, countDuring);
            launch.clock.advance(milliseconds{cells.at(3).toInt()});
            if (cells.at(4) == u"terminate"_s) launch.guard.applicationWillTerminate();
        }
        QCOMPARE(countOnDisk(folder), cells.at(5).toInt());
    }

    void countsFiveSecondsOfTheComputerNotOfTheWall()
    {
        Launch launch{m_folder->path()};
        launch.clock.setNow(launch.clock.now() + 1h);
        QCOMPARE(countOnDisk(m_folder->path()), 1);
    }

    void leavesTheCountAloneOnceTerminated()
    {
        Launch first{m_folder->path()};
        first.guard.applicationWillTerminate();
        Launch second{m_folder->path()};
        first.clock.advance(LaunchGuard::healthyAfter);
        QCOMPARE(countOnDisk(m_folder->path()), 1);
    }
};

ORVANE_TEST(LaunchGuard_test)
#include "LaunchGuard_test.moc"
