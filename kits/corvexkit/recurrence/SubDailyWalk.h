#pragma once

#include "corvexkit/recurrence/DayFilter.h"
#include "corvexkit/recurrence/OccurrenceCollector.h"
#include "corvexkit/recurrence/SetPositions.h"
#include "corvexkit/recurrence/TimesOfDay.h"

/// The occurrences of a completed rule that steps by hours, minutes or seconds: steps of one length, which
/// the parts above the frequency limit and those below it divide.
class SubDailyWalk {
public:
    /// Refers to `rule`.
    SubDailyWalk(const CXRecurrenceRule &rule, std::chrono::local_seconds start);

    /// The length of the steps where each is one occurrence, the first the start: nothing limits or divides
    /// them.
    std::optional<std::chrono::seconds> evenStep() const;

    void run(OccurrenceCollector &collector);

private:
    bool takeStep(std::chrono::local_seconds moment, OccurrenceCollector &collector);
    std::chrono::local_seconds firstAllowed(std::chrono::local_seconds moment) const;
    bool allowsTime(std::chrono::seconds time) const;
    bool everReachesAllowedTime() const;

    DayFilter m_filter;
    std::uint64_t m_hours; // all where the rule does not limit them
    std::uint64_t m_minutes;
    std::uint64_t m_seconds;
    std::chrono::seconds m_step;
    std::chrono::local_seconds m_start;
    std::chrono::local_seconds m_first; // the step of the start
    TimesOfDay m_within;                // what a step holds, from its begin on
    SetPositions m_positions;
    bool m_isCounted;
};
