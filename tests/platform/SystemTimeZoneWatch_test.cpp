#include "platform/SystemTimeZoneWatch.h"

#include "model/events/KWNotificationCenter.h"
#include "model/events/NotificationNames.h"
#include "platform/FakeService.h"
#include "platform/Relaunch.h"
#include "support/ManualClock.h"
#include "support/TestMain.h"

#include <QFileInfo>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {

QDBusConnection busForTheSystem() { return QDBusConnection::sessionBus(); }

struct FakeTimeDate : FakeService {
    FakeTimeDate() : FakeService{u"org.freedesktop.timedate1"_s, u"/org/freedesktop/timedate1"_s} {}
    void tellOfZone(const QString &identifier)
    {
        tell("org.freedesktop.DBus.Properties", "PropertiesChanged",
             {u"org.freedesktop.timedate1"_s, QVariantMap{{u"Timezone"_s, identifier}}, QStringList{}});
    }
};

} // namespace

class SystemTimeZoneWatch_test : public QObject {
    Q_OBJECT

    ManualClock m_clock{"2030-05-01 09:00"};
    KWNotificationCenter m_center;
    int m_posted = 0;
    KWNotificationCenter::Observation m_observation =
        m_center.addObserver(SystemTimeZoneDidChangeNotification, [this](const auto &) { ++m_posted; });
    QTemporaryDir m_folder;
    QString m_zoneFile = m_folder.filePath(u"localtime"_s);
    bool m_isOther = false;

    bool takeChange() { return std::exchange(m_isOther, false); }
    void linkTo(const QString &zone)
    {
        const QString fresh = m_folder.filePath(u"fresh"_s);
        QVERIFY(QFile::link(u"/usr/share/zoneinfo/"_s + zone, fresh));
        QCOMPARE(std::rename(qPrintable(fresh), qPrintable(m_zoneFile)), 0);
    }

private Q_SLOTS:
    void hearsTheServiceAndTheFile()
    {
        FakeTimeDate service;
        linkTo(u"UTC"_s);
        SystemTimeZoneWatch watch{m_center, m_clock, [this] { return takeChange(); }, busForTheSystem,
                                  m_zoneFile};
        watch.start();
        m_isOther = true; // before it listens to the service
        m_clock.advance(SystemTimeZoneWatch::connectAfter);
        QCOMPARE(m_posted, 1);
        m_isOther = true;
        service.tellOfZone(u"Asia/Tokyo"_s);
        QTRY_COMPARE(m_posted, 2);

        for (int expected = 3; expected <= 4; ++expected) {
            m_isOther = true;
            linkTo(expected == 3 ? u"Asia/Tokyo"_s : u"America/New_York"_s);
            QTRY_COMPARE(m_posted, expected);
        }
    }

    void relaunchesWithTheSameArgumentsUnlessForbidden()
    {
        const QString written = m_folder.filePath(u"arguments"_s);
        Relaunch relaunch{
            u"/bin/sh"_s, [&written] {
                return QStringList{u"-c"_s, u"printf '%s' \"$1\" > \"$0\""_s, written, u"two words"_s};
            }};
        QVERIFY(relaunch.startIfWanted());
        relaunch.cx_relunch();
        QVERIFY(!QFile::exists(written));
        QVERIFY(relaunch.startIfWanted());
        QTRY_COMPARE(QFileInfo{written}.size(), 9);

        Relaunch forbidden{u"/no/such/program"_s, [] { return QStringList{}; }};
        forbidden.cx_relunch();
        QVERIFY(!forbidden.startIfWanted());
        forbidden.forbid();
        QVERIFY(forbidden.startIfWanted());
    }
};

ORVANE_TEST(SystemTimeZoneWatch_test)
#include "SystemTimeZoneWatch_test.moc"
