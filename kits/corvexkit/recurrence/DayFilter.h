#pragma once

#include "corvexkit/recurrence/CXRecurrenceRule.h"

/// The parts of a rule that limit single days: BYMONTH, BYMONTHDAY, BYYEARDAY and BYDAY without ordinals.
class DayFilter {
public:
    /// Refers to `rule`.
    explicit DayFilter(const CXRecurrenceRule &rule)
        : m_rule{rule}
        , m_hasYearDays{!rule.byYearDay.isEmpty()}
        , m_hasDates{m_hasYearDays || !rule.byMonth.isEmpty() || !rule.byMonthDay.isEmpty()}
        , m_hasWeekdays{!rule.byDay.every().isEmpty()}
    {
    }

    bool isEmpty() const { return !m_hasDates && !m_hasWeekdays; }

    bool allows(Day day) const
    {
        if (m_hasWeekdays && !m_rule.byDay.every().contains(int(std::chrono::weekday{day}.c_encoding())))
            return false;
        return !m_hasDates || allowsDate(day);
    }

private:
    bool allowsDate(Day day) const;

    const CXRecurrenceRule &m_rule;
    bool m_hasYearDays;
    bool m_hasDates;
    bool m_hasWeekdays;
};
