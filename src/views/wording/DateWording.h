#pragma once

#include "corvexkit/time/Instant.h"

#include <QLocale>
#include <QString>

/// Days and times in words, the way a person reads them in a list. Main thread.
namespace DateWording {

/// "09:30" or "9:30 AM": see ClockFormat.
QString timeOfDay(LocalTime time, const QLocale &locale);

/// "Sat 21 Nov"; with the year when it is not that of `today`.
QString weekdayAndDay(Day day, Day today, const QLocale &locale);

/// "Saturday 21 November".
QString fullDay(Day day, const QLocale &locale);

/// Whether a day of the past week may be called by its weekday alone; a day of the coming week always is.
enum class PastWeekdays { Named, Dated };

/// "Today", "Tomorrow", "Yesterday"; a weekday within six days; else the date.
QString relativeDay(Day day, Day today, const QLocale &locale,
                    PastWeekdays pastWeekdays = PastWeekdays::Named);

} // namespace DateWording
