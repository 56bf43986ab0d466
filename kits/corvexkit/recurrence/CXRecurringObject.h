#pragma once

#include "corvexkit/time/CXTimeZone.h"

#include <set>

/// What the recurrence of a task or an event depends on. A plain value.
struct CXRecurringObject {
    /// The first occurrence. Without it nothing occurs.
    std::optional<Instant> startDate;
    bool isAllDay = false;
    /// As CXRecurrenceRule::parse() reads it.
    QString recurrenceRuleString;
    /// Occurrences left out; they still count towards COUNT. Of an all-day object every instant of the day
    /// leaves the day out.
    std::set<Instant> excludedOccurrenceDates;
    /// The zone in whose wall-clock time the occurrences repeat.
    CXTimeZone timeZone;
    /// The start of weeks for a rule without WKST.
    std::chrono::weekday firstWeekday = std::chrono::Monday;
};
