#include "model/records/DayStamp.h"

using namespace std::chrono;

int DayStamp::fromDay(Day day)
{
    const year_month_day date{day};
    return int(date.year()) * 10000 + int(unsigned(date.month()) * 100 + unsigned(date.day()));
}

std::optional<Day> DayStamp::toDay(std::int64_t stamp)
{
    if (stamp < 1'01'01 || stamp > 9999'12'31) return std::nullopt;
    const year_month_day date{year{int(stamp / 10000)}, month{unsigned(stamp / 100 % 100)},
                              day{unsigned(stamp % 100)}};
    return date.ok() ? std::optional{Day{date}} : std::nullopt;
}

int DayStamp::stampFromDate(Instant date, const CXTimeZone &zone) { return fromDay(zone.dayOf(date)); }
