#pragma once

#include "corvexkit/recurrence/DayFilter.h"
#include "corvexkit/recurrence/DaySet.h"

/// The years of a completed rule, numbered from the one that holds the start, 0; see DailyPeriods. With
/// BYWEEKNO they are years of weeks (ISO 8601, with the rule's week start), whose first and last days may
/// belong to the calendar years around.
class YearlyPeriods {
public:
    /// Refers to `rule`.
    YearlyPeriods(const CXRecurrenceRule &rule, Day start);

    std::int64_t lastBefore(Day day) const;
    Day begin(std::int64_t index) const;
    void days(std::int64_t index, DaySet &set) const;
    std::optional<int> daysInEach() const { return std::nullopt; }

private:
    bool countsWeeks() const { return !m_rule.byWeekNo.isEmpty(); }
    std::chrono::year yearAt(std::int64_t index) const;
    Day firstWeek(std::chrono::year year) const;
    std::chrono::year yearOfWeeks(Day day) const;

    void insertWeeks(std::chrono::year year, DaySet &set) const;
    void insertMonths(std::chrono::year year, DaySet &set) const;
    void insertYearDays(std::chrono::year year, DaySet &set) const;
    void insertWeekdays(std::chrono::year year, DaySet &set) const;

    const CXRecurrenceRule &m_rule;
    DayFilter m_filter;
    std::chrono::year m_firstYear;
};
