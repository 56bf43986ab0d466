#include "corvexkit/recurrence/CXRecurringObject.h"

using namespace std::chrono;

bool CXRecurringObject::isAmongExcluded(Instant occurrence) const
{
    if (!isAllDay) return excludedOccurrenceDates.contains(occurrence);
    const Day day = timeZone.dayOf(occurrence);
    const auto first = excludedOccurrenceDates.lower_bound(timeZone.startOfDay(day));
    return first != excludedOccurrenceDates.end() && *first < timeZone.startOfDay(day + days{1});
}
