#include "corvexkit/recurrence/ShortPeriods.h"

using namespace std::chrono;

namespace {

std::int64_t monthNumber(Day day)
{
    const year_month_day date{day};
    return std::int64_t{int{date.year()}} * 12 + unsigned{date.month()} - 1;
}

// Of days from `first` on in steps of `interval`, the last that ends before `day`, `length` days long.
std::int64_t lastSpanBefore(Day first, days interval, days length, Day day)
{
    return std::max<std::int64_t>(0, (day - length - first) / interval);
}

} // namespace

std::uint64_t daysOfWeek(NumberSet<0, 6> weekdays, weekday weekStart)
{
    std::uint64_t result = 0;
    weekdays.forEach(
        [&](int day) { result |= std::uint64_t{1} << (weekday{unsigned(day)} - weekStart).count(); });
    return result;
}

std::int64_t DailyPeriods::lastBefore(Day day) const
{
    return lastSpanBefore(m_start, m_interval, std::chrono::days{1}, day);
}

void DailyPeriods::days(std::int64_t index, DaySet &set) const
{
    const Day day = begin(index);
    set.reset(day, 1);
    if (m_filter.allows(day)) set.insert(0);
}

WeeklyPeriods::WeeklyPeriods(const CXRecurrenceRule &rule, Day start)
    : m_rule{rule}
    , m_filter{rule}
    , m_weekdays{daysOfWeek(rule.byDay.every(), *rule.weekStart)}
    , m_firstWeek{weekOf(start, *rule.weekStart)}
    , m_interval{7 * std::int64_t{rule.interval}}
{
}

std::int64_t WeeklyPeriods::lastBefore(Day day) const
{
    return lastSpanBefore(m_firstWeek, m_interval, std::chrono::days{7}, day);
}

void WeeklyPeriods::days(std::int64_t index, DaySet &set) const
{
    set.reset(begin(index), 7);
    set.insertBits(0, m_weekdays);
    if (!m_rule.byMonth.isEmpty()) set.filter([this](Day day) { return m_filter.allows(day); });
}

std::optional<int> WeeklyPeriods::daysInEach() const
{
    return m_rule.byMonth.isEmpty() ? std::optional{std::popcount(m_weekdays)} : std::nullopt;
}

MonthlyPeriods::MonthlyPeriods(const CXRecurrenceRule &rule, Day start)
    : m_rule{rule}, m_firstMonth{monthNumber(start)}
{
}

std::int64_t MonthlyPeriods::lastBefore(Day day) const
{
    // The month before may reach the first of this one, by SKIP.
    return std::max<std::int64_t>(0, (monthNumber(day) - 2 - m_firstMonth) / m_rule.interval);
}

Day MonthlyPeriods::begin(std::int64_t index) const { return Day{monthAt(index) / 1} - std::chrono::days{1}; }

void MonthlyPeriods::days(std::int64_t index, DaySet &set) const
{
    const year_month month = monthAt(index);
    const MonthDays monthDays{month};
    set.reset(monthDays.first() - std::chrono::days{1}, 33);
    if (!m_rule.byMonth.isEmpty() && !m_rule.byMonth.contains(int(unsigned{month.month()}))) return;
    std::uint64_t bits = monthDays.numbered(m_rule);
    if (!m_rule.byDay.isEmpty()) bits &= monthDays.onWeekdays(m_rule.byDay);
    set.insertBits(0, bits);
}

year_month MonthlyPeriods::monthAt(std::int64_t index) const
{
    // The year 10001 stands for all that follow: none is asked for.
    const std::int64_t number = std::min<std::int64_t>(10'001 * 12, m_firstMonth + index * m_rule.interval);
    return year{int(number / 12)} / month{unsigned(number % 12) + 1};
}
