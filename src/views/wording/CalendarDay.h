#pragma once

#include "model/text/DayText.h"

/// The other way of dateOf().
inline Day dayOf(const QDate &date)
{
    return Day{std::chrono::year{date.year()} / date.month() / date.day()};
}

/// Where people put off to when they say "next week": the Monday of the week after this one. Weeks begin
/// on `firstWeekday`, 1 Sunday … 7 Saturday.
inline Day mondayOfNextWeek(Day today, int firstWeekday)
{
    const std::chrono::weekday first{unsigned(firstWeekday - 1)};
    const Day nextWeek = today - (std::chrono::weekday{today} - first) + std::chrono::days{7};
    return nextWeek + (std::chrono::Monday - std::chrono::weekday{nextWeek});
}
