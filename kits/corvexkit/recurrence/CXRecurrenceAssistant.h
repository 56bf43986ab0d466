#pragma once

#include "corvexkit/recurrence/CXRecurringObject.h"

#include <vector>

/// The dates on which recurring objects occur: RFC 5545 section 3.3.10, with the SKIP of RFC 7529. A rule
/// text that cannot be read yields nothing, nor does an object without rule and additional dates, or a
/// start outside the years 1 to 9999; nothing occurs after 9999. Any thread.
///
/// Occurrences keep their wall-clock time in the object's zone: in a gap it moves forward by the gap, in
/// a fold the first of the two counts, and readings that fall on one instant are one occurrence. All-day
/// objects occur at the first instant of their days; the parts for hours, minutes and seconds do not
/// touch them, and a frequency below a day yields the start alone.
///
/// The start is the first occurrence and counts as one, whether the rule yields it or not. UNTIL as a day
/// includes that day.
class CXRecurrenceAssistant {
public:
    /// The starts of the occurrences from `from` to `to`, both included, ascending: the first `limit` of
    /// them, when given. Without the first occurrence, only those after the start.
    static std::vector<Instant>
    calendar_occurrenceDatesForRecurringObject(const CXRecurringObject &object, Instant from, Instant to,
                                               bool includingFirst,
                                               std::optional<std::size_t> limit = std::nullopt);

    /// The first occurrence strictly later than `after`, the start being one too.
    static std::optional<Instant> nextOccurrence(const CXRecurringObject &object, Instant after);
};
