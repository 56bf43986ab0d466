#pragma once

#include "corvexkit/time/CXTimeZone.h"

#include <set>

/// What the recurrence of a task or an event depends on. A plain value.
struct CXRecurringObject {
    /// The first occurrence. Without it nothing occurs.
    std::optional<Instant> startDate;
    bool isAllDay = false;
    /// As CXRecurrenceRule::parse() reads it. Empty: there are only the start and the additional dates.
    QString recurrenceRuleString;
    /// Occurrences beside the rule, which neither COUNT nor UNTIL ends. Of an all-day object each stands for
    /// its day. Those before the start are none.
    std::set<Instant> additionalOccurrenceDates{};
    /// Occurrences left out; they still count towards COUNT. Of an all-day object every instant of the day
    /// leaves the day out.
    std::set<Instant> excludedOccurrenceDates;
    /// The zone in whose wall-clock time the occurrences repeat.
    CXTimeZone timeZone;
    /// The start of weeks for a rule without WKST.
    std::chrono::weekday firstWeekday = std::chrono::Monday;

    bool excludes(Instant occurrence) const
    {
        return !excludedOccurrenceDates.empty() && isAmongExcluded(occurrence);
    }

private:
    bool isAmongExcluded(Instant occurrence) const;
};
