#pragma once

#include "nlp/Fragment.h"
#include "nlp/Settings.h"

#include <chrono>
#include <optional>

namespace nlp {

using LocalDay = std::chrono::local_days;
using LocalTime = std::chrono::local_time<std::chrono::minutes>;

/// Looks the days that a text names up in the Gregorian calendar, with `today` as the day it was
/// written. Answers nothing for a day that does not exist or lies beyond the year 9999.
class Calendar {
public:
    Calendar(LocalDay today, int firstWeekday) : m_today{today}, m_firstWeekday{firstWeekday} {}

    LocalDay today() const { return m_today; }

    /// May a plain weekday be today?
    enum class Today { Excluded, Included };

    std::optional<LocalDay> resolve(const DayReference &reference, Today plainWeekday) const;

    /// `day` moved on by days, weeks, months or years; from a day that the target month lacks to the
    /// month's last.
    static std::optional<LocalDay> moved(LocalDay day, const Quantity &by);

    static std::optional<LocalDay> validated(std::chrono::year_month_day date);

private:
    LocalDay nextWeekday(int weekday, Today today) const;
    LocalDay startOfWeek(int weeksAhead) const;
    LocalDay firstOf(Unit unit, int periodsAhead) const;
    std::optional<LocalDay> date(const DayReference &reference) const;
    std::optional<LocalDay> dayOfMonth(int day, int monthsAhead) const;
    std::optional<LocalDay> nthWeekday(const DayReference &reference) const;
    std::optional<LocalDay> lastOfMonth(const DayReference &reference) const;
    std::optional<LocalDay> holiday(const DayReference &reference) const;
    std::optional<LocalDay> unmoved(const DayReference &reference, Today plainWeekday) const;

    LocalDay m_today;
    int m_firstWeekday; ///< 1 = Sunday … 7 = Saturday
};

} // namespace nlp
