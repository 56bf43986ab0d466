#include "model/records/ZoneMove.h"

#include <algorithm>

using namespace std::chrono;

CXTimeZone ZoneMove::zoneOfDay(Instant date, std::initializer_list<CXTimeZone> candidates)
{
    const auto *found = std::ranges::find_if(
        candidates, [date](const CXTimeZone &zone) { return zone.startOfDay(zone.dayOf(date)) == date; });
    return found == candidates.end() ? *candidates.begin() : *found;
}

Instant ZoneMove::endOfDays(Instant end, Instant start) const
{
    const Day lastDay = m_from.dayOf(std::max(end - 1ms, start));
    // Of a day that the zone skips nothing is left but the day after it.
    const Day firstDayThere = m_to.dayOf(day(start));
    return m_to.startOfDay(std::max(lastDay, firstDayThere) + days{1});
}
