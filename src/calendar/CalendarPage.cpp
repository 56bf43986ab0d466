#include "calendar/CalendarPage.h"

using namespace std::chrono;

namespace {

Day weekOf(Day day, weekday firstWeekday) { return day - (weekday{day} - firstWeekday); }

Day monthOf(Day day, months later = {})
{
    const year_month_day date{day};
    return Day{local_days{(date.year() / date.month() + later) / 1}};
}

} // namespace

CalendarPage CalendarPage::around(Day day, Kind kind, weekday firstWeekday)
{
    switch (kind) {
    case Kind::SingleDay:
        return {.kind = kind, .begin = day, .firstDay = day, .dayCount = 1};
    case Kind::Week: {
        const Day begin = weekOf(day, firstWeekday);
        return {.kind = kind, .begin = begin, .firstDay = begin, .dayCount = 7};
    }
    case Kind::Month:
        break;
    }
    const Day begin = monthOf(day);
    const Day firstDay = weekOf(begin, firstWeekday);
    const Day lastWeek = weekOf(monthOf(day, months{1}) - days{1}, firstWeekday);
    return {.kind = kind,
            .begin = begin,
            .firstDay = firstDay,
            .dayCount = int((lastWeek + days{7} - firstDay).count())};
}

CalendarPage CalendarPage::moved(int pages, weekday firstWeekday) const
{
    switch (kind) {
    case Kind::SingleDay:
        return around(begin + days{pages}, kind, firstWeekday);
    case Kind::Week:
        return around(begin + days{7 * pages}, kind, firstWeekday);
    case Kind::Month:
        break;
    }
    return around(monthOf(begin, months{pages}), kind, firstWeekday);
}

CalendarPage::Range CalendarPage::generatedRange(const CXTimeZone &zone, weekday firstWeekday) const
{
    if (kind != Kind::Month) return {zone.startOfDay(begin), zone.startOfDay(endDay())};
    return {zone.startOfDay(begin - days{7}),
            zone.startOfDay(weekOf(monthOf(begin, months{1}), firstWeekday) + days{7})};
}
