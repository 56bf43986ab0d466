#include "DayByDay.h"
#include "OccurrenceText.h"
#include "RandomRules.h"
#include "corvexkit/recurrence/CXRecurrenceAssistant.h"
#include "support/TestMain.h"

using namespace Qt::StringLiterals;
using namespace std::chrono;

namespace {

CXRecurringObject objectOf(const QString &rule, LocalTime start, const QString &zone)
{
    CXRecurringObject object;
    object.timeZone = *CXTimeZone::named(zone);
    object.startDate = object.timeZone.toInstant(start);
    object.recurrenceRuleString = rule;
    return object;
}

std::vector<Instant> expand(const CXRecurringObject &object, Instant from, Instant to)
{
    return CXRecurrenceAssistant::calendar_occurrenceDatesForRecurringObject(object, from, to, true);
}

std::vector<Instant> within(std::vector<Instant> instants, Instant from, Instant to)
{
    std::erase_if(instants, [=](Instant instant) { return instant < from || instant > to; });
    return instants;
}

// A span in which a rule has some hundred occurrences at most.
days spanOf(const QString &rule)
{
    for (const auto &[name, span] : {std::pair{u"SECONDLY"_s, days{1}},
                                     {u"MINUTELY"_s, days{3}},
                                     {u"HOURLY"_s, days{40}},
                                     {u"DAILY"_s, days{400}},
                                     {u"WEEKLY"_s, days{700}},
                                     {u"MONTHLY"_s, days{2000}}})
        if (rule.contains(u"FREQ="_s + name)) return span;
    return days{7000};
}

} // namespace

/// What holds for every rule, tried on some thousand.
class RecurrenceProperties_test : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void agreesWithReadingDayByDay()
    {
        RandomRules random{RandomRules::Kinds::DaysAndAbove};
        std::size_t occurrences = 0;
        for (int i = 0; i < 1500; ++i) {
            const QString text = random.rule();
            const LocalTime start = random.start();
            const Day last = floor<days>(start) + days{i % 10 == 0 ? 4000 : 1100};
            const CXRecurringObject object = objectOf(text, start, u"UTC"_s);
            std::vector<LocalTime> times;
            for (const Instant instant :
                 expand(object, Instant::min(), Instant{(last + days{1}).time_since_epoch()} - 1ms))
                times.push_back(object.timeZone.toLocal(instant));
            const std::vector<LocalTime> expected = readDayByDay(*CXRecurrenceRule::parse(text), start, last);
            occurrences += expected.size();
            if (times != expected)
                QFAIL(qPrintable(text + u" from "_s + TimeText::fromLocalTime(start) + u"\nyields "_s +
                                 joined(times) + u"\nnot    "_s + joined(expected)));
        }
        QVERIFY(occurrences > 50'000);
    }

    // Jumping into a window is as good as walking there; so is asking for one after the other.
    void givesPartsOfTheWhole()
    {
        RandomRules random{RandomRules::Kinds::All};
        for (int i = 0; i < 3000; ++i) {
            QString text = random.rule();
            if (i % 3 == 1) text += u";COUNT=%1"_s.arg(random.number(1, 300));
            if (i % 3 == 2) text += u";SKIP="_s + (i % 2 == 0 ? u"FORWARD"_s : u"BACKWARD"_s);
            CXRecurringObject object =
                objectOf(text, random.start(), i % 2 == 0 ? u"America/New_York"_s : u"Australia/Lord_Howe"_s);
            object.isAllDay = i % 5 == 0;
            const auto rule = CXRecurrenceRule::parse(text);
            QVERIFY2(rule && CXRecurrenceRule::parse(rule->toIcal()).value() == *rule, qPrintable(text));
            const Instant start = *object.startDate;
            const days span = spanOf(text);
            const std::vector<Instant> whole = expand(object, start, start + span);
            QVERIFY(std::ranges::is_sorted(whole, std::ranges::less_equal{}));
            const Instant from = start + minutes{random.number(0, int(span / 1min))};
            const Instant to = from + minutes{random.number(0, int((start + span - from) / 1min))};
            const std::vector<Instant> window = expand(object, from, to);
            QVERIFY2(window == within(whole, from, to), qPrintable(text));
            const auto next = std::ranges::upper_bound(whole, from);
            if (next != whole.end())
                QVERIFY2(CXRecurrenceAssistant::nextOccurrence(object, from) == *next, qPrintable(text));
        }
    }
};

ORVANE_TEST(RecurrenceProperties_test)
#include "RecurrenceProperties_test.moc"
