#pragma once

#include "corvexkit/time/CXTimeZone.h"

/// Days as numbers such as 20300501, as the records of single days hold them. Any thread.
namespace DayStamp {

int fromDay(Day day);
/// Nothing for a number that is no day of the years 1 to 9999, such as 20261332.
std::optional<Day> toDay(std::int64_t stamp);
/// The day of `date` on the calendar of the zone.
int stampFromDate(Instant date, const CXTimeZone &zone);

} // namespace DayStamp
