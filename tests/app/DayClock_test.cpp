#include "app/DayClock.h"

#include "corvexkit/time/TimeText.h"
#include "model/events/KWNotificationCenter.h"
#include "model/events/NotificationNames.h"
#include "support/CaseTable.h"
#include "support/ManualClock.h"
#include "support/TestMain.h"

#include <QDateTime>

using namespace Qt::StringLiterals;
using namespace std::chrono;

namespace {

// A running day clock and what it announces, by the wall.
struct Scene {
    Scene(const QString &start, const QString &zone) : clock{qUtf8Printable(start), qUtf8Printable(zone)}
    {
        observation = center.addObserver([this](const KWNotification &each) { note(each); });
        dayClock.start();
    }

    void note(const KWNotification &notification)
    {
        const Instant moment{milliseconds{notification.object.toDateTime().toMSecsSinceEpoch()}};
        const QString wall = TimeText::fromLocalTime(clock.zone().toLocal(moment)).replace(u'T', u' ');
        if (notification.name == KWNewMinuteComesNotification) minute = wall.mid(11);
        if (notification.name == KWNewHourComesNotification) announced << u"hour "_s + wall;
        if (notification.name == KWNewDayComesNotification) announced << u"day "_s + wall;
    }

    void happens(const QString &step)
    {
        const QByteArray last = step.section(u' ', 1).toLatin1();
        if (step.startsWith(u'+'))
            clock.advance(seconds{step.mid(1).chopped(1).toInt()});
        else if (step.startsWith(u"sleep "_s))
            clock.sleep(seconds{last.chopped(1).toInt()});
        else if (step.startsWith(u"set "_s))
            clock.setNow(at(last));
        else if (step.startsWith(u"zone "_s))
            clock.setZone(last);
        else
            qFatal("%s is no step", qUtf8Printable(step));
    }

    ManualClock clock;
    KWNotificationCenter center;
    QString minute;
    QStringList announced; // a minute once its listener has heard of it too
    DayClock dayClock{clock, center, [this] { announced << minute; }};
    KWNotificationCenter::Observation observation;
};

} // namespace

class DayClock_test : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void announces_data() { addCaseRows("app/day-clock.txt", 4); }

    void announces()
    {
        QFETCH(QStringList, cells);
        Scene scene{cells.at(1), cells.at(0)};
        for (const QString &step : cells.at(2).split(u';'))
            scene.happens(step.trimmed());
        QCOMPARE(scene.announced.isEmpty() ? u"-"_s : scene.announced.join(u", "_s), cells.at(3));
    }

    void restsWhileStopped()
    {
        Scene scene{u"2030-05-01 23:59"_s, u"UTC"_s};
        const auto stopping = scene.center.addObserver(KWNewHourComesNotification,
                                                       [&scene](const auto &) { scene.dayClock.stop(); });
        scene.clock.advance(1h);
        QCOMPARE(scene.announced,
                 QStringList({u"00:00:00"_s, u"hour 2030-05-02 00:00:00"_s, u"day 2030-05-02 00:00:00"_s}));
        QVERIFY(scene.clock.isIdle());
        // What passed meanwhile is not announced later, and a minute only once.
        scene.clock.advance(48h + 30min);
        scene.announced.clear();
        scene.dayClock.start();
        scene.dayClock.start();
        scene.clock.advance(1min);
        QCOMPARE(scene.announced.size(), 1);
    }
};

ORVANE_TEST(DayClock_test)
#include "DayClock_test.moc"
