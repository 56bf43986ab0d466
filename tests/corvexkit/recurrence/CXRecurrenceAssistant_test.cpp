#include "corvexkit/recurrence/CXRecurrenceAssistant.h"

#include "OccurrenceText.h"
#include "support/CaseTable.h"
#include "support/TestMain.h"

using namespace Qt::StringLiterals;
using namespace std::chrono;

namespace {

using Assistant = CXRecurrenceAssistant;

constexpr Instant beginning = Instant::min();
constexpr Instant end = Instant::max();

// An object that starts at a local time, or on a day when `start` has no time.
CXRecurringObject objectOf(const QString &rule, const QString &start,
                           const QString &zone = u"America/New_York"_s)
{
    CXRecurringObject object;
    object.recurrenceRuleString = rule;
    object.timeZone = *CXTimeZone::named(zone);
    const std::optional<Day> day = TimeText::toDay(start);
    object.isAllDay = day.has_value();
    object.startDate = day ? object.timeZone.startOfDay(*day)
                           : object.timeZone.toInstant(TimeText::toLocalTime(start).value());
    return object;
}

std::vector<Instant> occurrencesOf(const CXRecurringObject &object, std::size_t limit)
{
    return Assistant::calendar_occurrenceDatesForRecurringObject(object, beginning, end, true, limit);
}

std::vector<Instant> occurrencesOf(const CXRecurringObject &object, Instant from = beginning,
                                   Instant to = end)
{
    return Assistant::calendar_occurrenceDatesForRecurringObject(object, from, to, true);
}

// So many first occurrences as the text names, and one more when it ends there.
std::vector<LocalTime> occurrencesOf(const CXRecurringObject &object, const OccurrenceText &expected,
                                     const CXTimeZone &shownIn)
{
    const std::size_t limit = expected.times.size() + (expected.goesOn ? 0 : 1);
    std::vector<LocalTime> times;
    for (const Instant instant : occurrencesOf(object, limit))
        times.push_back(shownIn.toLocal(instant));
    return times;
}

// Written as OccurrenceText has it; "-" for none.
std::set<Instant> instantsOf(const QString &text, const CXRecurringObject &object)
{
    std::set<Instant> instants;
    if (text == u"-") return instants;
    for (const LocalTime time : OccurrenceText{text, object.timeZone.toLocal(*object.startDate)}.times)
        instants.insert(object.timeZone.toInstant(time));
    return instants;
}

Instant at(const char *text) { return TimeText::toInstant(QString::fromLatin1(text)).value(); }

} // namespace

class CXRecurrenceAssistant_test : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void expands_data()
    {
        QTest::addColumn<QStringList>("cells");
        for (const char *file : {"recurrence/rfc5545.txt", "recurrence/edges.txt", "recurrence/skip.txt"})
            for (const CaseRow &row : readCases(file, 4))
                QTest::newRow(row.where.constData()) << row.cells;
    }
    void expands()
    {
        QFETCH(QStringList, cells);
        CXRecurringObject object = objectOf(cells[0], cells[1]);
        const LocalTime start = object.timeZone.toLocal(*object.startDate);
        object.excludedOccurrenceDates = instantsOf(cells[2], object);
        const OccurrenceText expected{cells[3], start};
        QCOMPARE(joined(occurrencesOf(object, expected, object.timeZone)), joined(expected.times));
    }

    void keepsWallClockTime_data() { addCaseRows("recurrence/zones.txt", 4); }
    void keepsWallClockTime()
    {
        QFETCH(QStringList, cells);
        const CXRecurringObject object = objectOf(cells[0], cells[1], cells[2]);
        const OccurrenceText expected{cells[3], CXTimeZone::utc().toLocal(*object.startDate)};
        QCOMPARE(joined(occurrencesOf(object, expected, CXTimeZone::utc())), joined(expected.times));
        // A limit must not hide what a gap has put into another order.
        for (std::size_t limit = 1; limit <= expected.times.size(); ++limit) {
            const auto some = occurrencesOf(object, limit);
            QCOMPARE(some.size(), limit);
            QCOMPARE(CXTimeZone::utc().toLocal(some.back()), expected.times[limit - 1]);
        }
    }

    void stopsWhenNothingFollows_data() { addCaseRows("recurrence/never.txt", 2); }
    void stopsWhenNothingFollows()
    {
        QFETCH(QStringList, cells);
        const CXRecurringObject object = objectOf(cells[0], cells[1]);
        QVERIFY(!Assistant::nextOccurrence(object, *object.startDate));
        QCOMPARE(Assistant::nextOccurrence(object, *object.startDate - 1ms), object.startDate);
    }

    void keepsToItsBounds()
    {
        const CXRecurringObject object = objectOf(u"FREQ=DAILY"_s, u"2030-05-01T09:00"_s, u"UTC"_s);
        const auto count = [&](const char *from, const char *to) {
            return occurrencesOf(object, at(from), at(to)).size();
        };
        QCOMPARE(count("2030-05-02T09:00:00Z", "2030-05-04T09:00:00Z"), 3U); // both included
        QCOMPARE(count("2030-05-02T09:00:00.001Z", "2030-05-04T08:59:59.999Z"), 1U);
        QCOMPARE(count("2030-04-01T00:00:00Z", "2030-05-01T09:00:00Z"), 1U);
        QCOMPARE(count("2030-04-01T00:00:00Z", "2030-05-01T08:59:59Z"), 0U);
        QCOMPARE(count("2030-05-04T09:00:00Z", "2030-05-02T09:00:00Z"), 0U);
        const Instant second = at("2030-05-02T09:00:00Z"); // without the first
        QCOMPARE(Assistant::calendar_occurrenceDatesForRecurringObject(object, beginning, second, false),
                 std::vector{second});
    }

    void keepsTheStartAsItIs()
    {
        // The second 01:30 of the fold, with a fraction of a second, and an all-day start within its day.
        CXRecurringObject fold = objectOf(u"FREQ=MINUTELY;INTERVAL=20;COUNT=4"_s, u"2030-11-03T01:30"_s);
        fold.startDate = *fold.startDate + 1h + 250ms;
        QCOMPARE(occurrencesOf(fold),
                 (std::vector{at("2030-11-03T06:30:00.250Z"), at("2030-11-03T07:10:00.250Z"),
                              at("2030-11-03T07:30:00.250Z")}));
        CXRecurringObject day = objectOf(u"FREQ=DAILY;COUNT=2"_s, u"2030-05-01"_s);
        day.startDate = *day.startDate + 10h;
        QCOMPARE(occurrencesOf(day), (std::vector{at("2030-05-01T14:00:00Z"), at("2030-05-02T04:00:00Z")}));
    }

    void takesTheObjectsWeekStart()
    {
        CXRecurringObject object = objectOf(u"FREQ=WEEKLY;INTERVAL=2;BYDAY=SU,MO"_s, u"2030-05-06T09:00"_s);
        const auto second = [&object] { return *Assistant::nextOccurrence(object, *object.startDate); };
        QCOMPARE(second(), at("2030-05-12T13:00:00Z"));
        object.firstWeekday = Sunday;
        QCOMPARE(second(), at("2030-05-19T13:00:00Z"));
        object.recurrenceRuleString += u";WKST=MO";
        QCOMPARE(second(), at("2030-05-12T13:00:00Z"));
    }

    void takesAdditionalDates_data() { addCaseRows("recurrence/additional.txt", 5); }
    void takesAdditionalDates()
    {
        QFETCH(QStringList, cells);
        CXRecurringObject object = objectOf(cells[0], cells[1]);
        const LocalTime start = object.timeZone.toLocal(*object.startDate);
        object.additionalOccurrenceDates = instantsOf(cells[2], object);
        object.excludedOccurrenceDates = instantsOf(cells[3], object);
        const OccurrenceText expected{cells[4], start};
        QCOMPARE(joined(occurrencesOf(object, expected, object.timeZone)), joined(expected.times));
        for (std::size_t i = 1; i < expected.times.size(); ++i) // one after the other
            QCOMPARE(Assistant::nextOccurrence(object, object.timeZone.toInstant(expected.times[i - 1])),
                     object.timeZone.toInstant(expected.times[i]));
    }

    void keepsAdditionalDatesToTheRange()
    {
        CXRecurringObject object = objectOf(u"FREQ=DAILY;COUNT=2"_s, u"2030-05-01T09:00"_s, u"UTC"_s);
        for (const char *date : {"2030-05-03T08:00:00Z", "2030-05-04T08:00:00Z", "2030-05-05T08:00:00Z"})
            object.additionalOccurrenceDates.insert(at(date));
        QCOMPARE(occurrencesOf(object, at("2030-05-03T08:00:00.001Z"), at("2030-05-05T08:00:00Z")),
                 (std::vector{at("2030-05-04T08:00:00Z"), at("2030-05-05T08:00:00Z")}));
        object.additionalOccurrenceDates.insert(*object.startDate);
        QCOMPARE(Assistant::calendar_occurrenceDatesForRecurringObject(object, beginning,
                                                                       at("2030-05-03T07:00:00Z"), false),
                 std::vector{at("2030-05-02T09:00:00Z")});
    }

    void yieldsNothingWithoutRuleOrStart()
    {
        for (const QString &rule : {u""_s, u"every day"_s, u"FREQ=DAILY;INTERVAL=0"_s, u"FREQ=DAILY"_s}) {
            CXRecurringObject object = objectOf(rule, u"2030-05-01T09:00"_s);
            if (rule == u"FREQ=DAILY") object.startDate.reset();
            QVERIFY(occurrencesOf(object).empty());
            QVERIFY(!Assistant::nextOccurrence(object, beginning));
        }
        QVERIFY(occurrencesOf(objectOf(u"FREQ=DAILY"_s, u"2030-05-01"_s), 0).empty());
    }

    void staysWithinTheYearsOfTheCalendar()
    {
        const CXRecurringObject last = objectOf(u"FREQ=MONTHLY"_s, u"9999-11-15T09:00"_s, u"UTC"_s);
        QCOMPARE(occurrencesOf(last), (std::vector{at("9999-11-15T09:00:00Z"), at("9999-12-15T09:00:00Z")}));
        for (const QString &frequency : {u"SECONDLY"_s, u"DAILY"_s, u"WEEKLY"_s, u"MONTHLY"_s, u"YEARLY"_s}) {
            CXRecurringObject object = objectOf(u"FREQ="_s + frequency, u"2030-05-01T09:00"_s);
            for (const Instant start : {Instant::min(), Instant::max(), at("0000-12-31T23:59:59Z")}) {
                object.startDate = start;
                QVERIFY(!Assistant::nextOccurrence(object, beginning));
            }
            object.startDate = at("0001-01-01T00:00:00Z");
            QCOMPARE(Assistant::nextOccurrence(object, beginning), object.startDate);
            QVERIFY(Assistant::nextOccurrence(object, at("9998-06-01T00:00:00Z")));
            QVERIFY(!Assistant::nextOccurrence(object, at("9999-12-31T23:59:59.999Z")));
        }
    }
};

ORVANE_TEST(CXRecurrenceAssistant_test)
#include "CXRecurrenceAssistant_test.moc"
