#include "focus/FocusPeriod.h"

#include <algorithm>

using namespace std::chrono;

FocusDays FocusPeriod::days(Day today, weekday firstWeekday) const
{
    const int away = std::clamp(offset, -100'000, 100'000);
    switch (kind) {
    case Kind::OneDay: {
        const Day day = today + std::chrono::days{away};
        return {day, day + std::chrono::days{1}};
    }
    case Kind::Week: {
        const Day first = today - (weekday{today} - firstWeekday) + weeks{away};
        return {first, first + weeks{1}};
    }
    case Kind::Month:
        break;
    }
    const year_month_day date{today};
    const year_month month = date.year() / date.month() + months{away};
    return {Day{month / 1}, Day{(month + months{1}) / 1}};
}
