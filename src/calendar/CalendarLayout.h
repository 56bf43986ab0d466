#pragma once

#include "calendar/CalendarItem.h"
#include "calendar/CalendarPage.h"

#include <vector>

/// Where a timed item, or the part of it that is on one day, stands in the column of that day. Items beside
/// each other share the width evenly: `columns` of them, of which this one takes `span` from `column` on.
struct TimedBox {
    std::size_t item; ///< its index among the items of the page
    int day;          ///< 0 is the first on show
    int fromMinute;   ///< of the day, 0 to 1440
    int toMinute;     ///< behind `fromMinute`, up to 1440
    int column;
    int columns;
    int span;
    bool beginsBefore; ///< it goes on from the day before
    bool goesOn;       ///< it goes on the day after

    bool operator==(const TimedBox &) const = default;
};

/// Where a bar over whole days stands: in a row of days, `lane` from the top.
struct LaneBar {
    std::size_t item;
    int firstDay; ///< 0 is the first on show
    int lastDay;  ///< in the same row of days as `firstDay`
    int lane;
    bool beginsBefore; ///< the row of days
    bool goesOn;       ///< behind the row of days

    bool operator==(const LaneBar &) const = default;
};

/// The timed items of a day or week, side by side where they overlap: no two boxes cover one another, and
/// each is as wide as those beside it allow; day by day, from the earliest on. One that is shorter than
/// `shortestMinutes`, which is at least 1, takes as many on the page, so that it can be read. Sessions of
/// focus stand behind what they overlap.
std::vector<TimedBox> timedBoxes(const std::vector<CalendarItem> &items, const CalendarPage &page,
                                 int shortestMinutes);

/// Whether the item stands in the all-day lane of a day or week: all-day ones, and those of a day or longer
/// that are no session of focus.
bool standsInAllDayLane(const CalendarItem &item);
/// The bars of the all-day lane of a day or week: one row of all days on show.
std::vector<LaneBar> allDayBars(const std::vector<CalendarItem> &items, const CalendarPage &page);
/// The bars of a month: every item, in rows of a week. Longer ones stand above shorter ones, all-day ones
/// above timed ones, those by their time, and sessions of focus behind all.
std::vector<LaneBar> monthBars(const std::vector<CalendarItem> &items, const CalendarPage &page);
