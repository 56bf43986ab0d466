#include "platform/DBusSingleInstance.h"
#include "platform/DesktopNotifications.h"
#include "platform/FakeService.h"
#include "platform/LogindSleepMonitor.h"
#include "platform/PortalAppearance.h"
#include "platform/StatusNotifierArea.h"
#include "platform/SystemTimeZoneWatch.h"

#include "model/events/KWNotificationCenter.h"
#include "support/LogRecorder.h"
#include "support/ManualClock.h"
#include "support/TestMain.h"

#include <QTemporaryDir>

using namespace Qt::StringLiterals;

/// A computer on which no bus runs.
class NoBus_test : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void isToldAndLivedWithout()
    {
        LogRecorder log;
        ManualClock clock{"2030-05-01 09:00"};
        KWNotificationCenter center;
        const QTemporaryDir folder;

        DBusSingleInstance channel{DataFolders::locate(folder.path()), clock, noBus};
        channel.listen({});
        QVERIFY(!channel.handOver({}));
        QCOMPARE(log.lines(u"launch"_s).size(), 1);

        LogindSleepMonitor sleep{center, clock, noBus};
        sleep.start();
        SystemTimeZoneWatch zone{center, clock, [] { return false; }, noBus, folder.filePath(u"zone"_s)};
        zone.start();
        StatusNotifierArea area{clock, StatusNotifierArea::OlderKind::Possible, noBus};
        area.start();
        QVERIFY(!area.isThere());
        clock.advance(std::max({LogindSleepMonitor::connectAfter, SystemTimeZoneWatch::connectAfter,
                                StatusNotifierArea::patience}));
        QVERIFY(area.isThere());
        QCOMPARE(log.lines(u"sleep"_s).size() + log.lines(u"zone"_s).size(), 2);

        PortalAppearance appearance{noBus};
        appearance.start();
        QCOMPARE(log.lines(u"appearance"_s).size(), 1);
    }
};

ORVANE_TEST(NoBus_test)
#include "NoBus_test.moc"
