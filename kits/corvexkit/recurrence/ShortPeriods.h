#pragma once

#include "corvexkit/recurrence/DayFilter.h"
#include "corvexkit/recurrence/DaySet.h"
#include "corvexkit/recurrence/MonthDays.h"

/// The days, weeks or months of a completed rule, numbered from the one that holds the start, 0. All three
/// (and YearlyPeriods) answer the same questions:
///
/// - `lastBefore(day)`: the last period that lies before `day` as a whole, or 0. What follows it may hold
///   that day.
/// - `begin(index)`: no day of the period is earlier.
/// - `days(index, set)`: the days of the period that the rule names, at all times of day.
/// - `daysInEach()`: how many days every period has, when that is always the same.
class DailyPeriods {
public:
    /// Refers to `rule`.
    DailyPeriods(const CXRecurrenceRule &rule, Day start)
        : m_filter{rule}, m_start{start}, m_interval{rule.interval}
    {
    }

    std::int64_t lastBefore(Day day) const;
    Day begin(std::int64_t index) const { return m_start + m_interval * index; }
    void days(std::int64_t index, DaySet &set) const;
    std::optional<int> daysInEach() const { return m_filter.isEmpty() ? std::optional{1} : std::nullopt; }

private:
    DayFilter m_filter;
    Day m_start;
    std::chrono::days m_interval;
};

class WeeklyPeriods {
public:
    /// Refers to `rule`.
    WeeklyPeriods(const CXRecurrenceRule &rule, Day start);

    std::int64_t lastBefore(Day day) const;
    Day begin(std::int64_t index) const { return m_firstWeek + m_interval * index; }
    void days(std::int64_t index, DaySet &set) const;
    std::optional<int> daysInEach() const;

private:
    const CXRecurrenceRule &m_rule;
    DayFilter m_filter;
    std::uint64_t m_weekdays; // bit 0 is the first day of the week
    Day m_firstWeek;
    std::chrono::days m_interval;
};

class MonthlyPeriods {
public:
    /// Refers to `rule`.
    MonthlyPeriods(const CXRecurrenceRule &rule, Day start);

    std::int64_t lastBefore(Day day) const;
    Day begin(std::int64_t index) const;
    void days(std::int64_t index, DaySet &set) const;
    std::optional<int> daysInEach() const { return std::nullopt; }

private:
    std::chrono::year_month monthAt(std::int64_t index) const;

    const CXRecurrenceRule &m_rule;
    std::int64_t m_firstMonth; // months since the year 0
};

/// The days of `weekdays` in a week that begins with `weekStart`, which is bit 0.
std::uint64_t daysOfWeek(NumberSet<0, 6> weekdays, std::chrono::weekday weekStart);
/// The first day of the week that holds `day`.
inline Day weekOf(Day day, std::chrono::weekday weekStart)
{
    return day - (std::chrono::weekday{day} - weekStart);
}
