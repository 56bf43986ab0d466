#pragma once

#include "corvexkit/recurrence/CXRecurrenceRule.h"

/// The days of one month that a rule names, as bits: bit n is day n. Bit 0 is the last day of the month
/// before and the bit after the last day the first of the month after: SKIP may choose them.
class MonthDays {
public:
    explicit MonthDays(std::chrono::year_month month);

    Day first() const { return m_first; }

    /// The days of BYMONTHDAY, with SKIP; every day of the month without BYMONTHDAY.
    std::uint64_t numbered(const CXRecurrenceRule &rule) const;
    /// The days of BYDAY, its ordinals counted within the month.
    std::uint64_t onWeekdays(const WeekdaySet &weekdays) const;

private:
    std::uint64_t whole() const { return ((std::uint64_t{1} << m_length) - 1) << 1; }
    // Every such weekday, bits 0 to 34.
    std::uint64_t every(int weekday) const;

    Day m_first;
    int m_length;
    int m_firstWeekday; // Sunday is 0
};
