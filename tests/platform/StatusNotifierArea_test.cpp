#include "platform/StatusNotifierArea.h"

#include "support/ManualClock.h"
#include "support/TestMain.h"

#include <QDBusMessage>

using namespace Qt::StringLiterals;

/// The service that tells of status areas, as another process would be.
class FakeNotifierWatcher : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierWatcher")
    Q_PROPERTY(bool IsStatusNotifierHostRegistered MEMBER m_hasHost)

public:
    explicit FakeNotifierWatcher(bool hasHost) : m_hasHost(hasHost)
    {
        m_bus.registerObject(u"/StatusNotifierWatcher"_s, this,
                             QDBusConnection::ExportAllProperties | QDBusConnection::ExportAllSignals);
        m_bus.registerService(u"org.kde.StatusNotifierWatcher"_s);
    }
    ~FakeNotifierWatcher() override
    {
        m_bus.unregisterService(u"org.kde.StatusNotifierWatcher"_s);
        QDBusConnection::disconnectFromBus(u"watcher"_s);
    }
    void addHost()
    {
        m_hasHost = true;
        Q_EMIT StatusNotifierHostRegistered();
    }

Q_SIGNALS:
    void StatusNotifierHostRegistered();

private:
    QDBusConnection m_bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"watcher"_s);
    bool m_hasHost;
};

class StatusNotifierArea_test : public QObject {
    Q_OBJECT

    ManualClock m_clock{"2030-05-01 08:00"};
    int m_appeared = 0;

    void start(StatusNotifierArea &area)
    {
        m_appeared = 0;
        area.onAppeared = [this] { ++m_appeared; };
        area.start();
    }

private Q_SLOTS:
    void isThereFromTheBeginning()
    {
        const FakeNotifierWatcher watcher{true};
        StatusNotifierArea area{m_clock, StatusNotifierArea::OlderKind::Impossible};
        start(area);
        QTRY_VERIFY(area.isThere());
        QCOMPARE(m_appeared, 1);
    }

    void comesLaterThanTheProgram()
    {
        StatusNotifierArea area{m_clock, StatusNotifierArea::OlderKind::Impossible};
        start(area);
        FakeNotifierWatcher watcher{false};
        // Told of the service, it asks; so the bus has passed everything on when this answer is there.
        QDBusConnection::sessionBus().call(
            QDBusMessage::createMethodCall(u"org.kde.StatusNotifierWatcher"_s, u"/StatusNotifierWatcher"_s,
                                           u"org.freedesktop.DBus.Peer"_s, u"Ping"_s));
        QVERIFY(!area.isThere());
        watcher.addHost();
        QTRY_COMPARE(m_appeared, 1);
        watcher.addHost();
        QVERIFY(area.isThere());
    }

    void withoutABusMayBeOfTheOlderKind()
    {
        StatusNotifierArea area{m_clock, StatusNotifierArea::OlderKind::Possible, [] {
                                    return QDBusConnection::connectToBus(u"unix:path=/none"_s, u"none"_s);
                                }};
        start(area);
        QVERIFY(!area.isThere());
        m_clock.advance(StatusNotifierArea::patience);
        QCOMPARE(m_appeared, 1);
    }
};

ORVANE_TEST(StatusNotifierArea_test)
#include "StatusNotifierArea_test.moc"
