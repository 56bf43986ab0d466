#include "views/calendar/CalendarDrag.h"

#include "views/calendar/ItemDays.h"

#include <algorithm>

using namespace std::chrono;

namespace {

constexpr days nextDay{1};

Day dayHolding(LocalTime time) { return floor<days>(time); }

LocalTime stepBefore(LocalTime time) { return time - (time - dayHolding(time)) % CalendarDrag::step; }

LocalTime nearestStep(LocalTime time) { return stepBefore(time + CalendarDrag::step / 2); }

} // namespace

CalendarItem CalendarDrag::movedToDay(const CalendarItem &item, Day day)
{
    CalendarItem result = item;
    const days distance = day - dayHolding(item.start);
    result.start += distance;
    result.end += distance;
    return result;
}

CalendarItem CalendarDrag::moved(const CalendarItem &item, const CalendarSpot &from, const CalendarSpot &to)
{
    if (from.time && to.time) {
        CalendarItem result = item;
        result.start = nearestStep(item.start + (to.at() - from.at()));
        result.end = result.start + (item.end - item.start);
        return result;
    }
    CalendarItem result = movedToDay(item, dayHolding(item.start) + (to.day - from.day));
    if (to.time) {
        result.isAllDay = false;
        result.start = result.end = nearestStep(to.at());
    } else if (from.time && !item.isAllDay) {
        const ItemDays touched = ItemDays::of(result);
        result.isAllDay = true;
        result.start = touched.first;
        result.end = touched.isOne() ? touched.first : touched.last + nextDay;
    }
    return result;
}

CalendarItem CalendarDrag::resized(const CalendarItem &item, const CalendarSpot &to)
{
    CalendarItem result = item;
    result.end = std::max(nearestStep(to.at()), item.start + step);
    return result;
}

CalendarItem CalendarDrag::spanned(const CalendarSpot &from, const CalendarSpot &to)
{
    CalendarItem result;
    const auto [first, last] = std::minmax({from.at(), to.at()}); // by value: these are temporaries
    result.isAllDay = !from.time || !to.time;
    if (result.isAllDay) {
        result.start = dayHolding(first);
        result.end = dayHolding(last) == dayHolding(first) ? result.start : dayHolding(last) + nextDay;
    } else {
        result.start = stepBefore(first);
        result.end = std::max(nearestStep(last), result.start + step);
    }
    return result;
}

CalendarItem CalendarDrag::newAt(const CalendarSpot &spot)
{
    CalendarItem result;
    result.isAllDay = !spot.time;
    result.start = result.end = spot.at();
    if (spot.time) {
        result.start = stepBefore(spot.at());
        result.end = result.start + 1h;
    }
    return result;
}
