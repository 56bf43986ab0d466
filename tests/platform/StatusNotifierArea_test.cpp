#include "platform/StatusNotifierArea.h"

#include "platform/FakeService.h"
#include "support/ManualClock.h"
#include "support/TestMain.h"

#include <QDBusConnectionInterface>

using namespace Qt::StringLiterals;

/// The service that tells of status areas.
class FakeNotifierWatcher : public FakeService {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierWatcher")
    Q_PROPERTY(bool IsStatusNotifierHostRegistered MEMBER m_hasHost)

public:
    explicit FakeNotifierWatcher(bool hasHost)
        : FakeService{u"org.kde.StatusNotifierWatcher"_s, u"/StatusNotifierWatcher"_s}, m_hasHost(hasHost)
    {
    }
    void addHost()
    {
        m_hasHost = true;
        tell("org.kde.StatusNotifierWatcher", "StatusNotifierHostRegistered");
    }

private:
    bool m_hasHost;
};

class StatusNotifierArea_test : public QObject {
    Q_OBJECT

    ManualClock m_clock{"2030-05-01 08:00"};

private Q_SLOTS:
    void isThereFromTheBeginning()
    {
        const FakeNotifierWatcher watcher{true};
        StatusNotifierArea area{m_clock, StatusNotifierArea::OlderKind::Impossible};
        area.start();
        QTRY_VERIFY(area.isThere());
    }

    void comesLaterThanTheProgram()
    {
        StatusNotifierArea area{m_clock, StatusNotifierArea::OlderKind::Impossible};
        int appeared = 0;
        area.onAppeared = [&appeared] { ++appeared; };
        area.start();
        FakeNotifierWatcher watcher{false};
        // Told of the service, it asks; so the bus has passed everything on when this answer is there.
        QDBusConnection::sessionBus().call(
            QDBusMessage::createMethodCall(u"org.kde.StatusNotifierWatcher"_s, u"/StatusNotifierWatcher"_s,
                                           u"org.freedesktop.DBus.Peer"_s, u"Ping"_s));
        QVERIFY(!area.isThere());
        watcher.addHost();
        watcher.addHost();
        QTRY_VERIFY(area.isThere());
        QCOMPARE(appeared, 1);
    }
};

ORVANE_TEST(StatusNotifierArea_test)
#include "StatusNotifierArea_test.moc"
