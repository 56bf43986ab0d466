#pragma once

#include "calendar/CalendarItem.h"
#include "views/calendar/CalendarSpot.h"

/// What a drag over the calendar makes of an item. Pure.
namespace CalendarDrag {

/// Times are taken in steps of this.
inline constexpr std::chrono::minutes step{15};

/// Moved by as much as there is between the spots: by days where one of them is a day as a whole, else by
/// steps too. From the lane of whole days to a time it begins there without a length; from a time to the lane
/// it takes the days that it touches.
CalendarItem moved(const CalendarItem &item, const CalendarSpot &from, const CalendarSpot &to);
/// Moved so that the day is its first one; a time stays.
CalendarItem movedToDay(const CalendarItem &item, Day day);

/// Ends at that spot, one step after its start at the earliest.
CalendarItem resized(const CalendarItem &item, const CalendarSpot &to);

/// From one spot to the other, in either direction: at least a step, or days.
CalendarItem spanned(const CalendarSpot &from, const CalendarSpot &to);
/// What is made without a drag: the day, or an hour from the spot on.
CalendarItem newAt(const CalendarSpot &spot);

} // namespace CalendarDrag
