#include "platform/LogindSleepMonitor.h"

#include "model/events/KWNotificationCenter.h"
#include "model/events/NotificationNames.h"
#include "platform/FakeService.h"
#include "support/LogRecorder.h"
#include "support/ManualClock.h"
#include "support/TestMain.h"

#include <QDBusConnectionInterface>

using namespace Qt::StringLiterals;

namespace {

// No test of this program reaches the computer's own system bus: the address is read once per process.
const bool hasFakeSystemBus = qputenv("DBUS_SYSTEM_BUS_ADDRESS", qgetenv("DBUS_SESSION_BUS_ADDRESS"));

const QString loginManager = u"org.freedesktop.login1"_s;

} // namespace

class LogindSleepMonitor_test : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void hearsALoginManagerThatComesLaterAndNobodyElse()
    {
        QVERIFY(hasFakeSystemBus);
        QVERIFY2(QDBusConnection::systemBus().isConnected(), "run it on a bus");
        // Qt keeps the first messages of a new connection back until the event loop runs, and may then
        // deliver them after later ones.
        QCoreApplication::processEvents();
        LogRecorder log;
        ManualClock clock{"2030-05-01 09:00"};
        KWNotificationCenter center;
        QStringList posted;
        const auto observation = center.addObserver([&](const KWNotification &each) { posted << each.name; });
        LogindSleepMonitor monitor{center, clock};
        monitor.start();
        clock.advance(LogindSleepMonitor::connectAfter);
        QCOMPARE(log.lines(u"sleep"_s),
                 QStringList{u"No login manager yet: sleep and wake are not heard."_s});
        // Answered by the bus, which then knows what the monitor listens to.
        QVERIFY(!QDBusConnection::systemBus().interface()->isServiceRegistered(loginManager));

        for (const auto &[sender, start] :
             {std::pair{u"org.freedesktop.stranger"_s, false}, {loginManager, true}, {loginManager, false}})
            FakeService{sender, u"/org/freedesktop/login1"_s}.tell("org.freedesktop.login1.Manager",
                                                                   "PrepareForSleep", {start});
        QTRY_COMPARE(posted, QStringList({WorkspaceWillSleepNotification, WorkspaceDidWakeNotification}));
    }
};

ORVANE_TEST(LogindSleepMonitor_test)
#include "LogindSleepMonitor_test.moc"
