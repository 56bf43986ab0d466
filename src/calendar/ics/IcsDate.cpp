#include "calendar/ics/IcsDate.h"

#include "calendar/ics/IcsZones.h"

using namespace std::chrono;

std::optional<IcsDate> IcsDate::from(const icaltimetype &time, const QString &zoneName, const IcsZones &zones)
{
    const year_month_day date{year{time.year}, month(unsigned(time.month)),
                              std::chrono::day(unsigned(time.day))};
    const bool isWithin = time.year >= 1 && time.year <= 9999 && date.ok();
    const bool isTime = time.hour >= 0 && time.hour < 24 && time.minute >= 0 && time.minute < 60 &&
                        time.second >= 0 && time.second <= 60;
    if (!isWithin || !isTime) return std::nullopt;
    IcsDate result{LocalTime{local_days{date}}};
    result.isDay = time.is_date != 0;
    if (result.isDay) return result;
    // There are no leap seconds here.
    result.local += hours{time.hour} + minutes{time.minute} + seconds{std::min(time.second, 59)};
    if (icaltime_is_utc(time))
        result.zone = CXTimeZone::utc();
    else
        result.zone = zoneName.isEmpty() ? std::nullopt : zones.zone(zoneName);
    return result;
}

Instant IcsDate::instant(const CXTimeZone &inForce) const
{
    return isDay ? inForce.startOfDay(day()) : zone.value_or(inForce).toInstant(local);
}

Instant IcsDate::instantAfter(const icaldurationtype &duration, const CXTimeZone &inForce) const
{
    IcsDate later = *this;
    later.local += days{duration.days} + weeks{duration.weeks};
    const seconds rest = hours{duration.hours} + minutes{duration.minutes} + seconds{duration.seconds};
    return later.instant(inForce) + rest;
}
