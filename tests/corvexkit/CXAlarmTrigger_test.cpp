#include "corvexkit/alarm/CXAlarmTrigger.h"

#include "corvexkit/time/TimeText.h"
#include "support/CaseTable.h"
#include "support/TestMain.h"

#include <set>

using namespace Qt::StringLiterals;
using namespace std::chrono;

namespace {

using Unit = CXAlarmTrigger::Unit;

CXAlarmTrigger timed(const QString &text) { return CXAlarmTrigger::triggerWithRepresentation(text, false); }
CXAlarmTrigger allDay(const QString &text) { return CXAlarmTrigger::triggerWithRepresentation(text, true); }

QString described(const CXAlarmTrigger &trigger)
{
    if (!trigger.isValid()) return u"none"_s;
    const QStringList names{u"weeks"_s, u"days"_s, u"hours"_s, u"minutes"_s, u"seconds"_s};
    return QString::number(trigger.value()) + u' ' + names.at(int(trigger.unit()) - int(Unit::Weeks));
}

QString remindTimeText(const CXAlarmTrigger &trigger)
{
    return trigger.remindTime() ? TimeText::fromTimeOfDay(*trigger.remindTime()) : u"-"_s;
}

} // namespace

class CXAlarmTrigger_test : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void readsAndWrites_data() { addCaseRows("corvexkit/triggers.txt", 5); }
    void readsAndWrites()
    {
        QFETCH(QStringList, cells);
        const bool isAllDay = cells[1] == u"all-day";
        const auto trigger = CXAlarmTrigger::triggerWithRepresentation(cells[0], isAllDay);
        QCOMPARE(described(trigger), cells[2]);
        QCOMPARE(remindTimeText(trigger), cells[3]);
        QCOMPARE(trigger.representation(), cells[4]);
        if (!trigger.isValid()) return;
        // What it says of itself makes it again.
        const auto made =
            CXAlarmTrigger::triggerWithUnit(trigger.unit(), trigger.value(), trigger.remindTime());
        const bool mixed = trigger.representation().contains(u"DT") && !isAllDay;
        if (!mixed) QCOMPARE(made, trigger);
    }

    void fires_data() { addCaseRows("corvexkit/reminders.txt", 4); }
    void fires()
    {
        QFETCH(QStringList, cells);
        const CXTimeZone zone = *CXTimeZone::named(cells[2]);
        const auto day = TimeText::toDay(cells[1]);
        const Instant start = day ? zone.startOfDay(*day) : zone.toInstant(*TimeText::toLocalTime(cells[1]));
        const auto trigger = CXAlarmTrigger::triggerWithRepresentation(cells[0], day.has_value());
        const auto fired = trigger.fireInstant(start, day.has_value(), zone);
        QVERIFY(fired);
        QCOMPARE(TimeText::fromLocalTime(zone.toLocal(*fired)), cells[3]);
    }

    void countsAnyTriggerFromAnyStart()
    {
        const CXTimeZone zone = *CXTimeZone::named(u"Europe/Berlin"_s);
        const Instant second = *TimeText::toInstant(u"2030-10-27T02:30:00+01:00"); // of two equal hours
        QCOMPARE(*CXAlarmTrigger::onTime().fireInstant(second, false, zone), second);
        QCOMPARE(*timed(u"TRIGGER:-PT10M"_s).fireInstant(second, false, zone), second - 10min);
        const Instant evening = *TimeText::toInstant(u"2030-05-01T20:00:00+02:00");
        const Instant midnight = *TimeText::toInstant(u"2030-05-01T00:00:00+02:00");
        QCOMPARE(*timed(u"TRIGGER:-PT10M"_s).fireInstant(evening, true, zone), midnight - 10min);
        QCOMPARE(*allDay(u"TRIGGER:-P0DT15H0M0S"_s).fireInstant(evening, false, zone), evening - 15h);
        QVERIFY(!timed(u"nothing"_s).fireInstant(evening, false, zone));
    }

    void makesTriggersFromUnits()
    {
        QCOMPARE(CXAlarmTrigger::triggerWithUnit(Unit::Weeks, 2, 20h + 30min).representation(),
                 u"TRIGGER:-P13DT3H30M0S"_s);
        QCOMPARE(CXAlarmTrigger::triggerWithUnit(Unit::Minutes, 10, 9h), timed(u"TRIGGER:-PT10M"_s));
        const auto most = CXAlarmTrigger::triggerWithUnit(Unit::Weeks, std::numeric_limits<int>::max());
        QCOMPARE(most.representation(), u"TRIGGER:-P3550W"_s);
        QCOMPARE(timed(most.representation()), most);
    }

    void ordersByTimeOfFiring()
    {
        const QStringList texts{
            u"TRIGGER:-P1W"_s,   u"TRIGGER:-P1DT2H"_s, u"TRIGGER:-P1D"_s, u"TRIGGER:-PT24H"_s,
            u"TRIGGER:-PT10M"_s, u"TRIGGER:PT0S"_s,    u"odd"_s,          u"odder"_s,
            u"TRIGGER:PT1S"_s};
        std::set<CXAlarmTrigger> sorted;
        for (const QString &text : QStringList{u"TRIGGER:-PT0S"_s, u"TRIGGER:-PT1440M"_s, u"odd"_s} + texts)
            sorted.insert(timed(text));
        QStringList inOrder;
        for (const CXAlarmTrigger &each : sorted)
            inOrder << each.representation();
        QCOMPARE(inOrder, texts);
    }
};

ORVANE_TEST(CXAlarmTrigger_test)
#include "CXAlarmTrigger_test.moc"
