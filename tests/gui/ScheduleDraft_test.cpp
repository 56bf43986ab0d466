#include "views/datepicker/ScheduleDraft.h"

#include "capture/ReminderPhrase.h"
#include "support/CaseTable.h"
#include "support/ManualClock.h"
#include "support/TestMain.h"
#include "views/datepicker/TimeField.h"
#include "views/wording/ReminderWording.h"

using namespace Qt::StringLiterals;
using namespace std::chrono;

namespace {

constexpr auto berlin = "Europe/Berlin";

CXTimeZone zone() { return *CXTimeZone::named(QLatin1StringView{berlin}); }

QString words(std::optional<KWDateTime> date)
{
    if (!date) return u"-"_s;
    const LocalTime local = zone().toLocal(date->date);
    const year_month_day day{floor<days>(local)};
    const auto minute = duration_cast<minutes>(local - floor<days>(local)).count();
    const QString text = u"%1-%2"_s.arg(unsigned(day.month())).arg(unsigned(day.day()));
    return date->hasTime ? u"%1 %2:%3"_s.arg(text).arg(minute / 60).arg(minute % 60, 2, 10, QChar{u'0'})
                         : text;
}

QString words(const ScheduleDraft &draft)
{
    const KWTaskDateTimeReminderModel dates = draft.schedule().dates;
    return words(dates.startDateTime) + u" .. "_s + words(dates.endDateTime);
}

TaskSchedule timed(const char *start, const char *end)
{
    TaskSchedule schedule;
    schedule.timeZone = QString::fromLatin1(berlin);
    schedule.dates.startDateTime = KWDateTime::dateTimeWithDate(at(start, berlin), true);
    schedule.dates.endDateTime = KWDateTime::dateTimeWithDate(at(end, berlin), true);
    schedule.dates.alarmTriggers = {CXAlarmTrigger::onTime()};
    return schedule;
}

} // namespace

class ScheduleDraft_test : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void keepsWhatIsNotTouched()
    {
        // Set in another zone, with seconds.
        TaskSchedule schedule = timed("2030-05-01 23:30", "2030-05-02 00:30");
        schedule.timeZone = u"Asia/Tokyo"_s;
        schedule.dates.startDateTime->date += seconds{7};
        ScheduleDraft draft{schedule, zone()};
        QCOMPARE(draft.schedule(), schedule);
        draft.repeatRule = u"FREQ=DAILY"_s;
        QCOMPARE(draft.schedule().dates.startDateTime, schedule.dates.startDateTime);
        QCOMPARE(draft.schedule().timeZone, u"Asia/Tokyo"_s);
        draft.setDay(*draft.day() + days{1});
        QCOMPARE(draft.schedule().timeZone, QString::fromLatin1(berlin));
    }

    void movesDaysTimesAndEnds()
    {
        ScheduleDraft draft{timed("2030-05-01 23:30", "2030-05-02 00:30"), zone()};
        draft.setDay(*draft.day() + days{2});
        QCOMPARE(words(draft), u"5-3 23:30 .. 5-4 0:30"_s);
        draft.setTime(hours{9}, {});
        QCOMPARE(words(draft), u"5-3 9:00 .. 5-3 10:00"_s);
        QVERIFY(!draft.reminders.empty());
        draft.setEnd(hours{8}, 0); // the next day
        QCOMPARE(words(draft), u"5-3 9:00 .. 5-4 8:00"_s);
        draft.setDuration(minutes{90});
        QCOMPARE(words(draft), u"5-3 9:00 .. 5-3 10:30"_s);
        draft.setDaysLater(2);
        QCOMPARE(words(draft), u"5-3 9:00 .. 5-5 10:30"_s);
        draft.setEnd({}, 0);
        QCOMPARE(words(draft), u"5-3 9:00 .. -"_s);
    }

    void becomesAllDayAndTimedAgain()
    {
        ScheduleDraft draft{timed("2030-05-01 09:00", "2030-05-02 10:00"), zone()};
        draft.setTime({}, {CXAlarmTrigger::onTime_AllDay()});
        QCOMPARE(words(draft), u"5-1 .. 5-3"_s); // two days; the end is the midnight behind them
        QCOMPARE(draft.reminders, std::set{CXAlarmTrigger::onTime_AllDay()});
        QCOMPARE(ScheduleDraft(draft.schedule(), zone()).daysLater(), 1);
        draft.setDaysLater(0);
        QCOMPARE(words(draft), u"5-1 .. -"_s);
        draft.setTime(hours{8}, {CXAlarmTrigger::onTime()});
        QCOMPARE(words(draft), u"5-1 8:00 .. -"_s);
        QCOMPARE(draft.reminders, std::set{CXAlarmTrigger::onTime()});
        draft.clear();
        QCOMPARE(draft.schedule().check().operator bool(), true);
        QCOMPARE(words(draft), u"- .. -"_s);
    }

    void keepsTheClockInAnotherZone()
    {
        ScheduleDraft draft{timed("2030-05-01 09:00", "2030-05-01 10:00"), zone()};
        draft.setZone(*CXTimeZone::named(u"Asia/Tokyo"_s), false);
        QCOMPARE(draft.schedule().dates.startDateTime->date, at("2030-05-01 09:00", "Asia/Tokyo"));
        QCOMPARE(draft.schedule().timeZone, u"Asia/Tokyo"_s);
    }

    void tellsTheNextDates()
    {
        ScheduleDraft draft{timed("2030-05-01 09:00", "2030-05-01 10:00"), zone()};
        draft.repeatRule = u"FREQ=WEEKLY;COUNT=3"_s;
        const auto dates = draft.occurrences(6, Monday);
        QCOMPARE(dates.size(), std::size_t{3});
        QCOMPARE(dates.back(), at("2030-05-15 09:00", berlin));
        draft.repeatRule = u"FREQ=SOMETIMES"_s;
        QVERIFY(draft.occurrences(6, Monday).empty());
    }

    void readsTimes_data() { addCaseRows("gui/typed-times.txt", 3); }
    void readsTimes()
    {
        QFETCH(QStringList, cells);
        const auto shown = [](std::optional<minutes> time) {
            return time ? QString::number(time->count()) : u"-"_s;
        };
        QCOMPARE(shown(TimeField::timeIn(cells.at(0))), cells.at(1));
        QCOMPARE(shown(TimeField::durationIn(cells.at(0))), cells.at(2));
    }

    void readsReminders_data() { addCaseRows("gui/typed-reminders.txt", 3); }
    void readsReminders()
    {
        QFETCH(QStringList, cells);
        for (const bool isAllDay : {false, true}) {
            QStringList words;
            for (const CXAlarmTrigger &each : remindersIn(cells.at(0), isAllDay))
                words.append(ReminderWording::trigger(each));
            QCOMPARE(words.isEmpty() ? u"-"_s : words.join(u", "_s), cells.at(isAllDay ? 2 : 1));
        }
    }
};

ORVANE_TEST(ScheduleDraft_test)
#include "ScheduleDraft_test.moc"
