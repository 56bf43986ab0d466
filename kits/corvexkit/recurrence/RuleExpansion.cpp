#include "corvexkit/recurrence/RuleExpansion.h"

#include "corvexkit/recurrence/SetPositions.h"
#include "corvexkit/recurrence/ShortPeriods.h"
#include "corvexkit/recurrence/SubDailyWalk.h"
#include "corvexkit/recurrence/TimesOfDay.h"
#include "corvexkit/recurrence/YearlyPeriods.h"

using namespace std::chrono;

namespace {

// Periods of days of one kind, each with the same times of day.
template <class Periods>
class PeriodWalk {
public:
    PeriodWalk(const Periods &periods, const CXRecurrenceRule &rule, OccurrenceCollector &collector)
        : m_periods{periods}
        , m_times{rule.byHour.bits(), rule.byMinute.bits(), rule.bySecond.bits()}
        , m_positions{rule.bySetPos}
        , m_collector{collector}
        , m_isCounted{rule.count.has_value()}
    {
    }

    void run()
    {
        const Day last = floor<days>(m_collector.end());
        DaySet set;
        const auto take = [&](std::int64_t index) {
            m_periods.days(index, set);
            return m_positions.isEmpty() ? takeAll(set) : takeChosen(set);
        };
        // By itself, since the start may cut it.
        if (!take(0)) return;
        for (std::int64_t index = skipToRange(); m_periods.begin(index) <= last; ++index)
            if (!take(index)) return;
    }

private:
    // The index to go on with after the first period.
    std::int64_t skipToRange()
    {
        const std::int64_t index =
            std::max<std::int64_t>(1, m_periods.lastBefore(floor<days>(m_collector.begin())));
        const std::optional<int> daysInEach = m_positions.isEmpty() ? m_periods.daysInEach() : std::nullopt;
        if (!daysInEach) return m_isCounted ? 1 : index;
        const std::int64_t inEach = std::int64_t{*daysInEach} * m_times.count();
        m_collector.pass((index - 1) * inEach);
        const auto range = m_collector.end() - m_collector.begin();
        m_collector.expect((range / (m_periods.begin(1) - m_periods.begin(0)) + 2) * inEach);
        return index;
    }

    bool takeAll(const DaySet &set)
    {
        return set.forEach([this](Day day) {
            return m_times.forEach([this, day](seconds time) { return m_collector.take(day + time); });
        });
    }

    // BYSETPOS counts all occurrences of the period, in order.
    bool takeChosen(const DaySet &set)
    {
        const std::span<const int> chosen = m_positions.among(set.count() * m_times.count());
        auto next = chosen.begin();
        int dayBegin = 0;
        return set.forEach([&](Day day) {
            for (; next != chosen.end() && *next < dayBegin + m_times.count(); ++next)
                if (!m_collector.take(day + m_times.at(*next - dayBegin))) return false;
            dayBegin += m_times.count();
            return true;
        });
    }

    Periods m_periods;
    TimesOfDay m_times;
    SetPositions m_positions;
    OccurrenceCollector &m_collector;
    bool m_isCounted;
};

template <class Periods>
void walk(const CXRecurrenceRule &rule, OccurrenceCollector &collector)
{
    PeriodWalk{Periods{rule, floor<days>(collector.start())}, rule, collector}.run();
}

// Steps of one length from the start on.
void walkEvenly(seconds step, OccurrenceCollector &collector)
{
    const auto skipped = std::max<std::int64_t>(0, (collector.begin() - collector.start()) / step - 1);
    collector.pass(skipped);
    collector.expect((collector.end() - collector.begin()) / step + 2);
    local_seconds local = collector.start() + (skipped + 1) * step;
    while (collector.take(local))
        local += step;
}

// Whether the times of a completed rule are the start's.
bool keepsTimeOf(local_seconds start, const CXRecurrenceRule &rule)
{
    const TimesOfDay times{rule.byHour.bits(), rule.byMinute.bits(), rule.bySecond.bits()};
    return times.count() == 1 && floor<days>(start) + times.first() == start;
}

void walkDays(const CXRecurrenceRule &rule, OccurrenceCollector &collector)
{
    if (DayFilter{rule}.isEmpty() && rule.bySetPos.isEmpty() && keepsTimeOf(collector.start(), rule))
        walkEvenly(days{rule.interval}, collector);
    else
        walk<DailyPeriods>(rule, collector);
}

void walkWithinDays(const CXRecurrenceRule &rule, OccurrenceCollector &collector)
{
    SubDailyWalk walk{rule, collector.start()};
    if (const std::optional<seconds> step = walk.evenStep())
        walkEvenly(*step, collector);
    else
        walk.run(collector);
}

} // namespace

void expandRule(const CXRecurrenceRule &rule, OccurrenceCollector &collector)
{
    using enum CXRecurrenceRule::Frequency;
    switch (rule.frequency) {
    case Secondly:
    case Minutely:
    case Hourly:
        return walkWithinDays(rule, collector);
    case Daily:
        return walkDays(rule, collector);
    case Weekly:
        return walk<WeeklyPeriods>(rule, collector);
    case Monthly:
        return walk<MonthlyPeriods>(rule, collector);
    case Yearly:
        return walk<YearlyPeriods>(rule, collector);
    }
}
