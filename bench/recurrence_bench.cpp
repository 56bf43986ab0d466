#include "RuleMaker.h"
#include "corvexkit/recurrence/CXRecurrenceAssistant.h"
#include "corvexkit/recurrence/CXRecurrenceRule.h"

#include <benchmark/benchmark.h>

#include <QString>

using namespace Qt::StringLiterals;
using namespace std::chrono;

namespace {

using MakeRule = QString (RuleMaker::*)();

std::vector<CXRecurringObject> tenThousand(MakeRule makeRule)
{
    RuleMaker maker;
    std::vector<CXRecurringObject> objects(10'000);
    for (CXRecurringObject &object : objects) {
        object.timeZone = *CXTimeZone::named(u"America/New_York"_s);
        object.startDate = object.timeZone.toInstant(maker.start());
        object.recurrenceRuleString = (maker.*makeRule)();
    }
    return objects;
}

// Half a year that begins in the middle of the starts and holds the gap of March: reading the rule's text
// and converting to UTC included.
void expandHalfYear(benchmark::State &state, const std::vector<CXRecurringObject> &objects)
{
    const Instant from{sys_days{2029y / 11 / 15}};
    const Instant to{sys_days{2030y / 5 / 15}};
    std::int64_t occurrences = 0;
    for (auto _ : state)
        for (const CXRecurringObject &object : objects)
            occurrences += std::int64_t(
                CXRecurrenceAssistant::calendar_occurrenceDatesForRecurringObject(object, from, to, true)
                    .size());
    state.SetItemsProcessed(occurrences);
}

void mixedRules(benchmark::State &state) { expandHalfYear(state, tenThousand(&RuleMaker::mixed)); }
BENCHMARK(mixedRules)->Unit(benchmark::kMillisecond);

void dailyRules(benchmark::State &state) { expandHalfYear(state, tenThousand(&RuleMaker::daily)); }
BENCHMARK(dailyRules)->Unit(benchmark::kMillisecond);

void weeklyRules(benchmark::State &state) { expandHalfYear(state, tenThousand(&RuleMaker::weekly)); }
BENCHMARK(weeklyRules)->Unit(benchmark::kMillisecond);

void mixedRulesCounted(benchmark::State &state)
{
    std::vector<CXRecurringObject> objects = tenThousand(&RuleMaker::mixed);
    for (CXRecurringObject &object : objects)
        object.recurrenceRuleString += u";COUNT=1000"_s;
    expandHalfYear(state, objects);
}
BENCHMARK(mixedRulesCounted)->Unit(benchmark::kMillisecond);

void ruleRead(benchmark::State &state)
{
    const QString text = u"RRULE:FREQ=WEEKLY;INTERVAL=2;BYDAY=MO,WE,FR;UNTIL=20301231T235959Z"_s;
    for (auto _ : state)
        benchmark::DoNotOptimize(CXRecurrenceRule::parse(text));
}
BENCHMARK(ruleRead);

void nextOfMixedRules(benchmark::State &state)
{
    const std::vector<CXRecurringObject> objects = tenThousand(&RuleMaker::mixed);
    const Instant after{sys_days{2032y / 2 / 28}};
    std::size_t i = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(CXRecurrenceAssistant::nextOccurrence(objects[i++ % objects.size()], after));
}
BENCHMARK(nextOfMixedRules);

// The last February of the year 9999 is looked at before the answer.
void nextOfRuleThatYieldsNothing(benchmark::State &state)
{
    CXRecurringObject object;
    object.startDate = Instant{sys_days{2030y / 1 / 1}};
    object.recurrenceRuleString = u"FREQ=DAILY;BYMONTH=2;BYMONTHDAY=30"_s;
    for (auto _ : state)
        benchmark::DoNotOptimize(CXRecurrenceAssistant::nextOccurrence(object, *object.startDate));
}
BENCHMARK(nextOfRuleThatYieldsNothing)->Unit(benchmark::kMillisecond);

} // namespace
