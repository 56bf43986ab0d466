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
        if (notification.name == KWNewMinuteComesNotification) minutes << wall.mid(11);
        if (notification.name == KWNewHourComesNotification) hoursAndDays << u"hour "_s + wall;
        if (notification.name == KWNewDayComesNotification) hoursAndDays << u"day "_s + wall;
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
    DayClock dayClock{clock, center};
    KWNotificationCenter::Observation observation;
    QStringList minutes, hoursAndDays;
};

QStringList listOf(const QString &cell) { return cell == u'-' ? QStringList{} : cell.split(u", "_s); }

} // namespace

class DayClock_test : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void announces_data() { addCaseRows("app/day-clock.txt", 5); }

    void announces()
    {
        QFETCH(QStringList, cells);
        Scene scene{cells.at(1), cells.at(0)};
        for (const QString &step : cells.at(2).split(u';'))
            scene.happens(step.trimmed());
        QCOMPARE(scene.minutes, listOf(cells.at(3)));
        QCOMPARE(scene.hoursAndDays, listOf(cells.at(4)));
    }

    void announcesTheMinuteThenItsListenerThenHourAndDay()
    {
        ManualClock clock{"2030-03-09 23:59:59"};
        KWNotificationCenter center;
        QStringList order;
        const auto observation = center.addObserver([&](const KWNotification &each) { order << each.name; });
        DayClock day{clock, center, [&order] { order << u"listener"_s; }};
        day.start();
        clock.advance(1s);
        QCOMPARE(order, QStringList({KWNewMinuteComesNotification, u"listener"_s, KWNewHourComesNotification,
                                     KWNewDayComesNotification}));
    }

    void restsWhileStopped()
    {
        Scene scene{u"2030-05-01 23:59"_s, u"UTC"_s};
        const auto stopping = scene.center.addObserver(KWNewHourComesNotification,
                                                       [&scene](const auto &) { scene.dayClock.stop(); });
        scene.clock.advance(1h);
        QCOMPARE(scene.minutes, QStringList{u"00:00:00"_s});
        QVERIFY(scene.clock.isIdle());
        // What passed meanwhile is not announced later, and a minute only once.
        scene.clock.advance(48h + 30min);
        scene.hoursAndDays.clear();
        scene.dayClock.start();
        scene.dayClock.start();
        scene.clock.advance(1min);
        QCOMPARE(scene.hoursAndDays, QStringList{});
        QCOMPARE(scene.minutes.size(), 2);
    }
};

ORVANE_TEST(DayClock_test)
#include "DayClock_test.moc"
