#include "platform/LogindSleepMonitor.h"

#include "model/events/KWNotificationCenter.h"
#include "model/events/NotificationNames.h"
#include "support/LogRecorder.h"
#include "support/ManualClock.h"
#include "support/TestMain.h"

#include <QDBusMessage>

using namespace Qt::StringLiterals;

namespace {

// No test of this program reaches the computer's own system bus: the address is read once per process.
const bool hasFakeSystemBus = qputenv("DBUS_SYSTEM_BUS_ADDRESS", qgetenv("DBUS_SESSION_BUS_ADDRESS"));

QDBusMessage prepareForSleepSignal(bool start)
{
    QDBusMessage signal = QDBusMessage::createSignal(
        u"/org/freedesktop/login1"_s, u"org.freedesktop.login1.Manager"_s, u"PrepareForSleep"_s);
    signal << start;
    return signal;
}

// The login manager, as another process would be.
class FakeLogind {
public:
    FakeLogind() { m_bus.registerService(u"org.freedesktop.login1"_s); }
    ~FakeLogind()
    {
        // Answered by the bus, so that the next test does not meet the name.
        m_bus.unregisterService(u"org.freedesktop.login1"_s);
        QDBusConnection::disconnectFromBus(u"logind"_s);
    }

    void prepareForSleep(bool start) { m_bus.send(prepareForSleepSignal(start)); }

private:
    QDBusConnection m_bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"logind"_s);
};

} // namespace

class LogindSleepMonitor_test : public QObject {
    Q_OBJECT

    ManualClock m_clock{"2030-05-01 09:00"};
    KWNotificationCenter m_center;
    QStringList m_posted;
    KWNotificationCenter::Observation m_observation =
        m_center.addObserver([this](const KWNotification &each) { m_posted << each.name; });

    // Answered by the bus, which then has taken what was asked of it before on this connection.
    static bool roundTrip(const QDBusConnection &bus)
    {
        const QDBusMessage question = QDBusMessage::createMethodCall(u"org.freedesktop.DBus"_s, u"/"_s,
                                                                     u"org.freedesktop.DBus"_s, u"GetId"_s);
        return bus.call(question).type() == QDBusMessage::ReplyMessage;
    }

    void connectTo(LogindSleepMonitor &monitor)
    {
        monitor.start();
        m_clock.advance(LogindSleepMonitor::connectAfter);
        roundTrip(QDBusConnection::systemBus());
    }

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(hasFakeSystemBus);
        QVERIFY2(QDBusConnection::systemBus().isConnected(), "run it on a bus");
        // Qt keeps the first messages of a new connection back until the event loop runs, and may then
        // deliver them after later ones.
        QCoreApplication::processEvents();
    }
    void init() { m_posted.clear(); }

    void hearsALoginManagerThatComesLater()
    {
        LogRecorder log;
        LogindSleepMonitor monitor{m_center, m_clock};
        connectTo(monitor);
        QCOMPARE(log.lines(u"sleep"_s),
                 QStringList{u"No login manager yet: sleep and wake are not heard."_s});
        FakeLogind logind;
        logind.prepareForSleep(false);
        QTRY_COMPARE(m_posted, QStringList{WorkspaceDidWakeNotification});
    }

    void tellsOfSleepAndWakeAndIsNotFooledByOthers()
    {
        FakeLogind logind;
        LogindSleepMonitor monitor{m_center, m_clock};
        connectTo(monitor);
        const auto stranger = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"stranger"_s);
        stranger.send(prepareForSleepSignal(false));
        QVERIFY(roundTrip(stranger));
        logind.prepareForSleep(true);
        logind.prepareForSleep(false);
        QTRY_COMPARE(m_posted, QStringList({WorkspaceWillSleepNotification, WorkspaceDidWakeNotification}));
    }

    void doesWithoutABus()
    {
        LogRecorder log;
        LogindSleepMonitor monitor{
            m_center, m_clock,
            [] { return QDBusConnection::connectToBus(u"unix:path=/no/such/bus"_s, u"none"_s); }};
        connectTo(monitor);
        QCOMPARE(log.lines(u"sleep"_s), QStringList{u"No system bus: sleep and wake are not heard."_s});
    }
};

ORVANE_TEST(LogindSleepMonitor_test)
#include "LogindSleepMonitor_test.moc"
