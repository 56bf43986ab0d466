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

class SystemTimeZoneWatch_test : public QObject {
    Q_OBJECT

    QTemporaryDir m_folder;

private Q_SLOTS:
    void hearsTheServiceAndTheFile()
    {
        const QString zoneFile = m_folder.filePath(u"localtime"_s);
        const auto linkTo = [&](const QString &zone) {
            const QString fresh = m_folder.filePath(u"fresh"_s);
            QVERIFY(QFile::link(u"/usr/share/zoneinfo/"_s + zone, fresh));
            QCOMPARE(std::rename(qPrintable(fresh), qPrintable(zoneFile)), 0);
        };
        FakeService service{u"org.freedesktop.timedate1"_s, u"/org/freedesktop/timedate1"_s};
        ManualClock clock{"2030-05-01 09:00"};
        KWNotificationCenter center;
        int posted = 0;
        const auto observation =
            center.addObserver(SystemTimeZoneDidChangeNotification, [&posted](const auto &) { ++posted; });
        bool isOther = false;
        linkTo(u"UTC"_s);
        SystemTimeZoneWatch watch{center, clock, [&isOther] { return std::exchange(isOther, false); },
                                  [] { return QDBusConnection::sessionBus(); }, zoneFile};
        watch.start();
        isOther = true; // before it listens to the service
        clock.advance(SystemTimeZoneWatch::connectAfter);
        QCOMPARE(posted, 1);
        isOther = true;
        service.tell(
            "org.freedesktop.DBus.Properties", "PropertiesChanged",
            {u"org.freedesktop.timedate1"_s, QVariantMap{{u"Timezone"_s, u"Asia/Tokyo"_s}}, QStringList{}});
        QTRY_COMPARE(posted, 2);

        for (int expected = 3; expected <= 4; ++expected) {
            isOther = true;
            linkTo(expected == 3 ? u"Asia/Tokyo"_s : u"America/New_York"_s);
            QTRY_COMPARE(posted, expected);
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
