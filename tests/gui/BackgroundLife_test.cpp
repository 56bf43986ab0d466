#include "app/RecordingAlerts.h"
#include "client/RelaunchArguments.h"
#include "gui/ClientFixture.h"
#include "gui/WindowHelp.h"
#include "model/records/KWTask.h"
#include "support/TestMain.h"
#include "views/alerts/Alert.h"
#include "views/main/MainWindow.h"

#include <QAbstractButton>
#include <QApplication>
#include <QSignalSpy>
#include <QTimer>

using namespace Qt::StringLiterals;
using namespace std::chrono;

namespace {

constexpr const char *home = "Pacific/Auckland";

} // namespace

/// The client without its window, and what it does before one is open.
class BackgroundLife_test : public QObject {
    Q_OBJECT

    std::unique_ptr<ClientFixture> m_client;
    RecordingNotifications m_notifications;

    QString addTask() { return m_client->rooms().newTasks().add(u"Pay rent tomorrow remind me"_s)->sid; }
    KWTaskModel task(const QString &id) { return m_client->kit().context().find<KWTask>(id)->model(); }
    void flyToNewYork(const DesktopServices &services)
    {
        m_client->clock.setNow(at("2026-11-21 23:43"));
        m_client->clock.setZone("America/New_York");
        m_client->restart(services);
        QTimer presser;
        presser.callOnTimeout([] {
            QWidget *alert = QApplication::activeModalWidget();
            if (alert) alert->findChild<QAbstractButton *>(u"alertButton0"_s)->click();
        });
        presser.start(0);
        m_client->clock.advance(0ms); // before anything in the background has ended
        m_client->kit().manager().threadPool().waitForDone();
        QCoreApplication::processEvents();
        m_client->clock.advance(0ms);
    }

private Q_SLOTS:
    void init()
    {
        m_notifications.titles.clear();
        m_client = std::make_unique<ClientFixture>("2026-11-21 09:00", home);
        m_client->useOnThisComputer();
    }
    void cleanup() { m_client.reset(); }

    // In between lies the moment at which it would have come at home.
    void remindsAfterAJourneyAtTheTimeOfDayThatIsMeant()
    {
        const QString id = addTask();
        QCOMPARE(task(id).remindTime, at("2026-11-21 20:00"));
        flyToNewYork({.notifications = m_notifications});
        QCOMPARE(m_notifications.titles, QStringList{});
        QCOMPARE(task(id).remindTime, at("2026-11-22 09:00", "America/New_York"));
        m_client->clock.advanceTo(at("2026-11-22 08:59", "America/New_York"));
        QCOMPARE(m_notifications.titles, QStringList{});
        m_client->clock.advance(1min);
        QCOMPARE(m_notifications.titles, QStringList{u"Pay rent"_s});
        m_client->clock.advance(24h);
        QCOMPARE(m_notifications.titles.size(), 1);
    }

    void leavesDatesAloneInAZoneGivenForTheRun()
    {
        const QString id = addTask();
        const KWTaskModel before = task(id);
        flyToNewYork({.followsSystemZone = false});
        QCOMPARE(task(id).startDate, before.startDate);
        QCOMPARE(task(id).timeZone, before.timeZone);
        QCOMPARE(m_client->kit().defaults().value(Settings::lastLocalTimeZone), QString::fromLatin1(home));
    }

    void staysUntilAWindowWasOpenedAndClosed()
    {
        m_client->restart({}, {.cause = LaunchCause::LoginItem});
        QVERIFY(!m_client->window());
        QMetaObject::invokeMethod(qApp, "lastWindowClosed");
        QVERIFY(!QApplication::quitOnLastWindowClosed());
        m_client->rooms().application().open({});
        QVERIFY(m_client->window());
        QMetaObject::invokeMethod(qApp, "lastWindowClosed");
        QVERIFY(QApplication::quitOnLastWindowClosed());
    }

    void startsAgainWithItsSettingsAlone()
    {
        const auto again = [](const QStringList &words, bool isInBackground) {
            return relaunchArguments(Invocation::parse(words).value(), isInBackground).join(u' ');
        };
        QCOMPARE(
            again({u"--demo"_s, u"--zone=UTC"_s, u"--home"_s, u"/data"_s, u"orvane://list/today"_s}, false),
            u"--home /data --zone UTC"_s);
        QCOMPARE(again({u"--login-item"_s, u"--locale"_s, u"zh_CN"_s}, false), u"--locale zh_CN"_s);
        QCOMPARE(again({u"--demo"_s}, true), u"--demo --login-item"_s);
    }

    void anAlertIsNotTheLastWindowAndGoesBackWhenItIsCutOff()
    {
        m_client.reset();
        QSignalSpy lastWindow{qApp, &QGuiApplication::lastWindowClosed};
        QList<int> answers;
        QTimer::singleShot(0, this, [&answers] {
            const AlertText question{u"Question"_s, {}, {u"Restore"_s, u"Quit"_s}};
            answerNextAlert(Qt::Key_Space, u"alertButton0"_s);
            answers << Alert::run(question);
            QTimer::singleShot(0, [] { QCoreApplication::exit(); });
            answers << Alert::run(question);
        });
        QApplication::exec(); // Qt speaks of the last window only in here
        QCOMPARE(answers, QList({0, 1}));
        QCOMPARE(lastWindow.count(), 0);
    }
};

ORVANE_TEST(BackgroundLife_test)
#include "BackgroundLife_test.moc"
