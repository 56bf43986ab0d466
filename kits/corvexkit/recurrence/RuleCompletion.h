#pragma once

#include "corvexkit/recurrence/CXRecurrenceRule.h"

/// What a rule leaves to the start of the recurring object: RFC 5545 section 3.3.10, "information, not
/// contained in the rule".
struct RuleStart {
    std::chrono::local_seconds time; ///< midnight for an all-day object
    bool isAllDay;
    std::chrono::weekday firstWeekday; ///< the WKST of a rule without one
};

/// Writes into `rule` what it leaves open, so that it can be expanded by itself: the week start, the days
/// of a frequency above the day, and the times below the frequency. An all-day rule gets midnight.
void completeFromStart(CXRecurrenceRule &rule, const RuleStart &start);
